#include "app/OwnedWindows.h"

namespace plotvane {
namespace {

BOOL CALLBACK CloseIfOwned(HWND window, LPARAM owner) {
    if (::GetWindow(window, GW_OWNER) != reinterpret_cast<HWND>(owner)) return TRUE;
    CloseOwnedWindows(window);
    ::SendMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

}  // namespace

void CloseOwnedWindows(HWND owner) {
    ::EnumThreadWindows(::GetCurrentThreadId(), CloseIfOwned, reinterpret_cast<LPARAM>(owner));
}

}  // namespace plotvane

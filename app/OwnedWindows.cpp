#include "app/OwnedWindows.h"

namespace plotvane {
namespace {

// Whether a person has it on the screen, or would have if its owner were not minimised, which hides it. Tips
// and the windows of input methods are owned too, but have no caption; they come and go with their owner.
bool IsForPeople(HWND window, HWND owner) {
    if (::IsWindowVisible(window)) return true;
    const bool hasCaption = (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
    return ::IsIconic(owner) && hasCaption;
}

BOOL CALLBACK CloseIfOwned(HWND window, LPARAM parameter) {
    const auto owner = reinterpret_cast<HWND>(parameter);
    if (::GetWindow(window, GW_OWNER) != owner) return TRUE;
    CloseOwnedWindows(window);
    if (IsForPeople(window, owner)) ::SendMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

}  // namespace

void CloseOwnedWindows(HWND owner) {
    ::EnumThreadWindows(::GetCurrentThreadId(), CloseIfOwned, reinterpret_cast<LPARAM>(owner));
}

}  // namespace plotvane

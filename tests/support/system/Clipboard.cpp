#include "tests/support/system/Clipboard.h"

#include <windows.h>

namespace plotvane::test {

std::wstring ClipboardText() {
    std::wstring text;
    if (!::OpenClipboard(nullptr)) return text;
    if (const HANDLE data = ::GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(::GlobalLock(data));
        ::GlobalUnlock(data);
    }
    ::CloseClipboard();
    return text;
}

}  // namespace plotvane::test

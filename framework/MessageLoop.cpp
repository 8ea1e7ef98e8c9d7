#include "framework/MessageLoop.h"

#include <exception>

#include "framework/Dialog.h"

namespace {

HWND Above(HWND window) {
    const bool isChild = ::GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD;
    return isChild ? ::GetAncestor(window, GA_PARENT) : ::GetWindow(window, GW_OWNER);
}

bool IsTakenBefore(MSG& message) {
    for (HWND window = message.hwnd; window; window = Above(window)) {
        CWnd* const asked = CWnd::FromHandle(window);
        if (asked && asked->PreTranslateMessage(message)) return true;
    }
    return false;
}

// A message that somebody failed over counts as taken, as one does whose handler throws.
bool IsTaken(MSG& message) noexcept {
    try {
        return IsTakenBefore(message);
    } catch (const std::exception& e) {
        TraceLine(e.what());
    } catch (...) {
        TraceLine("PreTranslateMessage threw something unknown.");
    }
    return true;
}

bool IsOfDialog(MSG& message) {
    auto* const dialog = dynamic_cast<CDialog*>(CWnd::FromHandle(::GetAncestor(message.hwnd, GA_ROOT)));
    return dialog && dialog->IsDialogMessage(message);
}

}  // namespace

void HandleQueued(MSG& message) {
    if (IsTaken(message) || IsOfDialog(message)) return;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
}

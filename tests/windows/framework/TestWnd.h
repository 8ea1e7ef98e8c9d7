#pragma once

#include "framework/Wnd.h"

namespace plotvane::test {

constexpr const wchar_t* kTestClass = L"PlotvaneFrameworkTest";

// An empty window, hidden unless the test shows it. All tests of the framework use this window class.
template <typename Window>
bool CreateHidden(Window& window, HWND parent = nullptr) {
    return RegisterWindowClass(kTestClass, 0) &&
           window.CreateEx(0, kTestClass, "test", parent ? WS_CHILD : WS_POPUP, CRect{10, 20, 110, 70},
                           parent, 77);
}

// Dispatches the messages in the queue, and those that their handlers post.
inline void DispatchAll() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

}  // namespace plotvane::test

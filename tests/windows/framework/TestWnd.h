#pragma once

#include "framework/Wnd.h"

namespace plotvane::test {

constexpr const wchar_t* kTestClass = L"PlotvaneFrameworkTest";

// A window with nothing on it, never shown unless asked. The class is that of all the framework's tests.
template <typename Window>
bool CreateHidden(Window& window, HWND parent = nullptr) {
    return RegisterWindowClass(kTestClass, 0) &&
           window.CreateEx(0, kTestClass, "test", parent ? WS_CHILD : WS_POPUP, CRect{10, 20, 110, 70},
                           parent, 77);
}

// Dispatches what is in the queue now and what that brings.
inline void DispatchAll() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

}  // namespace plotvane::test

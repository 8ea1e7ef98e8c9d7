#pragma once

#include <windows.h>

#include <string>

namespace plotvane::test {

// What a screen reader learns of a window.
struct Spoken {
    bool isThere = false;  // the window has an object for screen readers
    std::wstring name;
    long role = 0;   // ROLE_SYSTEM_...
    long state = 0;  // STATE_SYSTEM_... bits
    std::wstring value;
};

// Asks as screen readers do, from this process. For as long as the object lives the calling thread can.
class ScreenReader {
public:
    ScreenReader();
    ~ScreenReader();
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;

    Spoken Read(HWND window) const;
};

}  // namespace plotvane::test

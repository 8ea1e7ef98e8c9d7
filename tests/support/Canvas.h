#pragma once

#include <windows.h>

#include <cstdint>

#include "framework/Dc.h"
#include "framework/Gdi.h"

namespace plotvane::test {

// At() returns this for a pixel that nothing has drawn on; no colour is equal to it.
constexpr COLORREF kUntouched = 0xCCCCCCCC;

// A bitmap to draw on instead of a window. Every byte is 0xCC at first, so a test can also check that nobody
// has drawn at a place. If the test has failed, the destructor saves the picture as SUITE.TEST.bmp in the
// folder "failed" beside the test program.
class Canvas {
public:
    Canvas(int width, int height);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // For drawing functions that take a CDC or a plain device context.
    CDC& Dc() { return m_dc; }

    // The colour at that place, or kUntouched. A place outside the canvas fails the test.
    COLORREF At(int x, int y) const;

private:
    Picture m_picture;
    CDC m_dc{m_picture.Dc()};
};

}  // namespace plotvane::test

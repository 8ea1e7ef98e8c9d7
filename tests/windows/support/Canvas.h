#pragma once

#include <windows.h>

#include <cstdint>

#include "framework/Dc.h"
#include "framework/Gdi.h"

namespace plotvane::test {

// What At() answers for a pixel that nobody has drawn on; no colour is equal to it.
constexpr COLORREF kUntouched = 0xCCCCCCCC;

// A bitmap to draw on instead of a window. Every byte is 0xCC at first, so that "drew nothing here" can be
// checked too. If the test that it belongs to has failed, it leaves the picture as SUITE.TEST.bmp in the
// folder "failed" beside the test program.
class Canvas {
public:
    Canvas(int width, int height);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // For drawing functions that take a CDC or a plain device context.
    CDC& Dc() { return m_dc; }

    // The colour there, or kUntouched. A place outside of the canvas fails the test.
    COLORREF At(int x, int y) const;

private:
    Picture m_picture;
    CDC m_dc{m_picture.Dc()};
};

}  // namespace plotvane::test

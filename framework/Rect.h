#pragma once

#include <windows.h>

// A RECT that knows its size; right and bottom are exclusive.
struct CRect : RECT {
    constexpr CRect() : RECT{0, 0, 0, 0} {}
    constexpr CRect(LONG l, LONG t, LONG r, LONG b) : RECT{l, t, r, b} {}
    constexpr CRect(const RECT& rect) : RECT{rect} {}

    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
    constexpr bool Contains(POINT p) const {
        return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
    }
};

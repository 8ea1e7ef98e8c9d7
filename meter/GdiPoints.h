#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

#include "framework/Rect.h"
#include "meter/DialGeometry.h"

namespace plotvane {

template <std::size_t count>
std::array<POINT, count> ToGdi(const std::array<DialPoint, count>& points) {
    std::array<POINT, count> result;
    for (std::size_t i = 0; i < count; ++i) result[i] = {points[i].x, points[i].y};
    return result;
}

inline CRect ToGdi(const DialRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

inline DialRect ToDial(const CRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

}  // namespace plotvane

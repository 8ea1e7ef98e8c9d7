#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

#include "meter/DialGeometry.h"

namespace plotvane {

template <std::size_t count>
std::array<POINT, count> ToGdi(const std::array<DialPoint, count>& points) {
    std::array<POINT, count> result;
    for (std::size_t i = 0; i < count; ++i) result[i] = {points[i].x, points[i].y};
    return result;
}

}  // namespace plotvane

#pragma once

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Colour.h"

namespace plotvane::test {

// How far apart two colours look, including to eyes without red or green cones.

enum class Eyes { All, NoRed, NoGreen };

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

inline Vector Multiply(const Matrix& matrix, const Vector& vector) {
    Vector result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            result[row] += matrix[row][column] * vector[column];
    }
    return result;
}

inline double LinearOf(std::uint8_t part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

inline Vector LinearOf(Colour colour) {
    return {LinearOf(RedOf(colour)), LinearOf(GreenOf(colour)), LinearOf(BlueOf(colour))};
}

// How these eyes see the light, by Machado, Oliveira and Fernandes (2009): eyes without one kind of cone.
inline Vector SeenBy(Eyes eyes, const Vector& light) {
    static constexpr Matrix kNoRed{
        {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
    static constexpr Matrix kNoGreen{
        {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
    if (eyes == Eyes::All) return light;
    Vector seen = Multiply(eyes == Eyes::NoRed ? kNoRed : kNoGreen, light);
    for (double& part : seen) part = std::clamp(part, 0.0, 1.0);
    return seen;
}

// Oklab: equal distances look about equally far apart.
inline Vector OklabOf(const Vector& light) {
    static constexpr Matrix kToCones{{{0.4122214708, 0.5363325363, 0.0514459929},
                                      {0.2119034982, 0.6806995451, 0.1073969566},
                                      {0.0883024619, 0.2817188376, 0.6299787005}}};
    static constexpr Matrix kToLab{{{0.2104542553, 0.7936177850, -0.0040720468},
                                    {1.9779984951, -2.4285922050, 0.4505937099},
                                    {0.0259040371, 0.7827717662, -0.8086757660}}};
    Vector cones = Multiply(kToCones, light);
    for (double& part : cones) part = std::cbrt(part);
    return Multiply(kToLab, cones);
}

// In hundredths of the distance from black to white; a distance of 2 is just visible side by side.
inline double Distance(Colour a, Colour b, Eyes eyes) {
    const Vector first = OklabOf(SeenBy(eyes, LinearOf(a)));
    const Vector second = OklabOf(SeenBy(eyes, LinearOf(b)));
    return 100.0 * std::hypot(first[0] - second[0], first[1] - second[1], first[2] - second[2]);
}

// The same for the eyes that tell the two colours apart least.
inline double LeastDistance(Colour a, Colour b) {
    return std::min({Distance(a, b, Eyes::All), Distance(a, b, Eyes::NoRed), Distance(a, b, Eyes::NoGreen)});
}

}  // namespace plotvane::test

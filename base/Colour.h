#pragma once

#include <cstdint>

namespace plotvane {

// A colour in Windows' form: 0x00BBGGRR. The settings files hold the same number in hex.
using Colour = std::uint32_t;

constexpr Colour MakeColour(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return static_cast<Colour>(red) | static_cast<Colour>(green) << 8 | static_cast<Colour>(blue) << 16;
}
constexpr std::uint8_t RedOf(Colour colour) {
    return static_cast<std::uint8_t>(colour & 0xFF);
}
constexpr std::uint8_t GreenOf(Colour colour) {
    return static_cast<std::uint8_t>(colour >> 8 & 0xFF);
}
constexpr std::uint8_t BlueOf(Colour colour) {
    return static_cast<std::uint8_t>(colour >> 16 & 0xFF);
}

// A colour from a file may have a high byte, which GDI would take for a palette index.
constexpr Colour DrawableColour(Colour colour) {
    return colour & 0xFFFFFF;
}

constexpr Colour kBlack = 0x000000;
constexpr Colour kWhite = 0xFFFFFF;

}  // namespace plotvane

#include "plot/chart/ChartPixels.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace plotvane {
namespace {

constexpr int kDotDistancePx = 4;

}  // namespace

std::uint32_t PixelOf(Colour colour) {
    return static_cast<std::uint32_t>(RedOf(colour)) << 16 |
           static_cast<std::uint32_t>(GreenOf(colour)) << 8 | BlueOf(colour);
}

std::uint32_t* ChartPixels::Row(int y) const {
    return pixels + static_cast<std::ptrdiff_t>(y) * static_cast<std::ptrdiff_t>(rowDistance);
}

void ChartPixels::Dot(int x, int y, std::uint32_t pixel) const {
    if (x >= 0 && x < width && y >= 0 && y < height) Row(y)[x] = pixel;
}

PixelRect ChartPixels::Clipped(const PixelRect& area) const {
    return {std::max(area.left, 0), std::max(area.top, 0), std::min(area.right, width),
            std::min(area.bottom, height)};
}

void ChartPixels::ScrollLeft(const PixelRect& area, int shift) const {
    const PixelRect part = Clipped(area);
    if (part.IsEmpty() || shift <= 0 || part.Width() <= shift) return;
    const std::size_t kept = static_cast<std::size_t>(part.Width() - shift) * sizeof *pixels;
    for (int y = part.top; y < part.bottom; ++y) {
        std::uint32_t* const row = Row(y) + part.left;
        std::memmove(row, row + shift, kept);
    }
}

ChartPixels ChartPixels::SlideLeft(const PixelRect& area, int shift) const {
    const ChartPixels slid{pixels + shift, width, height, rowDistance};
    const PixelRect part = Clipped(area);
    const auto moveAlong = [&](int y, int left, int right) {
        const std::uint32_t* const from = Row(y);
        std::memmove(slid.Row(y) + left, from + left,
                     static_cast<std::size_t>(right - left) * sizeof *pixels);
    };
    for (int y = 0; y < height; ++y) {
        if (y < part.top || y >= part.bottom || part.Width() <= shift) {
            moveAlong(y, 0, width);
        } else {
            moveAlong(y, part.right, width);
            moveAlong(y, 0, part.left);
        }
    }
    return slid;
}

void ChartPixels::DotRow(const PixelRect& area, int y, Colour colour) const {
    const std::uint32_t pixel = PixelOf(colour);
    for (int x = area.left; x < area.right; x += kDotDistancePx) Dot(x, y, pixel);
}

void ChartPixels::DotColumn(const PixelRect& area, int x, Colour colour) const {
    const std::uint32_t pixel = PixelOf(colour);
    for (int y = area.top; y < area.bottom; y += kDotDistancePx) Dot(x, y, pixel);
}

}  // namespace plotvane

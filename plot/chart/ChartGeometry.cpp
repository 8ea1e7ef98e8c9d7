#include "plot/chart/ChartGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace plotvane {
namespace {

constexpr int kCharacterWidthPx = 6;
constexpr int kFixedLabelCharacters = 4;
constexpr int kUnitCharacters = 2;

// A double reaches 308 digits, but a "%g" number is never wider than this.
constexpr int kMostDigits = 12;

int DigitsOf(double limit) {
    if (!std::isfinite(limit) || limit == 0.0) return 0;
    return std::min(std::abs(static_cast<int>(std::log10(std::fabs(limit)))), kMostDigits);
}

// The end of step `i` of `count` equal steps between two edges, rounded towards `from`.
int Step(int from, int to, int i, int count) {
    return static_cast<int>(from + static_cast<std::int64_t>(to - from) * i / (count + 1));
}

}  // namespace

PixelRect Intersection(const PixelRect& one, const PixelRect& other) {
    return {std::max(one.left, other.left), std::max(one.top, other.top), std::min(one.right, other.right),
            std::min(one.bottom, other.bottom)};
}

int LabelDigits(double lower, double upper) {
    return std::max(DigitsOf(lower), DigitsOf(upper));
}

ChartGeometry::ChartGeometry(int clientWidth, int clientHeight)
    : m_client{0, 0, clientWidth, clientHeight}, m_plot{20, 10, clientWidth - 10, clientHeight - 10} {}

void ChartGeometry::SetLabelMargin(const LabelMargin& margin) {
    const int characters = LabelDigits(margin.lower, margin.upper) +
                           (margin.withUnits ? kUnitCharacters : 0) + kFixedLabelCharacters +
                           margin.extraCharacters;
    m_plot.left = m_client.left + characters * kCharacterWidthPx;
}

PixelRect ChartGeometry::ScrolledArea() const {
    return {m_plot.left, m_plot.top, m_plot.right + 1, m_plot.bottom};
}

PixelRect ChartGeometry::BaredStrip(int shift) const {
    return {m_plot.right - shift + 1, m_plot.top, m_plot.right + 1, m_plot.bottom};
}

int ChartGeometry::GridRow(int i, int count) const {
    return Step(m_plot.top, m_plot.bottom, i, count);
}

int ChartGeometry::GridColumn(int i, int count) const {
    return Step(m_plot.left, m_plot.right, i, count);
}

}  // namespace plotvane

#include "meter/DialGeometry.h"

#include <algorithm>
#include <cmath>

namespace plotvane {
namespace {

constexpr int kStartDegrees = 255;  // where the minimum is
constexpr int kEndDegrees = -75;    // where the maximum is
constexpr int kArcStepDegrees = 5;
constexpr int kTickStepDegrees = 15;
constexpr int kMarkerDepth = 20;  // pixels from the rim inwards

static_assert((kStartDegrees - kEndDegrees) / kArcStepDegrees + 1 == kArcPoints);

}  // namespace

DialRect Union(const DialRect& a, const DialRect& b) {
    if (a.IsEmpty()) return b;
    if (b.IsEmpty()) return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

bool Overlap(const DialRect& a, const DialRect& b) {
    return std::max(a.left, b.left) < std::min(a.right, b.right) &&
           std::max(a.top, b.top) < std::min(a.bottom, b.bottom);
}

DialRect BoundsOf(const DialTriangle& triangle) {
    const auto [left, right] = std::ranges::minmax(triangle, {}, &DialPoint::x);
    const auto [top, bottom] = std::ranges::minmax(triangle, {}, &DialPoint::y);
    return {left.x, top.y, right.x + 1, bottom.y + 1};
}

double DegreesToRadians(double degrees) {
    static const double kFactor = std::atan(1.0) * (1.0 / 45);
    return kFactor * degrees;
}

int RoundToPixel(double coordinate) {
    return static_cast<int>(coordinate + 0.5 - (coordinate < 0 ? 1 : 0));
}

double AngleOfValue(double value, double minimum, double maximum) {
    const double start = DegreesToRadians(kStartDegrees);
    const double end = DegreesToRadians(kEndDegrees);
    double angle = (value - minimum) * (end - start) / (maximum - minimum) + start;
    // In this form, and with the end compared first, so that NaN becomes the end too.
    if (!(angle > end)) angle = end;
    if (!(angle < start)) angle = start;
    return angle;
}

DialGeometry::DialGeometry(const DialRect& client)
    : m_client(client),
      m_centre{(client.left + client.right) / 2, (client.bottom - client.top) / 2},
      m_radius((client.bottom - client.top) / 3),
      m_innerRadius(m_radius / 10) {}

DialPoint DialGeometry::At(double distance, double angle) const {
    return {RoundToPixel(m_centre.x + distance * std::cos(angle)),
            RoundToPixel(m_centre.y - distance * std::sin(angle))};
}

FacePoints DialGeometry::Face() const {
    FacePoints points;
    for (std::size_t i = 0; i < kArcPoints; ++i) {
        const double angle = DegreesToRadians(kEndDegrees + kArcStepDegrees * static_cast<int>(i));
        points[i] = At(m_radius, angle);
        points[points.size() - 1 - i] = At(m_innerRadius, angle);
    }
    return points;
}

std::array<DialLine, kTicks> DialGeometry::Ticks() const {
    const double innerEnd = m_radius - 0.1 * (m_radius - m_innerRadius);
    std::array<DialLine, kTicks> ticks;
    std::size_t count = 0;
    const auto add = [&](int degrees) {
        const double angle = DegreesToRadians(degrees);
        ticks[count++] = {At(m_radius, angle), At(innerEnd, angle)};
    };
    constexpr int kTop = 90;
    for (int degrees = kTop; degrees > kEndDegrees; degrees -= kTickStepDegrees) add(degrees);
    for (int degrees = kTop + kTickStepDegrees; degrees < kStartDegrees; degrees += kTickStepDegrees)
        add(degrees);
    return ticks;
}

DialNeedle DialGeometry::Needle(double angle) const {
    const double turn = DegreesToRadians(180);
    const double spread = DegreesToRadians(10);
    const DialPoint tip = At(m_radius, angle);
    const DialPoint back = At(m_radius / 4, angle + turn);
    const DialPoint sideA = At(m_radius / 5, angle + (turn - spread));
    const DialPoint sideB = At(m_radius / 5, angle + (turn + spread));
    const DialTriangle a{back, sideA, tip};
    const DialTriangle b{back, sideB, tip};
    const bool aIsLit = angle <= DegreesToRadians(90) || angle > DegreesToRadians(270);
    return aIsLit ? DialNeedle{a, b} : DialNeedle{b, a};
}

DialTriangle DialGeometry::MinMarker(double angle) const {
    return Marker(angle, angle - DegreesToRadians(5));
}

DialTriangle DialGeometry::MaxMarker(double angle) const {
    return Marker(angle, angle + DegreesToRadians(5));
}

DialTriangle DialGeometry::Marker(double angle, double innerAngle) const {
    const int inner = m_radius - kMarkerDepth;
    return {At(inner, angle), At(m_radius, angle), At(inner, innerAngle)};
}

int DialGeometry::FontHeight() const {
    return (m_radius - m_centre.y + m_client.bottom) / 10;
}

DialTextPlaces DialGeometry::TextPlaces(int textHeight) const {
    const int middle = m_client.left + (m_client.right - m_client.left) / 2;
    const int underDial = static_cast<int>(-1.9 * textHeight);  // negative; whole pixels
    const int labelY = m_centre.y + m_radius + textHeight;
    return {.value = {middle, m_centre.y - textHeight / 2 - m_radius},
            .peak = {middle, m_centre.y - underDial + m_radius},
            .minLabel = {At(m_radius, DegreesToRadians(kStartDegrees)).x, labelY},
            .maxLabel = {At(m_radius, DegreesToRadians(kEndDegrees)).x, labelY}};
}

FacePoints BevelOf(const FacePoints& face) {
    FacePoints bevel;
    for (std::size_t i = 0; i < kArcPoints; ++i) bevel[i] = {face[i].x, face[i].y - 1};
    for (std::size_t i = kArcPoints; i < face.size(); ++i) bevel[i] = {face[i].x, face[i].y + 1};
    bevel.front().x += 1;
    bevel[kArcPoints].x -= 1;
    bevel.back().x += 1;
    return bevel;
}

}  // namespace plotvane

#pragma once

#include <array>
#include <cstddef>

namespace plotvane {

// Client pixels; y grows downwards.
struct DialPoint {
    int x = 0;
    int y = 0;
    bool operator==(const DialPoint&) const = default;
};

// Right and bottom are exclusive.
struct DialRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool IsEmpty() const { return right <= left || bottom <= top; }
    bool operator==(const DialRect&) const = default;
};

// The smallest rectangle that holds both; an empty one adds nothing.
DialRect Union(const DialRect& a, const DialRect& b);

// Whether they share a pixel.
bool Overlap(const DialRect& a, const DialRect& b);

struct DialLine {
    DialPoint from;
    DialPoint to;
    bool operator==(const DialLine&) const = default;
};

using DialTriangle = std::array<DialPoint, 3>;

// Holds every pixel of the triangle with an outline of one pixel.
DialRect BoundsOf(const DialTriangle& triangle);

// The two halves of the needle, in the order in which they are drawn: the shaded one covers the seam.
struct DialNeedle {
    DialTriangle lit;
    DialTriangle shaded;
};

// Where the texts go: each is centred on its x, and its baseline is at its y.
struct DialTextPlaces {
    DialPoint value;
    DialPoint peak;
    DialPoint minLabel;
    DialPoint maxLabel;
};

// The outline of the face: along the outer arc from the right end of the scale over the top to the left end,
// then back along the inner arc.
constexpr std::size_t kArcPoints = 67;
using FacePoints = std::array<DialPoint, 2 * kArcPoints>;

constexpr std::size_t kTicks = 21;

// Angles are radians, counter-clockwise from the positive x axis.
double DegreesToRadians(double degrees);

// Halves round away from zero.
int RoundToPixel(double coordinate);

// The angle of a value on a scale of 330 degrees that runs clockwise over the top: the minimum is at 255
// degrees, the maximum at -75. A value beyond an end gets the angle of that end. NaN, the result of an empty
// range for its own value, gets the angle of the maximum.
double AngleOfValue(double value, double minimum, double maximum);

// Everything on the dial, measured from a client rectangle. Only the height sets the size: in a wide window
// the dial is centred, with empty background on the left and right.
class DialGeometry {
public:
    explicit DialGeometry(const DialRect& client);

    // A window only a few pixels high has no dial, only background.
    bool HasDial() const { return m_radius >= 2; }

    DialPoint Centre() const { return m_centre; }
    int Radius() const { return m_radius; }
    int InnerRadius() const { return m_innerRadius; }
    DialPoint At(double distance, double angle) const;

    FacePoints Face() const;

    // Every 15 degrees, from the rim inwards; none at either end of the scale.
    std::array<DialLine, kTicks> Ticks() const;

    // A thin kite across the centre. The light always comes from the same side, so the halves swap roles when
    // the needle passes the top.
    DialNeedle Needle(double angle) const;

    // Wedges on the rim that lean towards the inside of the span between them.
    DialTriangle MinMarker(double angle) const;
    DialTriangle MaxMarker(double angle) const;

    int FontHeight() const;

    // `textHeight` is the cell height of the font with the height FontHeight().
    DialTextPlaces TextPlaces(int textHeight) const;

private:
    DialTriangle Marker(double angle, double innerAngle) const;

    DialRect m_client;
    DialPoint m_centre;
    int m_radius;
    int m_innerRadius;
};

// The line around the face that makes it look sunken: the shadow colour joins points 0..67, the highlight
// colour joins 67..133 and back to 0.
FacePoints BevelOf(const FacePoints& face);

}  // namespace plotvane

#pragma once

// Where things are on the chart. All pixels are client coordinates of the chart window, y downwards; the
// client rectangle starts at (0, 0).
namespace plotvane {

// Right and bottom are exclusive, as everywhere on the platform.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool IsEmpty() const { return right <= left || bottom <= top; }
    bool operator==(const PixelRect&) const = default;
};

// What lies in both; empty where nothing does.
PixelRect Intersection(const PixelRect& one, const PixelRect& other);

struct PixelPoint {
    int x = 0;
    int y = 0;

    bool operator==(const PixelPoint&) const = default;
};

// What decides the width of the labels left of the plot.
struct LabelMargin {
    double lower = 0.0;  // limits of the first trace; those of the others do not count
    double upper = 100.0;
    bool withUnits = true;
    int extraCharacters = 3;
};

// The client area and the plot area inside it. Unlike other rectangles, the plot includes its right column
// and its bottom row, as far as traces are concerned: a trace at its lower limit runs along the row
// `plot.bottom`.
class ChartGeometry {
public:
    ChartGeometry() = default;

    // The plot keeps 10 pixels from the client's edges, and 20 on the left until SetLabelMargin. If the
    // client is too small for that, the plot is empty.
    ChartGeometry(int clientWidth, int clientHeight);

    // Moves the left edge of the plot so that the labels fit: 6 pixels for each character.
    void SetLabelMargin(const LabelMargin& margin);

    const PixelRect& Client() const { return m_client; }
    const PixelRect& Plot() const { return m_plot; }

    // The part of the plot that scrolls. The bottom row does not.
    PixelRect ScrolledArea() const;

    // The columns at the right edge that a scroll by `shift` pixels uncovers.
    PixelRect BaredStrip(int shift) const;

    // The place of grid line `i` of `count`, counted from 1 at the top or the left.
    int GridRow(int i, int count) const;
    int GridColumn(int i, int count) const;

private:
    PixelRect m_client;
    PixelRect m_plot;
};

// How many digits before the decimal point (or zeros after it) the longer limit has beyond the first: 6000
// has 3, 0.001 has 3. A limit without a magnitude (0, infinite, not a number) adds nothing.
int LabelDigits(double lower, double upper);

}  // namespace plotvane

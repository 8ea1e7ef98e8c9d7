#include "plot/chart/ChartGrid.h"

#include "framework/Dc.h"
#include "framework/Gdi.h"

namespace plotvane {
namespace {

// The frame's right and bottom lines are one pixel outside the plot.
void DrawFrame(CDC& dc, const PixelRect& plot) {
    dc.MoveTo(plot.left, plot.top);
    dc.LineTo(plot.right + 1, plot.top);
    dc.LineTo(plot.right + 1, plot.bottom + 1);
    dc.LineTo(plot.left, plot.bottom + 1);
    dc.LineTo(plot.left, plot.top);
}

void DrawDots(const ChartPixels& pixels, const ChartGeometry& geometry, const GridCounts& counts,
              Colour colour) {
    const PixelRect& plot = geometry.Plot();
    for (int i = 1; i <= counts.horizontal; ++i) {
        pixels.DotRow(plot, geometry.GridRow(i, counts.horizontal), colour);
    }
    for (int i = 1; i <= counts.vertical; ++i) {
        pixels.DotColumn(plot, geometry.GridColumn(i, counts.vertical), colour);
    }
}

CFont LabelFont() {
    return CFont{::CreateFontW(14, 0, 0, 0, 300, FALSE, FALSE, FALSE, ANSI_CHARSET, OUT_DEFAULT_PRECIS,
                               CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FF_SWISS, L"Arial")};
}

void DrawLabels(CDC& dc, std::span<const ChartLabel> labels) {
    const CFont font = LabelFont();
    const Selected fontInDc(dc, font);
    // The rows of text are closer than their characters are high. An opaque text would cut its neighbour, and
    // "mg" would read "ma".
    dc.SetBkMode(TRANSPARENT);
    for (const ChartLabel& label : labels) {
        dc.SetTextAlign(TA_RIGHT | (label.upright == ChartLabel::Upright::Top ? TA_TOP : TA_BASELINE));
        dc.SetTextColor(DrawableColour(label.colour));
        dc.TextOut(label.right, label.y, label.text);
    }
}

}  // namespace

void DrawChartGrid(const ChartPicture& picture, const ChartGeometry& geometry, const GridCounts& counts,
                   Colour gridColour, std::span<const ChartLabel> labels) {
    CDC dc(picture.Dc());
    {
        const CPen pen{::CreatePen(PS_SOLID, 1, DrawableColour(gridColour))};
        const Selected penInDc(dc, pen);
        DrawFrame(dc, geometry.Plot());
    }
    DrawDots(picture.Pixels(), geometry, counts, DrawableColour(gridColour));
    DrawLabels(dc, labels);
}

}  // namespace plotvane

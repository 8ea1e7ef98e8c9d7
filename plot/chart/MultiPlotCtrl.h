#pragma once

#include <string>
#include <string_view>

#include "framework/Dc.h"
#include "framework/Gdi.h"
#include "framework/NamedControl.h"
#include "model/FieldSlot.h"
#include "model/RunState.h"
#include "plot/chart/ChartGeometry.h"
#include "plot/chart/ChartGrid.h"
#include "plot/chart/ChartPicture.h"
#include "plot/chart/PlotTrace.h"
#include "plot/chart/SampleSpread.h"
#include "plot/chart/TraceChart.h"
#include "scaling/Prefs.h"

namespace plotvane {

// The strip chart. Each sample scrolls the plot to the left and draws one short line for each trace at its
// right edge. Grid and labels lie over the traces and do not move. Only a full redraw draws them again, and
// that also erases the traces.
//
// The object outlives its window: the owner destroys the window and creates it again over another rectangle.
// Colours, ranges and the traces' last values stay. The owner calls ReleasePictures too, or the picture keeps
// its old size.
class CMultiPlotCtrl : public CNamedControl, public TraceChart {
public:
    // The chart reads all three when it needs them: thickness, units and zeros of the preferences; pixel
    // shift and layout of the state; groups and units of the slots. They must outlive the chart.
    CMultiPlotCtrl(const Prefs& prefs, const RunState& state, const SlotTable& slots);

    // A child window over the rectangle, in the parent's client pixels. False if Windows refuses.
    bool Create(DWORD style, const RECT& rect, HWND parent, UINT id);

    // Frees the off-screen picture. The next full redraw makes it again in the client's size.
    void ReleasePictures();

    // TraceChart.
    void SetRange(double lower, double upper, int trace) override;
    Colour GetTraceColor(int trace) const override;
    void AppendPoints(const TraceValues& values) override;
    void AppendGap(const TraceValues& values) override;
    void InvalidateCtrl() override;

    // While redraw is off, the window does not change and full redraws wait: any number of them is done as
    // one, before the next sample or when the window is painted. One that fails for want of memory stays due.
    void SetRedraw(bool on) noexcept override;

    // Causes a full redraw. Only the axis text of the limits is shown, in place of their numbers.
    void SetXUnits(std::string_view label, std::string_view text1, std::string_view text2);
    void SetYUnits(std::string_view label, std::string_view minimumText, std::string_view maximumText);
    void SetBackgroundColor(Colour colour);
    void SetGridColor(Colour colour);

    // Causes none. A trace's pen gets the thickness that the preferences have at the time of the call.
    void SetTraceColor(Colour colour, int trace);
    void SetGridCounts(const GridCounts& counts) { m_gridCounts = counts; }
    void SetLabelMargin(int characters) { m_labelMargin = characters; }
    void SetSamplesPerScreen(int samples) { m_spread.SetSamplesPerScreen(samples); }

    const ChartGeometry& Geometry() const { return m_geometry; }

    // Draws what the window shows, for its own paint handler or on any other device context.
    void Draw(CDC& dc);

private:
    struct TracePen {
        CPen pen;
        int width = 0;
    };
    struct AxisTexts {
        std::string label;
        std::string first;
        std::string second;
    };

    void OnDestroy();
    void OnPaint();
    void OnSize(UINT type, int width, int height);

    void RedrawPicture();
    void RedrawIfDue();
    void Changed() noexcept;
    void ShowSample();
    int ShiftFor(int shift);
    void TakeValues(const TraceValues& values);
    void ScrollTraces(int shift);
    void DrawSegment(CDC& dc, const TraceSegment& segment, const TracePen& pen);
    void FillWithBackground(const PixelRect& area);

    DECLARE_MESSAGE_MAP()

    const Prefs& m_prefs;
    const RunState& m_state;
    const SlotTable& m_slots;

    AxisTexts m_xTexts{"Samples", "", ""};
    AxisTexts m_yTexts{"Y units", "", ""};
    GridCounts m_gridCounts;
    int m_labelMargin = 3;  // characters
    Colour m_gridColour = kWhite;
    SampleSpread m_spread;
    IndexedArray<PlotTrace, kTraceCount> m_traces;
    IndexedArray<TracePen, kTraceCount> m_pens;
    CBrush m_backgroundBrush;
    ChartGeometry m_geometry;
    ChartPicture m_picture;
    bool m_isRedrawOn = true;
    bool m_isRedrawDue = false;       // the picture must be drawn again before it is used
    bool m_hasChangedUnseen = false;  // something has changed while redraw was off
    bool m_isPaintDue = false;        // the window is invalid
};

}  // namespace plotvane

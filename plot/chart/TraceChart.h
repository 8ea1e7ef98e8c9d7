#pragma once

#include "base/Colour.h"
#include "model/FieldSlot.h"

namespace plotvane {

constexpr int kTraceCount = kSlotCount;
constexpr int kGapPx = 30;

// One value for each trace, in trace order: what one sample gives the chart.
using TraceValues = IndexedArray<double, kTraceCount>;

// The strip chart as the portable code sees it. CMultiPlotCtrl is the real one. Traces are 0..11.
struct TraceChart {
    virtual ~TraceChart() = default;

    // Sets the values at the bottom and the top edge of the plot for one trace. Erases all traces.
    virtual void SetRange(double lower, double upper, int trace) = 0;

    virtual Colour GetTraceColor(int trace) const = 0;

    // Scrolls by the pixel shift and connects every trace to its new value.
    virtual void AppendPoints(const TraceValues& values) = 0;

    // Leaves a gap of kGapPx. The next sample connects from these values.
    virtual void AppendGap(const TraceValues& values) = 0;

    // Draws frame, grid and labels again. Erases all traces.
    virtual void InvalidateCtrl() = 0;

    // While redraw is off, nothing reaches the screen.
    virtual void SetRedraw(bool on) noexcept = 0;
};

// Turns the chart's redraw off. The destructor turns it on again, so that it is on however the scope is left.
class RedrawOff {
public:
    explicit RedrawOff(TraceChart& chart) : m_chart(chart) { m_chart.SetRedraw(false); }
    ~RedrawOff() { m_chart.SetRedraw(true); }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;

private:
    TraceChart& m_chart;
};

}  // namespace plotvane

#pragma once

#include <array>

#include "base/Colour.h"
#include "model/FieldSlot.h"

namespace plotvane {

constexpr int kTraceCount = kSlotCount;

// One value a trace, in trace order: what one sample hands to the chart.
using TraceValues = std::array<double, kTraceCount>;

// The strip chart as the portable code sees it; CMultiPlotCtrl is the real one. Traces are 0..11.
struct TraceChart {
    virtual ~TraceChart() = default;

    // The values at the bottom and the top edge of the plot for one trace. Erases all traces.
    virtual void SetRange(double lower, double upper, int trace) = 0;

    virtual Colour GetTraceColor(int trace) const = 0;

    // Scrolls by the pixel shift and connects every trace to its new value.
    virtual void AppendPoints(const TraceValues& values) = 0;

    // Leaves 30 empty pixels; the next sample connects from these values.
    virtual void AppendGap(const TraceValues& values) = 0;

    // Draws frame, grid and labels anew. Erases all traces.
    virtual void InvalidateCtrl() = 0;

    // While off, nothing reaches the screen.
    virtual void SetRedraw(bool on) noexcept = 0;
};

// The chart's redraw is off while this lives, and on again however its scope is left.
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

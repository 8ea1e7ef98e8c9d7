#include "tests/support/DriveViews.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "meter/DialGeometry.h"
#include "plot/chart/ChartLabels.h"
#include "scaling/PresetColours.h"
#include "tests/support/Promise.h"

namespace plotvane::test {
namespace {

constexpr int kFarthestPx = 1'100'000;
constexpr std::size_t kLongestText = 100 + 400;  // a unit, and a number with all its digits

void RequireNearPicture(int coordinate) {
    Require(std::abs(coordinate) <= kFarthestPx, "a line stays where the platform can draw it");
}

}  // namespace

LineChart::LineChart(const Prefs& prefs, const RunState& state, const SlotTable& slots)
    : m_prefs(prefs), m_state(state), m_slots(slots) {
    for (std::size_t trace = 0; trace < m_traces.size(); ++trace) {
        m_traces[trace].colour = kPresetColours.at(trace);
        m_traces[trace].FitTo(m_geometry.Plot().Height());
    }
}

void LineChart::SetRange(double lower, double upper, int trace) {
    Require(std::isfinite(lower) && std::isfinite(upper), "a range is finite");
    m_traces.at(static_cast<std::size_t>(trace)).SetRange(lower, upper, m_geometry.Plot().Height());
    InvalidateCtrl();
}

Colour LineChart::GetTraceColor(int trace) const {
    return m_traces.at(static_cast<std::size_t>(trace)).colour;
}

void LineChart::AppendPoints(const TraceValues& values) {
    onSample(values);
    Require(m_redraw, "a sample is drawn with drawing on");
    Require(m_state.pixelShift >= kPixelShiftMin && m_state.pixelShift <= kPixelShiftMax,
            "the pixel shift is 1..15");
    TakeValues(values);
    for (PlotTrace& trace : m_traces) {
        const TraceSegment segment = trace.TakeSegment(m_geometry, m_state.pixelShift);
        const auto& [from, to] = segment.line;
        for (const int coordinate : {from.x, from.y, to.x, to.y}) RequireNearPicture(coordinate);
        const int height = m_geometry.Client().Height();
        const auto shortened = ShortenFarLine(segment.line, 0, height);
        const int mostRows = (height + 1) * std::max(5, 2 * std::abs(to.x - from.x));
        Require(!shortened || std::abs(shortened->to.y - shortened->from.y) <= mostRows,
                "a far line is made short");
    }
}

void LineChart::AppendGap(const TraceValues& values) {
    TakeValues(values);
    for (PlotTrace& trace : m_traces) trace.TakeGap(m_geometry);
}

void LineChart::InvalidateCtrl() {
    m_geometry.SetLabelMargin({.lower = m_traces[0].lower,
                               .upper = m_traces[0].upper,
                               .withUnits = m_prefs.showUnits,
                               .extraCharacters = 3});
    const LabelRules rules{.showUnits = m_prefs.showUnits,
                           .showZeros = m_prefs.showZeros,
                           .tenChannels = m_state.tenChannels,
                           .customMinimum = {},
                           .customMaximum = {}};
    for (const ChartLabel& label : ChartLabels(m_slots, m_traces, rules, m_geometry.Plot())) {
        Require(label.text.size() <= kLongestText, "a label is bounded");
        RequireNearPicture(label.y);
        RequireNearPicture(label.right);
    }
}

void LineChart::TakeValues(const TraceValues& values) {
    Require(std::ranges::all_of(values, [](double value) { return std::isfinite(value); }),
            "what is drawn is finite");
    for (int trace = 0; trace < kTraceCount; ++trace)
        m_traces.at(static_cast<std::size_t>(trace)).current = values[trace];
}

void OpenMeters::SetSlotRange(int slot, double minimum, double maximum) {
    Require(std::isfinite(minimum) && std::isfinite(maximum), "a range is finite");
    m_slots[slot].SetRange(minimum, maximum);
}

// The next meter to open starts from nothing.
void OpenMeters::CloseFuelMeters() {
    m_mileage.emplace();
    m_consumption.emplace();
}

void OpenMeters::SetFuelScale(Fuel meter, std::string_view units, double maximum, int decimals) {
    Require(std::isfinite(maximum), "a range is finite");
    Of(meter).SetRange(0.0, maximum);
    Of(meter).SetUnits(units);
    Of(meter).SetValueDecimals(decimals);
}

void OpenMeters::Show(Gauge& gauge, double value) {
    Require(std::isfinite(value), "what a meter shows is finite");
    gauge.SetValue(value);
    const double angle = AngleOfValue(gauge.Value(), gauge.MinValue(), gauge.MaxValue());
    Require(angle >= DegreesToRadians(-75) && angle <= DegreesToRadians(255), "a needle stays on its scale");
    const DialRect client{0, 0, 184, 161};
    const DialNeedle needle = DialGeometry(client).Needle(angle);
    for (const DialPoint& point : needle.lit)
        Require(point.x >= 0 && point.x < client.right && point.y >= 0 && point.y < client.bottom,
                "a needle stays in its window");
    m_text.clear();
    gauge.AppendValueText(m_text);
    Require(m_text.size() <= kLongestText, "a meter's text is bounded");
}

}  // namespace plotvane::test

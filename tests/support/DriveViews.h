#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "meter/Gauge.h"
#include "model/RunState.h"
#include "plot/binding/MeterBoard.h"
#include "plot/chart/ChartGeometry.h"
#include "plot/chart/PlotTrace.h"
#include "plot/chart/TraceChart.h"
#include "scaling/Prefs.h"

namespace plotvane::test {

// The chart without its pixels. It computes everything that the real one computes for a sample, down to lines
// and labels, and checks it.
class LineChart : public TraceChart {
public:
    LineChart(const Prefs& prefs, const RunState& state, const SlotTable& slots);

    void SetRange(double lower, double upper, int trace) override;
    Colour GetTraceColor(int trace) const override;
    void AppendPoints(const TraceValues& values) override;
    void AppendGap(const TraceValues& values) override;
    void InvalidateCtrl() override;
    void SetRedraw(bool on) noexcept override { m_redraw = on; }

    // Called with each sample before it is drawn.
    std::function<void(const TraceValues&)> onSample;

private:
    void TakeValues(const TraceValues& values);

    const Prefs& m_prefs;
    const RunState& m_state;
    const SlotTable& m_slots;
    ChartGeometry m_geometry{620, 310};
    std::array<PlotTrace, kTraceCount> m_traces;
    bool m_redraw = true;
};

// Every meter is open; each computes everything down to the needle's angle and the texts.
class OpenMeters : public MeterBoard {
public:
    void SetSlotValue(int slot, double value) override { Show(m_slots[slot], value); }
    void SetSlotRange(int slot, double minimum, double maximum) override;
    void SetSlotUnits(int slot, std::string_view units) override { m_slots[slot].SetUnits(units); }
    void SetChannelValue(int channel, double value) override { Show(m_channels[channel], value); }
    void SetFuelValue(Fuel meter, double value) override { Show(Of(meter), value); }
    void SetFuelScale(Fuel meter, std::string_view units, double maximum, int decimals) override;
    void CloseFuelMeters() override;

private:
    void Show(Gauge& gauge, double value);
    Gauge& Of(Fuel meter) { return meter == Fuel::Mileage ? *m_mileage : *m_consumption; }

    IndexedArray<Gauge, kSlotCount> m_slots;
    IndexedArray<Gauge, kChannelCount> m_channels;
    std::optional<Gauge> m_mileage{std::in_place};
    std::optional<Gauge> m_consumption{std::in_place};
    std::string m_text;  // kept for its memory
};

}  // namespace plotvane::test

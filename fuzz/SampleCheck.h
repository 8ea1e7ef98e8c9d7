#pragma once

#include <array>

#include "link/ProgramData.h"
#include "plot/binding/FuelFigures.h"
#include "plot/chart/TraceChart.h"
#include "tests/support/FakeViews.h"

namespace plotvane::fuzz {

// Checks every sample on its way to the chart: boxes, values and fuel figures must follow from the slots. It
// has its own version of the rules.
class SampleCheck {
public:
    SampleCheck(const ProgramData& data, const test::FakePanel& panel, const FuelFigures& fuel)
        : m_data(data), m_panel(panel), m_fuel(fuel) {
        m_history.fill(kNoEntry);
    }

    void operator()(const TraceValues& values);

private:
    static constexpr double kNoEntry = 2000.0;

    void RequireSlots(const TraceValues& values) const;
    void RequireChannels(const TraceValues& values) const;
    void RequireFuel();

    const ProgramData& m_data;
    const test::FakePanel& m_panel;
    const FuelFigures& m_fuel;
    std::array<double, FuelFigures::kHistoryLength> m_history{};  // newest first
    double m_consumption = 0.0;
    double m_mileage = 0.0;
};

}  // namespace plotvane::fuzz

#pragma once

#include <array>
#include <string>

#include "model/FieldSlot.h"
#include "model/RunState.h"
#include "plot/binding/MeterBoard.h"
#include "plot/binding/SlotPanel.h"
#include "scaling/Prefs.h"

namespace plotvane {

// Texts on the fuel meters.
struct FuelUnits {
    std::string milesPerGallon;
    std::string litresPer100Km;
    std::string gallonsPerHour;
};

// Consumption and mileage from a fuel flow in l/h and a speed in km/h, wherever among the slots the two
// stand.
class FuelFigures {
public:
    static constexpr int kHistoryLength = 20;

    explicit FuelFigures(FuelUnits units) : m_units(std::move(units)) { m_history.fill(kEmptyEntry); }

    // Computes both figures for the sample in the slots and scales the fuel meters to them. Without both
    // slots the fuel buttons are hidden and the meters closed. Does nothing while the state is halted.
    void UpdateFuel(const SlotTable& slots, const RunState& state, const Prefs& prefs, SlotPanel& panel,
                    MeterBoard& meters);

    // l/100km, averaged; l/h while the speed is 0.
    double Consumption() const { return m_consumption; }

    // Miles per US gallon, at most 999.9; US gallons per hour while the speed is 0.
    double Mileage() const { return m_mileage; }

    const FuelUnits& Units() const { return m_units; }

private:
    // Entries from 1000 up are left out of the sum but stay in the divisor. So is an entry not yet made,
    // and the average grows from 0 to its true height while the history fills.
    static constexpr double kLeftOutFrom = 1000.0;
    static constexpr double kEmptyEntry = 2000.0;

    void Drive(double flow, double speed, const Prefs& prefs, MeterBoard& meters);
    void Idle(double flow, const std::string& flowUnit, MeterBoard& meters);
    double Averaged(double newest, int depth);

    FuelUnits m_units;
    std::array<double, kHistoryLength> m_history{};  // newest first; never cleared, also not by a new drive
    double m_consumption = 0.0;
    double m_mileage = 0.0;
};

}  // namespace plotvane

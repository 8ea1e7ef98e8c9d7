#pragma once

#include <string>

#include "plot/binding/Sample.h"
#include "plot/binding/Views.h"

namespace plotvane {

// Texts on the fuel meters.
struct FuelUnits {
    std::string milesPerGallon;
    std::string litresPer100Km;
    std::string gallonsPerHour;
};

// Consumption and mileage, from a fuel flow in l/h and a speed in km/h in any two of the slots.
class FuelFigures {
public:
    static constexpr int kHistoryLength = 20;

    explicit FuelFigures(FuelUnits units) : m_units(std::move(units)) { m_history.fill(kEmptyEntry); }

    // Computes both figures for the sample in the slots and scales the fuel meters to them. Without both
    // slots the fuel buttons are hidden and the meters closed. Does nothing while the state is halted.
    void UpdateFuel(const Sample& sample, const Views& views);

    // l/100km, averaged; l/h while the speed is 0.
    double Consumption() const { return m_consumption; }

    // Miles per US gallon, at most 999.9; US gallons per hour while the speed is 0.
    double Mileage() const { return m_mileage; }

    const FuelUnits& Units() const { return m_units; }

private:
    // Entries from 1000 up are left out of the sum but count in the divisor. Entries not yet made are such
    // entries, so the average grows from 0 to its true height while the history fills.
    static constexpr double kLeftOutFrom = 1000.0;
    static constexpr double kEmptyEntry = 2000.0;

    void UpdateMoving(double flow, double speed, const Prefs& prefs, MeterBoard& meters);
    void UpdateStanding(double flow, const std::string& flowUnit, MeterBoard& meters);
    double Averaged(double newest, int depth);

    FuelUnits m_units;
    IndexedArray<double, kHistoryLength>
        m_history{};  // newest first; never cleared, not even for another car
    double m_consumption = 0.0;
    double m_mileage = 0.0;
};

}  // namespace plotvane

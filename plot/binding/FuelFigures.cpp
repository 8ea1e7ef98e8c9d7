#include "plot/binding/FuelFigures.h"

#include <algorithm>
#include <string_view>

namespace plotvane {
namespace {

constexpr double kLitresToGallons = 0.26417205263729593;
constexpr double kMilesPerGallonAtOneLitre = 235.2145;  // at 1 l/100km
constexpr double kMaxMileageFigure = 999.9;
constexpr double kIdleConsumptionScale = 10.0;
constexpr double kIdleMileageScale = 4.0;

using Fuel = MeterBoard::Fuel;

// The last slot whose unit contains the text, active or not: "ml/h" is a flow as well.
const FieldSlot* LastSlotWith(const SlotTable& slots, std::string_view unitPart) {
    const auto found =
        std::find_if(slots.slots.all.rbegin(), slots.slots.all.rend(),
                     [&](const FieldSlot& slot) { return slot.unit.find(unitPart) != std::string::npos; });
    return found == slots.slots.all.rend() ? nullptr : &*found;
}

}  // namespace

void FuelFigures::UpdateFuel(const Sample& sample, const Views& views) {
    if (sample.state.halted) return;
    const FieldSlot* const flow = LastSlotWith(sample.slots, "l/h");
    const FieldSlot* const speed = LastSlotWith(sample.slots, "km/h");
    const bool bothFound = flow && speed;
    views.panel.ShowFuelButtons(bothFound);
    if (!bothFound) {
        views.meters.CloseFuelMeters();
        return;
    }
    if (speed->value != 0.0) {
        UpdateMoving(flow->value, speed->value, sample.prefs, views.meters);
    } else {
        UpdateStanding(flow->value, flow->unit, views.meters);
    }
}

void FuelFigures::UpdateMoving(double flow, double speed, const Prefs& prefs, MeterBoard& meters) {
    meters.SetFuelScale(Fuel::Consumption, m_units.litresPer100Km, prefs.maxConsumption, 1);
    m_consumption = Averaged(flow / speed * 100.0, prefs.fuelHistoryDepth);

    meters.SetFuelScale(Fuel::Mileage, m_units.milesPerGallon, prefs.maxMileage, 1);
    m_mileage = m_consumption == 0.0 ? kMaxMileageFigure
                                     : std::min(kMilesPerGallonAtOneLitre / m_consumption, kMaxMileageFigure);
}

void FuelFigures::UpdateStanding(double flow, const std::string& flowUnit, MeterBoard& meters) {
    meters.SetFuelScale(Fuel::Consumption, flowUnit, kIdleConsumptionScale, 1);
    m_consumption = flow;

    meters.SetFuelScale(Fuel::Mileage, m_units.gallonsPerHour, kIdleMileageScale, 2);
    m_mileage = flow * kLitresToGallons;
}

double FuelFigures::Averaged(double newest, int depth) {
    std::shift_right(m_history.begin(), m_history.end(), 1);
    m_history[0] = newest;
    if (depth <= 0) return newest;
    double sum = 0.0;
    for (int i = 0; i < std::min(depth, m_history.Count()); ++i) {
        const double entry = m_history[i];
        if (entry < kLeftOutFrom) sum += entry;
    }
    return sum / depth;
}

}  // namespace plotvane

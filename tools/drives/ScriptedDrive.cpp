#include "tools/drives/ScriptedDrive.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace plotvane {
namespace {

constexpr double kSeconds = 240.0;

// The speeds that the driver wants, joined by straight lines.
struct Wanted {
    double seconds;
    double kmh;
};
constexpr Wanted kPlan[] = {
    {0, 0},     {4, 0},     {15, 52},   {22, 50},  {30, 56},  {37, 50},   {42, 32},      {46, 30},
    {53, 60},   {60, 58},   {69, 0},    {76, 0},   {94, 102}, {106, 132}, {128, 130},    {138, 165},
    {150, 160}, {154, 158}, {172, 104}, {188, 98}, {196, 96}, {216, 0},   {kSeconds, 0},
};

struct PhaseStart {
    double seconds;
    std::string_view name;
};
constexpr PhaseStart kPhases[] = {
    {0, "idle"},       {4, "pull away"}, {15, "town"},   {60, "brake"}, {69, "halt"},
    {76, "pull away"}, {94, "motorway"}, {196, "brake"}, {216, "stop"},
};

double WantedSpeed(double seconds) {
    const auto* next = std::ranges::upper_bound(kPlan, seconds, {}, &Wanted::seconds);
    if (next == std::begin(kPlan)) return next->kmh;
    if (next == std::end(kPlan)) return std::prev(next)->kmh;
    const auto* last = std::prev(next);
    const double share = (seconds - last->seconds) / (next->seconds - last->seconds);
    return last->kmh + share * (next->kmh - last->kmh);
}

// Ranges, names and units in slot order. The ranges are those of the instruments, so the raw bytes change
// visibly.
DriveChannels Instruments() {
    constexpr int kEngine = 1;
    constexpr int kAir = 3;
    constexpr int kMixture = 31;
    return {{
        {kEngine, 0, 12, 0, 0, 7000, "Engine speed", "actual", "/min"},
        {kEngine, 1, 13, 0, 0, 255, "Road speed", "", "km/h"},
        {kEngine, 2, 5, 1, -48, 140, "Coolant", "temperature",
         "\xB0"
         "C"},
        {kEngine, 3, 0, 2, 0, 16, "Supply", "voltage", "V"},
        {kAir, 0, 0, 1, 0, 1100, "Air mass", "per stroke", "mg/str"},
        {kAir, 1, 17, 1, 0, 100, "Throttle", "angle", "%"},
        {kAir, 2, 0, 0, 900, 2200, "Charge", "pressure", "mbar"},
        {kAir, 3, 14, 1, -20, 50, "Ignition", "advance", "\xB0"},
        {kMixture, 0, 0, 2, 0.5, 2, "Lambda", "bank 1", ""},
        {kMixture, 1, 0, 2, 0.5, 2, "Lambda", "specified", ""},
        {kMixture, 2, 0, 1, -25, 25, "Lambda", "control", "%"},
        {kMixture, 3, 0, 2, 0, 60, "Fuel flow", "", "l/h"},
    }};
}

std::array<double, kSlotCount> InSlotOrder(const CarModel::Values& car) {
    return {car.rpm,     car.speed,        car.coolant,        car.voltage,
            car.airMass, car.throttle,     car.chargePressure, car.ignition,
            car.lambda,  car.lambdaTarget, car.lambdaControl,  car.fuelFlow};
}

}  // namespace

ScriptedDrive::ScriptedDrive() : m_channels(Instruments()) {
    constexpr double kSoon = 0.8;
    const int steps = static_cast<int>(std::lround(kSeconds / CarModel::kStepSeconds));
    m_values.reserve(static_cast<std::size_t>(steps) + 1);
    CarModel car;
    m_values.push_back(InSlotOrder(car.Read()));
    for (int step = 1; step <= steps; ++step) {
        const double seconds = step * CarModel::kStepSeconds;
        car.Step(WantedSpeed(seconds), WantedSpeed(seconds + kSoon));
        m_values.push_back(InSlotOrder(car.Read()));
    }
}

double ScriptedDrive::Seconds() const {
    return kSeconds;
}

double ScriptedDrive::Value(int slot, double seconds) const {
    const double steps = std::clamp(seconds, 0.0, kSeconds) / CarModel::kStepSeconds;
    const std::size_t row = std::min(static_cast<std::size_t>(steps), m_values.size() - 2);
    const double share = steps - static_cast<double>(row);
    const auto column = static_cast<std::size_t>(slot);
    const double before = m_values[row].at(column);
    return before + share * (m_values[row + 1].at(column) - before);
}

std::string_view ScriptedDrive::Phase(double seconds) const {
    const auto* next = std::ranges::upper_bound(kPhases, seconds, {}, &PhaseStart::seconds);
    return next == std::begin(kPhases) ? next->name : std::prev(next)->name;
}

}  // namespace plotvane

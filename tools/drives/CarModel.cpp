#include "tools/drives/CarModel.h"

#include <algorithm>
#include <array>

namespace plotvane {
namespace {

constexpr double kMass = 1450.0;           // kg
constexpr double kRolling = 0.012 * 9.81;  // m/s²
constexpr double kAir = 0.5 * 1.2 * 0.65;  // N per (m/s)²
constexpr double kDriveLoss = 0.92;        // share of the torque that reaches the road
constexpr double kLargestTorque = 265.0;   // Nm
constexpr double kFriction = 28.0;         // Nm that the engine itself needs
constexpr double kAirPerTorque = 3.0;      // mg/str per Nm
constexpr double kStoichiometric = 14.7;   // air to fuel, by mass
constexpr double kFuelDensity = 745.0;     // g/l
constexpr double kStrokesPerTurn = 2.0;    // four cylinders
constexpr double kIdleRpm = 780.0;
constexpr double kShiftSeconds = 0.4;

// rpm per km/h, first to sixth gear.
constexpr std::array<double, 6> kGears = {110.0, 64.0, 44.0, 33.0, 26.5, 21.5};
constexpr int kHighestGear = static_cast<int>(kGears.size());

constexpr double KmhOf(double metresPerSecond) {
    return metresPerSecond * 3.6;
}
constexpr double RpmPerKmh(int gear) {
    return kGears.at(static_cast<std::size_t>(gear - 1));
}

// Crankshaft radians per metre of road.
constexpr double TurnPerMetre(int gear) {
    return RpmPerKmh(gear) * 3.6 * 0.10471975511965977;
}

// First-order lag: how far `value` gets towards `target` in one step.
void Follow(double& value, double target, double timeConstant) {
    value += (target - value) * std::min(1.0, CarModel::kStepSeconds / timeConstant);
}

}  // namespace

void CarModel::Step(double wantedSpeed, double wantedSpeedSoon) {
    DriveTo(wantedSpeed, wantedSpeedSoon);
    RunEngine();
    RunMixture();
    RunTemperature();
    m_ripple = Noise(1.0);
}

double CarModel::ForceOfDrag() const {
    const double rolling = m_speed > 0.3 ? kMass * kRolling : 0.0;
    return rolling + kAir * m_speed * m_speed;
}

void CarModel::DriveTo(double wantedSpeed, double wantedSpeedSoon) {
    constexpr double kHardestBraking = -3.4;
    constexpr double kBriskest = 3.0;
    constexpr double kLookAhead = 0.8;  // s, what "soon" means
    const double planned = (wantedSpeedSoon - wantedSpeed) / 3.6 / kLookAhead;
    double wanted = planned + (wantedSpeed / 3.6 - m_speed) / 1.4;
    const double strongest = (kLargestTorque * kDriveLoss * TurnPerMetre(m_gear) - ForceOfDrag()) / kMass;
    wanted = std::clamp(wanted, kHardestBraking, std::min(kBriskest, strongest));
    Shift(wanted);
    const bool shifting = m_inGear < kShiftSeconds;
    if (shifting) wanted = std::min(wanted, -ForceOfDrag() / kMass);
    Follow(m_acceleration, wanted, 0.25);

    m_speed += m_acceleration * kStepSeconds;
    if (m_speed < 0.15 && wantedSpeed < 1.0) {
        m_speed = 0.0;
        m_acceleration = 0.0;
    }
    m_speed = std::max(0.0, m_speed);

    const double torque = (kMass * m_acceleration + ForceOfDrag()) / (TurnPerMetre(m_gear) * kDriveLoss);
    const bool rolling = m_speed > 3.0 && !shifting;
    m_overrun = rolling && torque < -4.0 && m_rpm > (m_overrun ? 1150.0 : 1400.0);
    m_torque = shifting || m_speed == 0.0 ? 0.0 : std::max(0.0, torque);
}

void CarModel::Shift(double wantedAcceleration) {
    m_inGear += kStepSeconds;
    const double kmh = KmhOf(m_speed);
    const double demand = std::clamp(wantedAcceleration / 2.5, 0.0, 1.0);
    int gear = m_gear;
    if (kmh < 9.0 && wantedAcceleration <= 0.0) {
        gear = 1;  // declutched: the engine speed does not depend on it
    } else if (m_inGear > 1.2) {
        const double rpm = kmh * RpmPerKmh(m_gear);
        const double upshift = 2450.0 + 2300.0 * demand;
        if (rpm > upshift && m_gear < kHighestGear) ++gear;
        if (rpm < 1250.0 && m_gear > 2) --gear;
    }
    if (gear == m_gear) return;
    m_gear = gear;
    m_inGear = gear == 1 ? kShiftSeconds : 0.0;
}

void CarModel::RunEngine() {
    const double coldness = std::max(0.0, 60.0 - m_coolant);
    const double idle = kIdleRpm + 6.0 * coldness + Noise(7.0);
    const double geared = KmhOf(m_speed) * RpmPerKmh(m_gear);
    const bool pullingAway = m_torque > 0.0 && m_gear == 1;
    const double slipping = pullingAway ? 1450.0 + 4.0 * m_torque : idle;
    Follow(m_rpm, std::max(geared, slipping), 0.16);

    const double needed = m_overrun ? 58.0 : kAirPerTorque * (m_torque + kFriction) + 0.6 * coldness;
    Follow(m_airMass, needed + Noise(1.6), 0.12);
    Follow(m_charge, 996.0 + 0.1 * m_airMass + 1.75 * std::max(0.0, m_airMass - 380.0), 0.45);

    const double advance = 2.0 + 0.008 * m_rpm - 0.025 * (m_airMass - 150.0) + Noise(0.7);
    Follow(m_ignition, m_overrun ? 5.0 : std::clamp(advance, -4.0, 38.0), 0.15);
}

void CarModel::RunMixture() {
    constexpr double kSwingSeconds = 1.3;
    constexpr double kLeanEnd = 2.3;  // what pure air tends to; the sensor's range ends earlier
    m_lambdaTarget = 1.0;
    if (m_coolant < 32.5) m_lambdaTarget = 0.95;
    if (m_airMass > 640.0) m_lambdaTarget = 0.9;

    // Closed loop: the control swings between rich and lean, and the sensor follows.
    const bool closedLoop = !m_overrun && m_lambdaTarget == 1.0;
    m_controlPhase += kStepSeconds / kSwingSeconds;
    if (m_controlPhase >= 1.0) m_controlPhase -= 1.0;
    const double triangle = m_controlPhase < 0.5 ? 4.0 * m_controlPhase - 1.0 : 3.0 - 4.0 * m_controlPhase;
    Follow(m_control, closedLoop ? 1.2 + 3.2 * triangle : 0.0, 0.2);
    const double mixture = closedLoop ? m_lambdaTarget * (1.0 - 0.008 * (m_control - 1.2)) : m_lambdaTarget;
    Follow(m_lambda, m_overrun ? kLeanEnd : mixture, 0.3);

    const double gramsPerHour = m_airMass / 1000.0 * m_rpm * kStrokesPerTurn * 60.0;
    m_fuelFlow = m_overrun ? 0.0 : gramsPerHour / (kStoichiometric * m_lambdaTarget) / kFuelDensity;
}

void CarModel::RunTemperature() {
    constexpr double kJoulesPerLitre = 32e6;
    constexpr double kShareToCoolant = 0.3;
    constexpr double kHeatCapacity = 62e3;  // J/K: engine and coolant
    constexpr double kThermostat = 88.0;
    const double heat = m_fuelFlow / 3600.0 * kJoulesPerLitre * kShareToCoolant;
    const double opening = std::clamp((m_coolant - kThermostat) / 6.0, 0.0, 1.0);
    const double cooling = opening * (9e3 + 1100.0 * m_speed) + 12.0 * (m_coolant - 20.0);
    m_coolant += (heat - cooling) / kHeatCapacity * kStepSeconds;

    const double charging = m_rpm > 1000.0 ? 14.15 : 13.85;
    Follow(m_voltage, charging + Noise(0.05), 2.5);
}

double CarModel::Noise(double amplitude) {
    m_random = m_random * 1664525U + 1013904223U;
    return amplitude * (static_cast<double>(m_random >> 8U) / 8388608.0 - 1.0);
}

CarModel::Values CarModel::Read() const {
    constexpr double kSensorEnd = 1.99;
    const double filling = m_airMass / 860.0 * (0.5 + m_rpm / 6000.0);
    return {
        .rpm = m_rpm,
        .speed = KmhOf(m_speed),
        .coolant = m_coolant,
        .voltage = m_voltage + 0.02 * m_ripple,
        .airMass = m_airMass,
        .throttle = m_overrun ? 2.0 : std::clamp(2.0 + 92.0 * filling, 0.0, 100.0),
        .chargePressure = m_charge + 2.0 * m_ripple,
        .ignition = m_ignition,
        .lambda = std::min(kSensorEnd, m_lambda),
        .lambdaTarget = m_lambdaTarget,
        .lambdaControl = m_control,
        .fuelFlow = m_fuelFlow,
    };
}

}  // namespace plotvane

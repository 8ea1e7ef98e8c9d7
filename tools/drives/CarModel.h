#pragma once

#include <cstdint>

namespace plotvane {

// A turbocharged petrol car with a manual gearbox and a driver who follows a wanted speed. It has just enough
// physics for its values to fit together: rpm follows speed and gear, air mass follows torque, and fuel
// follows air mass. The same steps give the same values on every system, because it uses only arithmetic that
// no library rounds.
class CarModel {
public:
    // The readings of the car's instruments.
    struct Values {
        double rpm;             // /min
        double speed;           // km/h
        double coolant;         // °C
        double voltage;         // V
        double airMass;         // mg/str
        double throttle;        // %
        double chargePressure;  // mbar, absolute, ahead of the throttle
        double ignition;        // ° before top dead centre
        double lambda;          // measured; the sensor reads up to 1.99
        double lambdaTarget;
        double lambdaControl;  // %, correction of the injected mass
        double fuelFlow;       // l/h; 0 on overrun
    };

    // Advances the car by kStepSeconds. `wantedSpeed` is in km/h, now and a little later.
    void Step(double wantedSpeed, double wantedSpeedSoon);

    Values Read() const;

    static constexpr double kStepSeconds = 0.05;

private:
    void DriveTo(double wantedSpeed, double wantedSpeedSoon);
    void Shift(double demand);
    void RunEngine();
    void RunMixture();
    void RunTemperature();
    double ForceOfDrag() const;
    double Noise(double amplitude);

    double m_speed = 0.0;         // m/s
    double m_acceleration = 0.0;  // m/s²
    int m_gear = 1;
    double m_inGear = 0.0;  // seconds since the last shift
    double m_rpm = 960.0;
    double m_torque = 0.0;     // Nm at the crankshaft, without the part that the engine itself needs
    bool m_overrun = false;    // the fuel is cut off
    double m_airMass = 110.0;  // mg/str
    double m_charge = 1004.0;  // mbar
    double m_ignition = 9.0;
    double m_lambda = 1.0;
    double m_lambdaTarget = 1.0;
    double m_control = 0.0;
    double m_controlPhase = 0.0;  // 0..1 through one swing of the lambda control
    double m_fuelFlow = 0.9;      // l/h
    double m_coolant = 31.0;
    double m_voltage = 13.2;
    double m_ripple = 0.0;  // makes two readings of a steady value differ
    std::uint32_t m_random = 1;
};

}  // namespace plotvane

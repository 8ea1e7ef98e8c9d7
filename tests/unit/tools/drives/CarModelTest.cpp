#include "tools/drives/CarModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace plotvane {
namespace {

class CarModelTest : public testing::Test {
protected:
    // Drives at a steady wanted speed in km/h and reads the instruments.
    CarModel::Values DriveAt(double speed, double seconds) {
        for (double t = 0; t < seconds; t += CarModel::kStepSeconds) car.Step(speed, speed);
        return car.Read();
    }

    CarModel car;
};

TEST_F(CarModelTest, StandsStillAtIdleUntilItIsToMove) {
    const CarModel::Values values = DriveAt(0, 10);
    EXPECT_EQ(values.speed, 0.0);
    EXPECT_NEAR(values.rpm, 780 + 6 * (60 - values.coolant), 40);  // faster while it is cold
    EXPECT_GT(values.fuelFlow, 0.0);
}

TEST_F(CarModelTest, ReachesTheWantedSpeedInAGearThatFits) {
    const CarModel::Values values = DriveAt(100, 60);
    EXPECT_NEAR(values.speed, 100, 3);
    EXPECT_NEAR(values.rpm / values.speed, 21.5, 0.5);  // sixth gear
}

TEST_F(CarModelTest, ThatBrakesInGearTakesNoFuelAndTheSensorEndsAt199) {
    DriveAt(120, 60);
    double least = 1e9;
    double leanest = 0;
    for (double t = 0; t < 8; t += CarModel::kStepSeconds) {
        car.Step(30, 30);
        least = std::min(least, car.Read().fuelFlow);
        leanest = std::max(leanest, car.Read().lambda);
    }
    EXPECT_EQ(least, 0.0);
    EXPECT_EQ(leanest, 1.99);
}

TEST_F(CarModelTest, WarmsUpToItsThermostatAndNotBeyond) {
    const double cold = car.Read().coolant;
    EXPECT_LT(cold, 40);
    const CarModel::Values values = DriveAt(100, 1200);
    EXPECT_GT(values.coolant, 85);
    EXPECT_LT(values.coolant, 95);
}

TEST_F(CarModelTest, FuelFollowsAirMassAtTheLambdaThatIsWanted) {
    const CarModel::Values values = DriveAt(80, 120);
    const double airPerHour =
        values.airMass / 1000 * values.rpm * 2 * 60;  // g; two strokes take air in a turn
    EXPECT_NEAR(values.fuelFlow, airPerHour / (14.7 * values.lambdaTarget) / 745, 1e-9);  // l of 745 g
}

TEST_F(CarModelTest, GivesTheSameValuesForTheSameSteps) {
    CarModel other;
    for (int step = 0; step < 1000; ++step) {
        const double speed = step % 400 < 200 ? 70 : 20;
        car.Step(speed, speed);
        other.Step(speed, speed);
    }
    EXPECT_EQ(car.Read().rpm, other.Read().rpm);
    EXPECT_EQ(car.Read().voltage, other.Read().voltage);
    EXPECT_EQ(car.Read().lambdaControl, other.Read().lambdaControl);
}

}  // namespace
}  // namespace plotvane

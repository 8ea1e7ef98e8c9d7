#include "plot/binding/FuelFigures.h"

#include "tests/support/PlotFixture.h"

namespace plotvane {
namespace {

class FuelFiguresTest : public test::PlotFixture {
protected:
    void SetUnits(int flowSlot, std::string_view flowUnit, int speedSlot, std::string_view speedUnit) {
        slots[flowSlot].unit = flowUnit;
        slots[speedSlot].unit = speedUnit;
    }
    void Tick(double flow, double speed) {
        SetUnits(3, "l/h", 2, "km/h");
        slots[3].value = flow;
        slots[2].value = speed;
        Update();
    }
    void Update() { fuel.UpdateFuel(sample, views); }

    FuelFigures fuel{{"MPG", "L/100km", "Gal. per Hour"}};
};

TEST_F(FuelFiguresTest, DrivingGivesLitresPer100KmAndMilesPerGallon) {
    Tick(8.0, 100.0);
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 8.0);
    EXPECT_DOUBLE_EQ(fuel.Mileage(), 29.4018125);
    EXPECT_TRUE(panel.fuelButtons);
    EXPECT_EQ(meters.consumption.units, "L/100km");
    EXPECT_EQ(meters.consumption.maximum, 20.0);
    EXPECT_EQ(meters.consumption.decimals, 1);
    EXPECT_EQ(meters.mileage.units, "MPG");
    EXPECT_EQ(meters.mileage.maximum, 60.0);
    EXPECT_EQ(meters.mileage.decimals, 1);
}

TEST_F(FuelFiguresTest, IdlingGivesTheFlowItselfAndGallonsPerHour) {
    Tick(2.0, 0.0);
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 2.0);
    EXPECT_NEAR(fuel.Mileage(), 0.52834410527459186, 1e-15);
    EXPECT_EQ(meters.consumption.units, "l/h");
    EXPECT_EQ(meters.consumption.maximum, 10.0);
    EXPECT_EQ(meters.consumption.decimals, 1);
    EXPECT_EQ(meters.mileage.units, "Gal. per Hour");
    EXPECT_EQ(meters.mileage.maximum, 4.0);
    EXPECT_EQ(meters.mileage.decimals, 2);
}

TEST_F(FuelFiguresTest, AveragesOverTheHistoryDepth) {
    prefs.fuelHistoryDepth = 5;
    Tick(8.0, 100.0);  // 8
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 1.6);
    EXPECT_NEAR(fuel.Mileage(), 147.0090625, 1e-9);
    Tick(5.0, 50.0);  // 10 8
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 3.6);
    EXPECT_NEAR(fuel.Mileage(), 65.337361, 1e-6);
    Tick(0.9, 0.0);  // the history stays
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 0.9);
    EXPECT_NEAR(fuel.Mileage(), 0.237754847, 1e-9);
    Tick(12.0, 60.0);  // 20 10 8
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 7.6);
    EXPECT_NEAR(fuel.Mileage(), 30.949276, 1e-6);
    Tick(30.0, 1.0);  // 3000 20 10 8: left out, but counted
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 7.6);
    EXPECT_NEAR(fuel.Mileage(), 30.949276, 1e-6);
}

TEST_F(FuelFiguresTest, AnEntryOf1200CountsInTheDivisorOnly) {
    prefs.fuelHistoryDepth = 2;
    Tick(8.0, 100.0);
    Tick(12.0, 1.0);
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 4.0);
}

TEST_F(FuelFiguresTest, EntriesAreLeftOutFromAThousandOn) {
    prefs.fuelHistoryDepth = 2;
    Tick(8.0, 100.0);
    Tick(10.0, 1.0);  // 1000
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 4.0);
    Tick(9.995, 1.0);  // 999.5
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 499.75);
}

TEST_F(FuelFiguresTest, WithADepthOfOneAnEntryLeftOutIsNoConsumption) {
    prefs.fuelHistoryDepth = 1;
    Tick(12.0, 1.0);
    EXPECT_EQ(fuel.Consumption(), 0.0);
    EXPECT_EQ(fuel.Mileage(), 999.9);
}

TEST_F(FuelFiguresTest, TheHistoryHoldsTwentyEntries) {
    prefs.fuelHistoryDepth = 20;
    for (int i = 0; i < 20; ++i) Tick(8.0, 100.0);
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 8.0);
    Tick(28.0, 100.0);  // pushes one 8 out
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 9.0);
}

TEST_F(FuelFiguresTest, ADepthOfZeroKeepsTheFigureOfTheSample) {
    prefs.fuelHistoryDepth = 0;
    Tick(8.0, 100.0);
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 8.0);
}

TEST_F(FuelFiguresTest, ADepthBeyondTheHistoryStillDivides) {
    prefs.fuelHistoryDepth = 40;
    for (int i = 0; i < 40; ++i) Tick(8.0, 100.0);
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 4.0);
}

TEST_F(FuelFiguresTest, NoConsumptionIsTheHighestMileage) {
    Tick(0.0, 50.0);
    EXPECT_EQ(fuel.Consumption(), 0.0);
    EXPECT_EQ(fuel.Mileage(), 999.9);
    Tick(0.001, 50.0);
    EXPECT_EQ(fuel.Mileage(), 999.9);
}

TEST_F(FuelFiguresTest, WithoutBothUnitsTheButtonsHideAndTheMetersClose) {
    Tick(8.0, 100.0);
    EXPECT_EQ(meters.closed, 0);
    slots[3].unit = "/min";
    Update();
    EXPECT_FALSE(panel.fuelButtons);
    EXPECT_EQ(meters.closed, 1);
    SetUnits(3, "l/h", 2, "V");
    Update();
    EXPECT_FALSE(panel.fuelButtons);
}

TEST_F(FuelFiguresTest, UnitsThatContainTheTextQualify) {
    for (const char* unit : {"ml/h", "l/hr", "l/h"}) {
        SetUnits(0, unit, 1, "km/h");
        Update();
        EXPECT_TRUE(panel.fuelButtons) << unit;
    }
    SetUnits(0, "L/h", 1, "km/h");
    Update();
    EXPECT_FALSE(panel.fuelButtons);
}

TEST_F(FuelFiguresTest, TheLastSlotOfAUnitCountsActiveOrNot) {
    SetUnits(0, "l/h", 1, "km/h");
    SetUnits(10, "l/h", 11, "km/h");
    slots[0].value = 1.0;
    slots[1].value = 10.0;
    slots[10].value = 6.0;
    slots[11].value = 100.0;
    Update();
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 6.0);
}

TEST_F(FuelFiguresTest, NothingChangesWhileHalted) {
    Tick(8.0, 100.0);
    state.halted = true;
    Tick(4.0, 100.0);
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 8.0);
}

}  // namespace
}  // namespace plotvane

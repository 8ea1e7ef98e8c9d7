#include "tools/drives/ScriptedDrive.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/support/DegreeSign.h"
#include "tools/drives/DriveRecord.h"
#include "tools/drives/RecordText.h"

namespace plotvane {
namespace {

int SlotWith(const Drive& drive, std::string_view unit, int nth = 0) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (drive.Channels().at(static_cast<std::size_t>(slot)).unit == unit && nth-- == 0) return slot;
    }
    ADD_FAILURE() << "no channel with the unit " << unit;
    return 0;
}

class ScriptedDriveTest : public testing::Test {
protected:
    double Lowest(int slot, double from, double to) const {
        double lowest = m_drive.Value(slot, from);
        for (double t = from; t <= to; t += 0.1) lowest = std::min(lowest, m_drive.Value(slot, t));
        return lowest;
    }
    double Highest(int slot, double from, double to) const {
        double highest = m_drive.Value(slot, from);
        for (double t = from; t <= to; t += 0.1) highest = std::max(highest, m_drive.Value(slot, t));
        return highest;
    }

    const ScriptedDrive m_drive;
    const int m_rpm = SlotWith(m_drive, "/min");
    const int m_speed = SlotWith(m_drive, "km/h");
    const int m_coolant = SlotWith(m_drive, DEGREES_C);
    const int m_fuel = SlotWith(m_drive, "l/h");
    const int m_lambda = SlotWith(m_drive, "");
};

TEST_F(ScriptedDriveTest, FillsThreeGroupsAndHasEveryUnit) {
    std::set<int> groups;
    std::set<std::string> units;
    for (const DriveChannel& channel : m_drive.Channels()) {
        EXPECT_TRUE(channel.IsUsed());
        groups.insert(channel.group);
        units.insert(channel.unit);
    }
    EXPECT_EQ(groups.size(), 3u);
    const std::set<std::string> wanted = {"/min", "km/h", DEGREES_C, "V",   "mg/str",
                                          "%",    "mbar", "\xB0",    "l/h", ""};
    EXPECT_EQ(units, wanted);
}

TEST_F(ScriptedDriveTest, KeepsLambdaInAGroupOfTheAirFuelRule) {
    const std::set<int> groups = {31, 34, 35, 191, 212, 216, 220, 222, 225, 227, 231, 233};
    for (const DriveChannel& channel : m_drive.Channels()) {
        if (!channel.unit.empty()) continue;
        EXPECT_TRUE(groups.contains(channel.group)) << channel.name;
    }
}

TEST_F(ScriptedDriveTest, TakesSomeMinutesAndPassesThroughItsPhases) {
    EXPECT_GE(m_drive.Seconds(), 180);
    EXPECT_LE(m_drive.Seconds(), 300);
    std::vector<std::string_view> phases;
    for (double t = 0; t <= m_drive.Seconds(); t += 0.5) {
        if (phases.empty() || phases.back() != m_drive.Phase(t)) phases.push_back(m_drive.Phase(t));
    }
    EXPECT_EQ(phases.front(), "idle");
    EXPECT_EQ(phases.back(), "stop");
    EXPECT_NE(std::ranges::find(phases, "pull away"), phases.end());
    EXPECT_NE(std::ranges::find(phases, "motorway"), phases.end());
}

TEST_F(ScriptedDriveTest, StandsAtItsEndsWithTheEngineIdling) {
    for (const double t : {0.0, 2.0, m_drive.Seconds()}) {
        EXPECT_EQ(m_drive.Value(m_speed, t), 0) << t;
        EXPECT_GT(m_drive.Value(m_rpm, t), 700) << t;
        EXPECT_LT(m_drive.Value(m_rpm, t), 1000) << t;
    }
}

TEST_F(ScriptedDriveTest, ReachesMotorwaySpeedWithoutOverrevving) {
    const double end = m_drive.Seconds();
    EXPECT_GT(Highest(m_speed, 0, end), 130);
    EXPECT_LT(Highest(m_speed, 0, end), 200);
    EXPECT_GE(Lowest(m_speed, 0, end), 0);
    EXPECT_GT(Lowest(m_rpm, 0, end), 600);
    EXPECT_LT(Highest(m_rpm, 0, end), 6500);
}

TEST_F(ScriptedDriveTest, WarmsUpAndKeepsBelowBoiling) {
    EXPECT_LT(m_drive.Value(m_coolant, 0), 40);
    EXPECT_GT(m_drive.Value(m_coolant, m_drive.Seconds()), 80);
    EXPECT_LT(Highest(m_coolant, 0, m_drive.Seconds()), 105);
}

TEST_F(ScriptedDriveTest, BurnsNothingOnOverrunAndSomethingOtherwise) {
    int overrun = 0;
    for (double t = 0; t <= m_drive.Seconds(); t += 0.1) {
        if (m_drive.Value(m_fuel, t) > 0) continue;
        ++overrun;
        EXPECT_GT(m_drive.Value(m_speed, t), 5) << t;
        EXPECT_GT(m_drive.Value(m_rpm, t), 1100) << t;
        EXPECT_LT(m_drive.Value(m_speed, t + 0.5), m_drive.Value(m_speed, t)) << t;
    }
    EXPECT_GT(overrun, 100);  // at least ten seconds
    // At a standstill: less than 1.5 litres per hour. At a steady 130 km/h: six to ten litres per 100 km.
    EXPECT_LT(Highest(m_fuel, 220, 240), 1.5);
    const double per100km = m_drive.Value(m_fuel, 120) / m_drive.Value(m_speed, 120) * 100;
    EXPECT_GT(per100km, 6);
    EXPECT_LT(per100km, 10);
}

TEST_F(ScriptedDriveTest, KeepsLambdaAroundOneWhileFuelBurns) {
    for (double t = 15; t <= m_drive.Seconds(); t += 0.1) {
        const double lambda = m_drive.Value(m_lambda, t);
        EXPECT_GT(lambda, 0.85) << t;
        EXPECT_LT(lambda, 2) << t;
    }
    EXPECT_NEAR(m_drive.Value(m_lambda, 120), 1.0, 0.05);
}

TEST_F(ScriptedDriveTest, EveryValueStaysInTheRangeOfItsChannel) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const DriveChannel& channel = m_drive.Channels().at(static_cast<std::size_t>(slot));
        EXPECT_GE(Lowest(slot, 0, m_drive.Seconds()), channel.lowest) << channel.name << channel.unit;
        EXPECT_LE(Highest(slot, 0, m_drive.Seconds()), channel.highest) << channel.name << channel.unit;
    }
}

TEST_F(ScriptedDriveTest, IsTheSameEachTimeAndHoldsItsEnds) {
    const ScriptedDrive other;
    for (int slot = 0; slot < kSlotCount; ++slot) {
        EXPECT_EQ(ValueText(m_drive, slot, 97.03), ValueText(other, slot, 97.03));
        EXPECT_EQ(m_drive.Value(slot, -5), m_drive.Value(slot, 0));
        EXPECT_EQ(m_drive.Value(slot, 1e9), m_drive.Value(slot, m_drive.Seconds()));
    }
}

TEST_F(ScriptedDriveTest, EveryRecordFitsABlockInEveryForm) {
    for (double t = 0; t <= m_drive.Seconds(); t += 1) {
        for (const RecordForm form : {RecordForm::Normal, RecordForm::TenChannels, RecordForm::ObdPid})
            EXPECT_TRUE(MakeBlock(RecordOf(m_drive, t, form, std::string(100, 'M')))) << t;
    }
}

}  // namespace
}  // namespace plotvane

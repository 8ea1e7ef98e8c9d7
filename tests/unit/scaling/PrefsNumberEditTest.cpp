#include "scaling/PrefsNumberEdit.h"

#include <gtest/gtest.h>

#include "res/resource.h"

namespace plotvane {
namespace {

struct Entry {
    PrefsNumber number;
    const char* text;
    int stored;
};

constexpr PrefsNumber kThickness = PrefsNumber::Thickness;
constexpr PrefsNumber kMileage = PrefsNumber::MaxMileage;
constexpr PrefsNumber kConsumption = PrefsNumber::MaxConsumption;
constexpr PrefsNumber kDepth = PrefsNumber::FuelHistoryDepth;

constexpr Entry kAccepted[] = {
    {kThickness, "0", 0},  {kThickness, "10", 10},   {kThickness, " 7", 7},  {kThickness, "3mm", 3},
    {kThickness, "", 0},   {kThickness, "thick", 0}, {kMileage, "1", 1},     {kMileage, "1000", 1000},
    {kMileage, "+45", 45}, {kMileage, "55.9", 55},   {kConsumption, "1", 1}, {kConsumption, "1000", 1000},
    {kDepth, "1", 1},      {kDepth, "20", 20},       {kDepth, "007", 7},
};

TEST(PrefsNumberEdit, TakesNumbersWithinTheirRange) {
    for (const auto& [number, text, stored] : kAccepted) {
        Prefs prefs;
        prefs.thickness = 5;
        EXPECT_FALSE(EnterNumber(prefs, number, text)) << text;
        EXPECT_EQ(NumberOf(prefs, number), stored) << text;
    }
}

constexpr Entry kRejected[] = {
    // A rejected thickness is still stored.
    {kThickness, "11", 11},
    {kThickness, "-1", -1},
    {kThickness, "99999999999", 2147483647},
    {kThickness, "-99999999999", -2147483647 - 1},
    // The other numbers keep the value of a first run.
    {kMileage, "0", 60},
    {kMileage, "1001", 60},
    {kMileage, "-5", 60},
    {kMileage, "", 60},
    {kMileage, "many", 60},
    {kMileage, "99999999999", 60},
    {kMileage, "4294967297", 60},
    {kConsumption, "0", 20},
    {kConsumption, "1001", 20},
    {kConsumption, "-2147483648", 20},
    {kConsumption, "x1", 20},
    {kDepth, "0", 1},
    {kDepth, "21", 1},
    {kDepth, "-1", 1},
    {kDepth, " ", 1},
};

TEST(PrefsNumberEdit, RejectsAllOtherTexts) {
    for (const auto& [number, text, stored] : kRejected) {
        Prefs prefs;
        prefs.thickness = 5;
        EXPECT_TRUE(EnterNumber(prefs, number, text)) << text;
        EXPECT_EQ(NumberOf(prefs, number), stored) << text;
    }
}

TEST(PrefsNumberEdit, ARejectedThicknessLeavesZeroInTheEdit) {
    Prefs prefs;
    prefs.thickness = 5;
    const auto rejection = EnterNumber(prefs, kThickness, "11");
    ASSERT_TRUE(rejection);
    EXPECT_EQ(rejection->messageId, unsigned{IDS_INTEGER_0_TO_10});
    EXPECT_EQ(rejection->shownText, "0");
}

TEST(PrefsNumberEdit, TheOthersReturnToTheirStoredValue) {
    Prefs prefs;
    prefs.maxMileage = 45;
    prefs.maxConsumption = 0;  // out of range already: read from the file
    prefs.fuelHistoryDepth = 12;
    const auto mileage = EnterNumber(prefs, kMileage, "1001");
    ASSERT_TRUE(mileage);
    EXPECT_EQ(mileage->messageId, unsigned{IDS_INTEGER_1_TO_1000});
    EXPECT_EQ(mileage->shownText, "45");
    const auto consumption = EnterNumber(prefs, kConsumption, "");
    ASSERT_TRUE(consumption);
    EXPECT_EQ(consumption->messageId, unsigned{IDS_INTEGER_1_TO_1000});
    EXPECT_EQ(consumption->shownText, "0");
    const auto depth = EnterNumber(prefs, kDepth, "21");
    ASSERT_TRUE(depth);
    EXPECT_EQ(depth->messageId, unsigned{IDS_INTEGER_1_TO_20});
    EXPECT_EQ(depth->shownText, "12");
}

}  // namespace
}  // namespace plotvane

#include "tools/drives/CsvColumns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/DegreeSign.h"

namespace plotvane {
namespace {

using Names = std::vector<std::string>;

TEST(CsvColumns, TellTheUnitByTheEnding) {
    const std::pair<const char*, const char*> kinds[] = {{"rpm", "/min"},
                                                         {"speed_kmh", "km/h"},
                                                         {"coolant_c", DEGREES_C},
                                                         {"load_pct", "%"},
                                                         {"map_mbar", "mbar"},
                                                         {"timing_deg", "\xB0"},
                                                         {"volt", "V"},
                                                         {"fuel_lph", "l/h"},
                                                         {"maf_gs", "g/s"},
                                                         {"torque_nm", "Nm"},
                                                         {"fuel_used_l", "l"},
                                                         {"open_ms", "ms"},
                                                         {"air_mgstr", "mg/str"},
                                                         {"lambda_meas", ""},
                                                         {"lambda", ""},
                                                         {"brake", ""}};
    for (const auto& [name, unit] : kinds) EXPECT_EQ(UnitOfColumn(name), unit) << name;
}

TEST(CsvColumns, WithOneClockComeInGroupsOfFour) {
    const CsvColumns columns = ArrangeColumns({"t", "rpm", "a_pct", "b_pct", "c_pct", "volt"});
    ASSERT_EQ(columns.groups.size(), 2u);
    EXPECT_EQ(columns.groups[0].columns, (std::vector<std::size_t>{1, 2, 3, 4}));
    EXPECT_EQ(columns.groups[1].columns, (std::vector<std::size_t>{5}));
    EXPECT_EQ(columns.groups[1].timeColumn, 0u);
    EXPECT_EQ(columns.channels[0].group, 1);
    EXPECT_EQ(columns.channels[3].field, 3);
    EXPECT_EQ(columns.channels[4].group, 2);
    EXPECT_EQ(columns.channels[4].unit, "V");
    EXPECT_FALSE(columns.channels[5].IsUsed());
}

TEST(CsvColumns, WithOneClockTheFirstTwelveHaveAPlace) {
    Names names = {"t"};
    for (int i = 0; i < 14; ++i) names.push_back("x" + std::to_string(i));
    const CsvColumns columns = ArrangeColumns(names);
    EXPECT_EQ(columns.groups.size(), 3u);
    EXPECT_EQ(columns.channels[11].name, "x11");
    EXPECT_EQ(columns.ignored, (Names{"x12", "x13"}));
}

TEST(CsvColumns, WithSeveralClocksEachBeginsAGroupOfUpToFour) {
    const CsvColumns columns = ArrangeColumns(
        {"stray", "t_a", "rpm", "t_b", "x1", "x2", "x3", "x4", "x5", "t_c", "t_d", "volt", "t_e", "late"});
    ASSERT_EQ(columns.groups.size(), 3u);
    EXPECT_EQ(columns.groups[0].columns, (std::vector<std::size_t>{2}));
    EXPECT_EQ(columns.groups[1].columns, (std::vector<std::size_t>{4, 5, 6, 7}));
    EXPECT_EQ(columns.groups[2].timeColumn, 10u);
    EXPECT_EQ(columns.channels[4].name, "x1");
    EXPECT_EQ(columns.channels[8].name, "volt");
    EXPECT_EQ(columns.ignored, (Names{"stray", "x5", "late"}));
}

TEST(CsvColumns, GiveLambdaAGroupOfTheAirFuelRule) {
    const CsvColumns columns =
        ArrangeColumns({"t_a", "rpm", "t_b", "lambda_meas", "t_c", "volt", "lambda_cmd"});
    EXPECT_EQ(columns.channels[0].group, 1);
    EXPECT_EQ(columns.channels[4].group, 31);
    EXPECT_EQ(columns.channels[8].group, 34);
    EXPECT_EQ(columns.channels[9].group, 34);
}

TEST(CsvColumns, KnowTheGenericObdIdentifiers) {
    const CsvColumns columns = ArrangeColumns({"t", "rpm", "speed_kmh", "coolant_c", "brake"});
    EXPECT_EQ(columns.channels[0].pid, 12);
    EXPECT_EQ(columns.channels[1].pid, 13);
    EXPECT_EQ(columns.channels[2].pid, 5);
    EXPECT_EQ(columns.channels[3].pid, 0);
}

}  // namespace
}  // namespace plotvane

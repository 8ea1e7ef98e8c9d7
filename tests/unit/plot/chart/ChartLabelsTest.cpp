#include "plot/chart/ChartLabels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/support/DegreeSign.h"

namespace plotvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Upright = ChartLabel::Upright;

constexpr Colour kGrid = 0x123456;

// The plot is 60..610 by 10..300, so labels end at x 56.
class ChartLabelsTest : public testing::Test {
protected:
    ChartLabelsTest() {
        for (std::size_t i = 0; i < m_traces.size(); ++i) m_traces[i].colour = static_cast<Colour>(i + 1);
        m_rules.scaleColour = kGrid;
    }

    void Assign(int slot, std::string unit, int group = 1) {
        m_slots[slot].group = group;
        m_slots[slot].unit = std::move(unit);
    }

    void SetRange(std::size_t trace, double lower, double upper) {
        m_traces[trace].SetRange(lower, upper, 290);
    }

    std::vector<ChartLabel> Labels() const {
        return ChartLabels(m_slots, m_traces, m_rules, {60, 10, 610, 300});
    }

    static ChartLabel Maximum(std::string text, Colour colour, int y) {
        return {std::move(text), colour, 56, y, Upright::Top};
    }
    static ChartLabel Minimum(std::string text, Colour colour, int y) {
        return {std::move(text), colour, 56, y, Upright::Baseline};
    }

    SlotTable m_slots;
    std::array<PlotTrace, kSlotCount> m_traces;
    LabelRules m_rules;
};

TEST_F(ChartLabelsTest, NothingIsWrittenBeforeTheFirstRecord) {
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_F(ChartLabelsTest, LimitsAreElevenPixelsApart) {
    Assign(0, "/min");
    Assign(1, DEGREES_C);
    Assign(2, "km/h");
    Assign(3, "l/h");
    SetRange(0, 0, 6000);
    SetRange(1, -10, 120);
    SetRange(2, 0, 250);
    EXPECT_THAT(Labels(), ElementsAre(Maximum("6000 /min", 1, 5), Maximum("120 " DEGREES_C, 2, 16),
                                      Maximum("250 km/h", 3, 27), Maximum("100 l/h", 4, 38),
                                      Minimum("-10 " DEGREES_C, 2, 301)));
}

TEST_F(ChartLabelsTest, MinimaStackUpwards) {
    Assign(0, "");
    Assign(1, "V");
    SetRange(0, -50, 50);
    SetRange(1, 0.5, 2);
    EXPECT_THAT(Labels(), ElementsAre(Maximum("50 ", 1, 5), Maximum("2 V", 2, 16), Minimum("-50 ", 1, 301),
                                      Minimum("0.5 V", 2, 290)));
}

TEST_F(ChartLabelsTest, ZeroMinimumTakesALineOnlyWhenZerosAreShown) {
    Assign(0, "V");
    Assign(1, "V");
    SetRange(1, -1, 1);
    EXPECT_THAT(Labels(),
                ElementsAre(Maximum("100 V", 1, 5), Maximum("1 V", 2, 16), Minimum("-1 V", 2, 301)));
    m_rules.showZeros = true;
    EXPECT_THAT(Labels(), ElementsAre(Maximum("100 V", 1, 5), Maximum("1 V", 2, 16), Minimum("0 V", 1, 301),
                                      Minimum("-1 V", 2, 290)));
}

TEST_F(ChartLabelsTest, UnitsCanBeSwitchedOff) {
    Assign(0, "/min");
    SetRange(0, -1, 6000);
    m_rules.showUnits = false;
    EXPECT_THAT(Labels(), ElementsAre(Maximum("6000", 1, 5), Minimum("-1", 1, 301)));
}

TEST_F(ChartLabelsTest, LimitsAreWrittenWithSixDigits) {
    Assign(0, "");
    m_rules.showUnits = false;
    const struct {
        double limit;
        const char* text;
    } kTexts[] = {{1234567, "1.23457e+06"}, {0.0001, "0.0001"}, {2147483647, "2.14748e+09"}, {-0.5, "-0.5"}};
    for (const auto& [limit, text] : kTexts) {
        SetRange(0, 0, limit);
        EXPECT_THAT(Labels(), ElementsAre(Maximum(text, 1, 5)));
    }
}

TEST_F(ChartLabelsTest, LimitsAndColoursFollowTheCountOfActiveSlotsButUnitsTheSlot) {
    Assign(0, "a", -1);
    Assign(1, "b");
    Assign(2, "c", -1);
    Assign(3, "d");
    SetRange(0, 0, 10);
    SetRange(1, 0, 20);
    SetRange(3, 0, 40);
    EXPECT_THAT(Labels(), ElementsAre(Maximum("10 b", 1, 5), Maximum("20 d", 2, 16)));
}

TEST_F(ChartLabelsTest, AllTwelveSlotsAreLabelled) {
    for (int k = 0; k < kSlotCount; ++k) Assign(k, std::string(1, static_cast<char>('a' + k)));
    const auto labels = Labels();
    ASSERT_EQ(labels.size(), 12u);
    EXPECT_EQ(labels[11], Maximum("100 l", 12, 5 + 11 * 11));
}

TEST_F(ChartLabelsTest, CustomTextsAreInOnePlace) {
    Assign(0, "V");
    Assign(1, "V");
    SetRange(1, -1, 1);
    m_rules.customMaximum = "high";
    m_rules.customMinimum = "low";
    EXPECT_THAT(Labels(), ElementsAre(Maximum("high", 1, -6), Maximum("high", 2, -6), Minimum("low", 1, 312),
                                      Minimum("low", 2, 312)));
}

TEST_F(ChartLabelsTest, TenChannelLayoutHasNoLimits) {
    Assign(0, "V");
    SetRange(0, -1, 256);
    m_rules.tenChannels = true;
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_F(ChartLabelsTest, EmptyFirstSlotShowsTheDefaultScale) {
    Assign(0, "", 0);
    const auto scale = {Minimum("0", kGrid, 301), Minimum("255", kGrid, 14), Minimum("128", kGrid, 157)};
    EXPECT_THAT(Labels(), testing::ElementsAreArray(scale));

    m_rules.tenChannels = true;
    Assign(4, "", 1);
    EXPECT_THAT(Labels(), testing::ElementsAreArray(scale));
}

TEST_F(ChartLabelsTest, DefaultScaleIsBesideTheLimitsOfOtherSlots) {
    Assign(0, "", 0);
    Assign(1, "V");
    EXPECT_THAT(Labels(), ElementsAre(Maximum("100 V", 1, 5), Minimum("0", kGrid, 301),
                                      Minimum("255", kGrid, 14), Minimum("128", kGrid, 157)));
}

}  // namespace
}  // namespace plotvane

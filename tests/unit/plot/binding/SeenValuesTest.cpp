#include "plot/binding/SeenValues.h"

#include <limits>

#include "tests/support/PlotFixture.h"

namespace plotvane {
namespace {

class SeenValuesTest : public test::PlotFixture {
protected:
    // A sample in which slot 0 shows this value of group 1.
    void Take(double value, int field = 0) {
        Fill(0, 1, field, value, "/min");
        seen.Take(slots);
    }
    std::optional<ScaleRange> Range(int slot = 0) const { return seen.RangeAround(slot, slots[slot]); }

    SeenValues seen;
};

TEST_F(SeenValuesTest, GivesTheSpanAndATwentiethOfItAtEachEnd) {
    for (const double value : {1780.0, 780.0, 900.0}) Take(value);
    EXPECT_EQ(Range(), (ScaleRange{730, 1830}));
}

TEST_F(SeenValuesTest, GivesTheWholeNumbersAround) {
    Take(0.25);
    Take(10.25);  // -0.25 and 10.75 with the margins
    EXPECT_EQ(Range(), (ScaleRange{-1, 11}));
}

TEST_F(SeenValuesTest, LeavesWholeNumbersAsTheyAre) {
    Take(-10.0);
    Take(30.0);
    EXPECT_EQ(Range(), (ScaleRange{-12, 32}));
}

TEST_F(SeenValuesTest, GivesNothingWhereNothingWasSeen) {
    EXPECT_EQ(Range(), std::nullopt);
    seen.Take(slots);
    EXPECT_EQ(Range(), std::nullopt);
}

TEST_F(SeenValuesTest, GivesNothingWhereAllWasEqual) {
    Take(780.0);
    Take(780.0);
    EXPECT_EQ(Range(), std::nullopt);
}

TEST_F(SeenValuesTest, ForgetsAllWhenAModuleBegins) {
    Take(780.0);
    Take(1780.0);
    seen.Clear();
    EXPECT_EQ(Range(), std::nullopt);
    Take(10.0);
    Take(30.0);
    EXPECT_EQ(Range(), (ScaleRange{9, 31}));
}

TEST_F(SeenValuesTest, KeepsTheSlotsApart) {
    FillEngineGroup();
    seen.Take(slots);
    slots[0].value += 1000.0;
    slots[1].value += 20.0;
    seen.Take(slots);
    EXPECT_EQ(Range(0), (ScaleRange{730, 1830}));
    EXPECT_EQ(Range(1), (ScaleRange{89, 111}));
    EXPECT_EQ(Range(2), std::nullopt);
    seen.Forget(0);
    EXPECT_EQ(Range(0), std::nullopt);
    EXPECT_EQ(Range(1), (ScaleRange{89, 111}));
}

TEST_F(SeenValuesTest, BeginsAgainWithAnotherField) {
    Take(780.0);
    Take(1780.0);
    Fill(0, 1, 2, 50.0, "km/h");
    EXPECT_EQ(Range(), std::nullopt) << "of the field that was there before";
    Take(50.0, 2);
    Take(70.0, 2);
    EXPECT_EQ(Range(), (ScaleRange{49, 71}));
}

TEST_F(SeenValuesTest, AnEmptySlotChangesNothing) {
    Take(780.0);
    Take(1780.0);
    Empty(0);
    seen.Take(slots);
    EXPECT_EQ(Range(), std::nullopt);
    Take(900.0);
    EXPECT_EQ(Range(), (ScaleRange{730, 1830}));
}

TEST_F(SeenValuesTest, StaysWithinWhatALimitCanBe) {
    using Doubles = std::numeric_limits<double>;
    Take(-1e300);
    Take(Doubles::infinity());
    Take(Doubles::quiet_NaN());
    EXPECT_EQ(Range(), std::nullopt) << "what is no number was not seen";
    Take(1e300);
    using Ints = std::numeric_limits<int>;
    EXPECT_EQ(Range(), (ScaleRange{Ints::min(), Ints::max()}));
}

}  // namespace
}  // namespace plotvane

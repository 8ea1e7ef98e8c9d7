// The colours that the manual recommends for colour-blind users are as far apart as it says.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <span>
#include <string>

#include "scaling/PrefsFile.h"
#include "tests/docs/ColourVision.h"
#include "tests/docs/Page.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

using Colours = std::vector<Colour>;

double LeastDistanceIn(std::span<const Colour> colours) {
    double least = 1000.0;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) least = std::min(least, LeastDistance(colours[i], colours[j]));
    }
    return least;
}

std::string WholeNumber(double number) {
    return std::to_string(static_cast<int>(std::floor(number)));
}

class ManualColoursTest : public testing::Test {
protected:
    // Two colours per row: each a name and three numbers, with an empty cell between the two.
    ManualColoursTest() {
        const Table table = m_page.TableOf({"", "red", "green", "blue"});
        for (std::size_t row = 1; row < table.size(); ++row) {
            for (const std::size_t first : {0U, 5U}) {
                const auto part = [&](std::size_t i) {
                    return static_cast<std::uint8_t>(std::atoi(table[row].at(first + i).c_str()));
                };
                m_colours[table[row].at(first)] = MakeColour(part(1), part(2), part(3));
            }
        }
        for (int line = 1; line <= kSlotCount; ++line)
            m_lines.push_back(m_colours["Line " + std::to_string(line)]);
    }

    const Page m_page{"docs/manual/preferences.md"};
    std::map<std::string, Colour> m_colours;
    Colours m_lines;
};

TEST_F(ManualColoursTest, AreAsFarApartAsThePageStates) {
    EXPECT_TRUE(m_page.Says("any two of the twelve are at least " + WholeNumber(LeastDistanceIn(m_lines)) +
                            " apart"));
    const std::span<const Colour> first(m_lines.data(), 5);
    EXPECT_TRUE(
        m_page.Says("any two of the first five at least " + WholeNumber(LeastDistanceIn(first)) + "."));
    const auto atTheStart = DefaultTraceColours();
    EXPECT_TRUE(m_page.Says("that the program starts with come as close as " +
                            WholeNumber(LeastDistanceIn(atTheStart))));
}

TEST_F(ManualColoursTest, StandOutFromTheBackgroundAndTheGrid) {
    double least = 1000.0;
    for (const Colour line : m_lines) {
        least = std::min(
            {least, LeastDistance(line, m_colours["Background"]), LeastDistance(line, m_colours["Grid"])});
    }
    EXPECT_TRUE(
        m_page.Says("No trace comes nearer than " + WholeNumber(least) + " to the background or the grid."));
}

TEST_F(ManualColoursTest, AreInThePreferencesFileToo) {
    const TempFolder folder;
    WriteBytes(folder / kPrefsFileName, m_page.Example(kPrefsFileName));
    Prefs prefs;
    LoadPrefs(folder / kPrefsFileName, prefs);
    EXPECT_EQ(prefs.backColor, m_colours["Background"]);
    EXPECT_EQ(prefs.gridColor, m_colours["Grid"]);
    EXPECT_EQ(Colours(prefs.lineColor.begin(), prefs.lineColor.end()), m_lines);
    EXPECT_EQ(prefs.thickness, 2);
}

// Checks the measure itself: black and white are 100 apart, and red differs from green except for eyes
// without red or green cones.
TEST(ColourVisionTest, MeasuresWhatEyesSee) {
    EXPECT_NEAR(Distance(kBlack, kWhite, Eyes::All), 100.0, 0.1);
    const Colour red = MakeColour(200, 60, 0);
    const Colour green = MakeColour(110, 125, 0);
    EXPECT_GT(Distance(red, green, Eyes::All), 2.0 * Distance(red, green, Eyes::NoGreen));
}

}  // namespace
}  // namespace plotvane::test

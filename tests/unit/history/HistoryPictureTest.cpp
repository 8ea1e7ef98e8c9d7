#include "history/HistoryPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 400;
constexpr int kLine = 15;
constexpr Colour kGround = 0x201008;
constexpr Colour kText = 0xF0F0E0;
constexpr Colour kFirst = 0x0000FF;
constexpr Colour kSecond = 0x00FF00;

TEST(HistoryLayout, KeepsItsPartsApartAndInsideOfTheWindow) {
    for (const auto& [width, height] : {std::pair(1600, 800), std::pair(640, 300), std::pair(320, 200)}) {
        const HistoryLayout layout(width, height, kLine, 12);
        EXPECT_LE(layout.Plot().right, layout.List().left);
        EXPECT_LE(layout.Plot().bottom, layout.Times().top);
        EXPECT_LE(layout.Times().bottom, layout.Status().top);
        EXPECT_LE(layout.List().right, width);
        EXPECT_LE(layout.Status().bottom, height);
        EXPECT_FALSE(layout.Plot().IsEmpty());
    }
}

TEST(HistoryLayout, GivesEachTraceAsManyLinesAsThereIsRoomFor) {
    EXPECT_EQ(HistoryLayout(800, 800, kLine, 12).LinesOfTrace(), 3);
    EXPECT_EQ(HistoryLayout(800, 560, kLine, 12).LinesOfTrace(), 2);
    EXPECT_EQ(HistoryLayout(800, 360, kLine, 12).LinesOfTrace(), 1);
    EXPECT_EQ(HistoryLayout(800, 360, kLine, 4).LinesOfTrace(), 3);
    EXPECT_EQ(HistoryLayout(800, 100, kLine, 12).LinesOfTrace(), 1);
}

TEST(HistoryLayout, FindsTheTraceAndTheMarkUnderThePointer) {
    const HistoryLayout layout(800, 800, kLine, 3);
    const PixelRect mark = layout.MarkOf(1);
    EXPECT_EQ(layout.EntryAt(mark.left, mark.top), 1);
    EXPECT_TRUE(layout.IsOnMark(1, mark.left, mark.top));
    EXPECT_FALSE(layout.IsOnMark(1, layout.LineOf(1, 0).left, mark.top));
    EXPECT_EQ(layout.EntryAt(layout.LineOf(2, 2).left, layout.LineOf(2, 2).bottom - 1), 2);
    EXPECT_FALSE(layout.EntryAt(layout.Plot().left, mark.top));
    EXPECT_FALSE(layout.EntryAt(mark.left, 700));
}

// Two traces: the first at 50 of 0..100, the second at 20.
class HistoryPictureTest : public testing::Test {
protected:
    HistoryPictureTest() {
        m_look.background = kGround;
        m_look.foreground = kText;
        m_look.traces[0] = kFirst;
        m_look.traces[1] = kSecond;
        RecordedTraces traces = test::SpeedAlone();
        traces[1] = {true, 2, 0, false, "%", "Load", 0.0, 100.0};
        m_recording.BeginStretch(traces);
        for (int i = 0; i < 60; ++i) m_recording.Add(i, {50.0, 20.0}, test::kAllDrawn);
        m_state.emplace(m_recording);
        m_state->SetPlotWidth(m_layout.Plot().Width());
    }

    void Paint() {
        m_state->Refresh();
        const auto list = ListOf(*m_state);
        TracePlotter plotter;
        const HistoryPicture picture(*m_state, m_look, m_layout, list, "a note", plotter);
        picture.Paint({m_pixels.data(), kWidth, kHeight}, picture.Client());
        m_texts = picture.Texts();
    }
    std::uint32_t At(int x, int y) const { return m_pixels[static_cast<std::size_t>(y * kWidth + x)]; }
    // On the plot, in the row of a value between 0 and 100.
    std::uint32_t AtValue(int column, double value) const {
        const PixelRect& plot = m_layout.Plot();
        return At(plot.left + column, plot.top + RowScale(0.0, 100.0, plot.Height()).RowOf(value));
    }
    const PlacedText* Find(std::string_view text) const {
        const auto found = std::ranges::find(m_texts, text, &PlacedText::text);
        return found == m_texts.end() ? nullptr : &*found;
    }

    Recording m_recording;
    std::optional<LookBack> m_state;
    HistoryLook m_look;
    HistoryLayout m_layout{kWidth, kHeight, kLine, 2};
    std::vector<std::uint32_t> m_pixels = std::vector<std::uint32_t>(kWidth * kHeight, 0xABABABAB);
    std::vector<PlacedText> m_texts;
};

TEST_F(HistoryPictureTest, CoversTheWholeWindow) {
    Paint();
    EXPECT_EQ(std::ranges::count(m_pixels, 0xABABABAB), 0);
    EXPECT_EQ(At(0, 0), PixelOf(kGround));
    EXPECT_EQ(At(kWidth - 1, kHeight - 1), PixelOf(kGround));
}

TEST_F(HistoryPictureTest, DrawsTracesAtTheirValues) {
    Paint();
    for (const int column : {0, 100, m_layout.Plot().Width() - 1}) {
        EXPECT_EQ(AtValue(column, 50.0), PixelOf(kFirst)) << column;
        EXPECT_EQ(AtValue(column, 20.0), PixelOf(kSecond)) << column;
    }
}

TEST_F(HistoryPictureTest, LeavesOutWhatIsHidden) {
    m_state->ToggleHidden(0);
    Paint();
    EXPECT_NE(AtValue(101, 50.0), PixelOf(kFirst));
    EXPECT_EQ(AtValue(101, 20.0), PixelOf(kSecond));
}

TEST_F(HistoryPictureTest, FadesWhatIsNotInFront) {
    m_state->ToggleFront(1);
    Paint();
    EXPECT_EQ(AtValue(101, 20.0), PixelOf(kSecond));
    EXPECT_NE(AtValue(101, 50.0), PixelOf(kFirst));
    EXPECT_NE(AtValue(101, 50.0), PixelOf(kGround));
}

TEST_F(HistoryPictureTest, PutsTheTraceInFrontOverTheOthers) {
    test::Record(m_recording, {});
    m_recording.Add(60.0, {20.0, 20.0}, test::kAllDrawn);
    m_recording.Add(61.0, {20.0, 20.0}, test::kAllDrawn);
    m_state->Refresh();
    m_state->ToggleFront(0);
    m_state->ShowAll();
    Paint();
    EXPECT_EQ(AtValue(m_layout.Plot().Width() - 1, 20.0), PixelOf(kFirst));
}

TEST_F(HistoryPictureTest, DrawsTheCursors) {
    m_state->PointAt(123);
    Paint();
    EXPECT_EQ(AtValue(123, 77.0), PixelOf(kText));
    m_state->Fix(0);
    m_state->FixSecond(m_layout.Plot().Width() / 2);
    Paint();
    EXPECT_EQ(AtValue(0, 77.0), PixelOf(kText));
    const double second = m_state->View().ColumnOf(m_recording.Seconds(*m_state->Second()));
    EXPECT_EQ(AtValue(static_cast<int>(second), 77.0), PixelOf(kText));
}

TEST_F(HistoryPictureTest, WritesTheScaleOfTheFirstTraceInItsColour) {
    Paint();
    ASSERT_TRUE(Find("100"));
    EXPECT_EQ(Find("100")->colour, kFirst);
    EXPECT_EQ(Find("100")->side, PlacedText::Side::Right);
    ASSERT_TRUE(Find("0"));
    m_state->ToggleFront(1);
    Paint();
    EXPECT_EQ(Find("100")->colour, kSecond);
}

TEST_F(HistoryPictureTest, ListsNamesValuesAndExtents) {
    Paint();
    for (const char* text : {"Speed", "50 /min", "50 \x85 50", "Load", "20 %"})
        EXPECT_TRUE(Find(text)) << text;
}

TEST_F(HistoryPictureTest, TellsTheTimesOfTheCursorsAndItsNote) {
    Paint();
    EXPECT_TRUE(Find("a note"));
    m_state->Fix(0);
    Paint();
    EXPECT_TRUE(Find("0.00     a note"));
    m_state->StepSecond(10);
    Paint();
    EXPECT_TRUE(Find("0.00     diff 10.00 s     a note"));
}

TEST_F(HistoryPictureTest, HintsAtTheMouseWhereThereIsRoom) {
    constexpr const char* kHint = "wheel: zoom   drag: move   click: fix   Shift+click: compare";
    Paint();
    ASSERT_TRUE(Find(kHint));
    EXPECT_LE(Find("a note")->place.right, Find(kHint)->place.right - 380);
    m_layout = HistoryLayout(700, kHeight, kLine, 2);
    TracePlotter plotter;
    const HistoryPicture narrow(*m_state, m_look, m_layout, {}, "a note", plotter);
    m_texts = narrow.Texts();
    EXPECT_FALSE(Find(kHint));
}

TEST_F(HistoryPictureTest, MarksWhereASlotGetsAnotherField) {
    RecordedTraces other = test::SpeedAlone();
    other[1] = {true, 5, 0, false, "mg", "Air", 0.0, 100.0};
    m_recording.BeginStretch(other);
    for (int i = 60; i < 120; ++i) m_recording.Add(i, {50.0, 20.0}, test::kAllDrawn);
    m_state->ShowAll();
    m_state->Refresh();
    Paint();
    const int column = static_cast<int>(m_state->View().ColumnOf(60.0));
    EXPECT_NE(AtValue(column, 77.0), PixelOf(kGround));
    EXPECT_EQ(AtValue(column + 1, 77.0), PixelOf(kGround));
    EXPECT_TRUE(Find("Air"));
}

TEST_F(HistoryPictureTest, TakesItsLookFromThePreferences) {
    Prefs prefs;
    prefs.backColor = 0x01112233;  // a byte too many, as a file may have it
    prefs.lineColor[11] = 0x445566;
    prefs.thickness = 0;
    EXPECT_EQ(LookOf(prefs).background, 0x112233U);
    EXPECT_EQ(LookOf(prefs).traces[11], 0x445566U);
    EXPECT_EQ(LookOf(prefs).thickness, 1);
    prefs.thickness = 2'000'000'000;
    EXPECT_EQ(LookOf(prefs).thickness, 10);
}

TEST(PlacedText, ReachesAsFarAsItsLettersMayAndNotOutOfItsPlace) {
    constexpr PixelRect kPlace{100, 20, 300, 35};
    using Side = PlacedText::Side;
    const auto reach = [&](const char* text, Side side) { return PlacedText{text, kPlace, side}.Reach(); };
    EXPECT_EQ(reach("1234", Side::Left), (PixelRect{100, 20, 100 + 4 * 15 + 2, 35}));
    EXPECT_EQ(reach("1234", Side::Right), (PixelRect{300 - 4 * 15 - 2, 20, 302, 35}));
    EXPECT_EQ(reach("1234", Side::Centre), (PixelRect{100, 20, 302, 35}));
    for (const Side side : {Side::Left, Side::Right})
        EXPECT_EQ(reach("twenty letters, wide", side), (PixelRect{100, 20, 302, 35}));
}

TEST(HistoryPicture, IsWholeWithoutSamplesAndInAnyWindow) {
    Recording recording;
    LookBack state(recording);
    for (const auto& [width, height] :
         {std::pair(1, 1), std::pair(90, 40), std::pair(300, 20), std::pair(400, 300)}) {
        const HistoryLayout layout(width, height, kLine, 0);
        state.SetPlotWidth(layout.Plot().Width());
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width * height));
        TracePlotter plotter;
        const HistoryPicture picture(state, LookOf(Prefs{}), layout, {}, "", plotter);
        picture.Paint({pixels.data(), width, height}, picture.Client());
    }
    test::Record(recording, {1.0});
    state.Refresh();
    const HistoryLayout layout(60, 30, kLine, 1);
    state.SetPlotWidth(layout.Plot().Width());
    const auto list = ListOf(state);
    std::vector<std::uint32_t> pixels(60 * 30);
    TracePlotter plotter;
    HistoryPicture(state, LookOf(Prefs{}), layout, list, "", plotter)
        .Paint({pixels.data(), 60, 30}, layout.Client());
}

}  // namespace
}  // namespace plotvane

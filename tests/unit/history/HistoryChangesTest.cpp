// From one picture of the window that looks back to the next, only what has changed is painted. What is seen
// must not differ from a picture that is painted whole.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "history/HistoryPicture.h"
#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 200;
constexpr int kLine = 15;

// A screen whose letters are made of the texts' bytes. A text painted over itself gives other pixels, and one
// without a background under it too.
class Screen {
public:
    void Paint(const HistoryPicture& picture, const PixelRect& part) {
        picture.Paint({m_pixels.data(), kWidth, kHeight}, part);
        for (const PlacedText& text : picture.Texts()) Write(text, part);
    }
    bool operator==(const Screen&) const = default;

private:
    void Write(const PlacedText& text, const PixelRect& part) {
        if (text.text.empty()) return;
        PixelRect seen = Intersection(Intersection(text.Reach(), part), {0, 0, kWidth, kHeight});
        const auto hash = static_cast<std::uint32_t>(std::hash<std::string>{}(text.text)) | 1U;
        for (int y = seen.top; y < seen.bottom; ++y) {
            for (int x = seen.left; x < seen.right; ++x) {
                std::uint32_t& pixel = m_pixels[static_cast<std::size_t>(y * kWidth + x)];
                pixel =
                    pixel * 31 + hash * (text.colour + 1) + static_cast<std::uint32_t>(x - text.place.left);
            }
        }
    }

    std::vector<std::uint32_t> m_pixels = std::vector<std::uint32_t>(std::size_t{kWidth} * kHeight);
};

class HistoryChangesTest : public testing::Test {
protected:
    HistoryChangesTest() {
        BeginStretch(2);
        for (int i = 0; i < 200; ++i) Add(i % 90);
        m_state.emplace(m_recording);
        FitPlot();
    }

    void BeginStretch(int group, double upper = 100.0) {
        RecordedTraces traces;
        for (std::size_t trace = 0; trace < 4; ++trace)
            traces[trace] = {true, group, static_cast<int>(trace), false, "%", "Load", 0.0, upper};
        m_recording.BeginStretch(traces);
    }
    void Add(double value) {
        m_recording.Add(m_seconds, {value, 100.0 - value, value / 2, 7.0}, test::kAllDrawn);
        m_seconds += 0.25;
    }
    void FitPlot() { m_state->SetPlotWidth(Layout().Plot().Width()); }
    HistoryLayout Layout() const {
        return {kWidth, kHeight, kLine, static_cast<int>(ListOf(*m_state).size())};
    }
    HistoryPicture Picture(TracePlotter& plotter) const {
        const std::vector<ListedTrace> list = ListOf(*m_state);
        return {*m_state, m_look, Layout(), list, m_note.empty() ? RecordedNote(*m_state) : m_note, plotter};
    }

    // Changes the screen to what is to be seen now, part by part. Gives the parts.
    std::vector<PixelRect> PaintChanges() {
        m_state->Refresh();
        HistoryPicture picture = Picture(m_plotter);
        std::vector<PixelRect> parts{picture.Client()};
        if (m_shown) parts = picture.ChangesSince(*m_shown);
        for (const PixelRect& part : parts) m_screen.Paint(picture, part);
        m_shown.emplace(std::move(picture));
        return parts;
    }
    testing::AssertionResult IsWhole() const {
        TracePlotter plotter;
        const HistoryPicture picture = Picture(plotter);
        Screen whole;
        whole.Paint(picture, picture.Client());
        if (whole == m_screen) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "the screen differs from the whole picture";
    }
    int PixelsOf(const std::vector<PixelRect>& parts) const {
        int pixels = 0;
        for (const PixelRect& part : parts) pixels += part.Width() * part.Height();
        return pixels;
    }

    Recording m_recording;
    double m_seconds = 0.0;
    std::optional<LookBack> m_state;
    HistoryLook m_look = LookOf(Prefs{});
    std::string m_note;
    TracePlotter m_plotter;
    std::optional<HistoryPicture> m_shown;
    Screen m_screen;
};

TEST_F(HistoryChangesTest, AreTheWholeWindowAtFirstAndThenNothing) {
    EXPECT_EQ(PixelsOf(PaintChanges()), kWidth * kHeight);
    EXPECT_TRUE(PaintChanges().empty());
}

TEST_F(HistoryChangesTest, AreAFewColumnsAndTextsWhereSamplesCome) {
    Add(1.0);  // the view moves on
    PaintChanges();
    for (int i = 0; i < 8; ++i) {
        Add(i);
        const std::vector<PixelRect> parts = PaintChanges();
        EXPECT_FALSE(parts.empty());
        EXPECT_LT(PixelsOf(parts), kWidth * kHeight / 4);
        EXPECT_TRUE(IsWhole());
    }
}

TEST_F(HistoryChangesTest, AreTheLinesWhereTheCursorMoves) {
    m_state->PointAt(100);
    PaintChanges();
    m_state->PointAt(130);
    const std::vector<PixelRect> parts = PaintChanges();
    const PixelRect plot = Layout().Plot();
    for (const int column : {100, 130}) {
        const PixelRect line{plot.left + column, plot.top, plot.left + column + 1, plot.bottom};
        EXPECT_EQ(std::ranges::count(parts, line), 1);
    }
    EXPECT_TRUE(IsWhole());
}

// A line keeps its new range also where it was drawn before.
TEST_F(HistoryChangesTest, TakeInTheWholeLineWhereItsRangeChanges) {
    Add(1.0);
    PaintChanges();
    BeginStretch(2, 120.0);
    Add(2.0);
    PaintChanges();
    EXPECT_TRUE(IsWhole());
}

TEST_F(HistoryChangesTest, TakeNothingOverFromAnotherRunWithTheSameTimes) {
    PaintChanges();
    m_recording.Begin("another");
    m_seconds = 0.0;
    BeginStretch(2);
    for (int i = 0; i < 200; ++i) Add(i % 7);
    PaintChanges();
    EXPECT_TRUE(IsWhole());
}

TEST_F(HistoryChangesTest, AreTheWholeWindowWhereTheLookIsAnother) {
    PaintChanges();
    m_look.thickness = 3;
    EXPECT_EQ(PixelsOf(PaintChanges()), kWidth * kHeight);
    m_look.background = 0x203040;
    EXPECT_EQ(PixelsOf(PaintChanges()), kWidth * kHeight);
    EXPECT_TRUE(IsWhole());
}

// All that keys, mouse and the drive can do, in any order.
TEST_F(HistoryChangesTest, LeaveThePictureThatIsMadeFromNothing) {
    std::mt19937 random(20);
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    const auto column = [&] { return below(Layout().Plot().Width()); };
    const std::vector<std::function<void()>> deeds{
        [&] { Add(below(120) - 10); },
        [&] {
            for (int i = below(60); i > 0; --i) Add(below(100));
        },
        [&] { m_recording.MarkGap(); },
        [&] { BeginStretch(1 + below(3)); },
        [&] { BeginStretch(2, 90.0 + below(20)); },
        [&] { m_state->PointAt(column()); },
        [&] { m_state->PointNowhere(); },
        [&] { m_state->Fix(column()); },
        [&] { m_state->FixSecond(column()); },
        [&] { m_state->StepCursor(below(5) - 2); },
        [&] { m_state->ZoomAbout(column(), below(2) == 0 ? 0.5 : 2.0); },
        [&] { m_state->MoveBy(column() / 4 - 40); },
        [&] { m_state->MoveToEnd(); },
        [&] { m_state->ShowAll(); },
        [&] { m_state->ToggleHidden(below(4)); },
        [&] { m_state->ToggleFront(below(4)); },
        [&] { m_state->PreferScaleOf(below(4)); },
        [&] { m_note = below(2) == 0 ? "saving" : ""; },
        [&] { m_look.thickness = 1 + below(4); },
    };
    constexpr int kBetweenLooks = 5;  // a whole paint takes most of the time
    for (int i = 0; i < 1500; ++i) {
        // Often a few samples and nothing else, as while data flows.
        if (below(2) == 0) {
            Add(below(100));
        } else {
            deeds[static_cast<std::size_t>(below(static_cast<int>(deeds.size())))]();
        }
        PaintChanges();
        if (i % kBetweenLooks != 0) continue;
        ASSERT_TRUE(IsWhole()) << i;
    }
}

}  // namespace
}  // namespace plotvane

// The plot of the window that looks back, pixel by pixel: where its lines end, and in which scale they stand.
#include <cstdlib>

#include "tests/support/system/LookingBack.h"
#include "tests/support/system/Records.h"

namespace plotvane::test {
namespace {

constexpr COLORREF kTrace = 0x0000FF;  // the first one's
// The line that marks where a slot gets something else to show: the grid's white, faded on black.
constexpr COLORREF kMark = RGB(89, 89, 89);

// One field, so that no other trace covers its line.
std::string OneField(const std::string& field) {
    return RecordOf("038 906 019 FT", field + ",G000,,,,G000,,,,G000,,,,");
}
const std::string kSlow = OneField("G001,F0,780,/min");
const std::string kFast = OneField("G001,F0,1780,/min");
constexpr const wchar_t* kSlowText = L"780 /min";
constexpr const wchar_t* kFastText = L"1780 /min";

const std::vector<std::pair<int, int>> kNoGaps;

class LookBackPlot : public LookingBack {
protected:
    // Opens the window with all of the drive in view.
    void OpenAll() {
        Open();
        PressHere(Ctrl('0'));
    }

    // The times in a file of saved samples, in seconds.
    std::vector<double> SavedTimes() {
        const std::filesystem::path path = session.Folder() / "times.csv";
        SaveSamples(path);
        const std::string csv = BytesOf(path);
        std::vector<double> times;
        for (std::size_t end = csv.find('\n'); end + 1 < csv.size(); end = csv.find('\n', end + 1))
            times.push_back(std::atof(csv.c_str() + end + 1));
        return times;
    }

    // Columns between two samples, while all of the drive is in view. The samples' own are none of them.
    struct Gap {
        int first;
        int last;
        int tolerance;  // times are saved in milliseconds
    };
    Gap Between(double one, double other, double first, double last) const {
        const double perSecond = HistoryPlot(history).Columns() / (last - first);
        return {static_cast<int>((one - first) * perSecond) + 1,
                static_cast<int>((other - first) * perSecond) - 1, 1 + static_cast<int>(perSecond / 1000)};
    }

    // The column that the mark covers from top to bottom; -1 if there is none.
    int MarkedColumn() const {
        const HistoryPlot plot(history);
        const auto height = static_cast<std::size_t>(plot.RowOf(0, 0, 1)) + 1;
        for (int column = 0; column < plot.Columns(); ++column) {
            if (plot.Rows(column, kMark).size() == height) return column;
        }
        return -1;
    }

    // Whether the line has one gap, and that one there.
    ::testing::AssertionResult HasOneGap(const Gap& there) const {
        const auto isThere = [&] {
            const auto gaps = HistoryPlot(history).GapsOf(kTrace);
            return gaps.size() == 1 && std::abs(gaps.front().first - there.first) <= there.tolerance &&
                   std::abs(gaps.front().second - there.last) <= there.tolerance;
        };
        return Becomes(isThere, true)
               << ", but the gaps are " << ::testing::PrintToString(HistoryPlot(history).GapsOf(kTrace))
               << ", not from " << there.first << " to " << there.last;
    }

    // After the second of four samples; at least so many seconds.
    void ExpectAGapOf(double seconds) {
        OpenAll();
        const std::vector<double> times = SavedTimes();
        ASSERT_EQ(times.size(), 4u);
        EXPECT_GT(times[2] - times[1], seconds);
        EXPECT_TRUE(HasOneGap(Between(times[1], times[2], times[0], times[3])));
    }
};

TEST_F(LookBackPlot, ALineGoesFromTheFirstColumnToTheLast) {
    StartLive();
    for (int i = 0; i < 2; ++i) {
        Send(kSlow, kSlowText);
        Send(kFast, kFastText);
    }
    OpenAll();
    EXPECT_TRUE(Becomes([this] { return HistoryPlot(history).GapsOf(kTrace); }, kNoGaps));
    const HistoryPlot plot(history);
    EXPECT_EQ(plot.Rows(0, kTrace).back(), plot.RowOf(780, 0, 6000));
    EXPECT_EQ(plot.Rows(plot.Columns() - 1, kTrace).front(), plot.RowOf(1780, 0, 6000));
}

TEST_F(LookBackPlot, APauseIsAGap) {
    StartLive();
    Send(kSlow, kSlowText);
    Send(kFast, kFastText);
    const RunButtonsSeen running = Buttons();
    Press(IDC_PAUSE);
    ASSERT_TRUE(Becomes([&] { return Buttons() == running; }, false));
    ::Sleep(500);
    Press(IDC_PAUSE);
    ASSERT_TRUE(Becomes([&] { return Buttons() == running; }, true));
    Send(kSlow, kSlowText);
    Send(kFast, kFastText);
    ExpectAGapOf(0.49);
}

TEST_F(LookBackPlot, ASilenceOfMoreThanFiveSecondsIsAGap) {
    StartLive();
    Send(kSlow, kSlowText);
    Send(kFast, kFastText);
    ::Sleep(5'300);
    Send(kSlow, kSlowText);
    Send(kFast, kFastText);
    ExpectAGapOf(5.29);
}

TEST_F(LookBackPlot, AJumpInTheTimeOfALogIsAGap) {
    std::vector<LogRowText> rows;
    for (const int second : {10, 30}) {
        for (int tenth = 0; tenth <= 10; ++tenth) {
            const int time = 10 * second + tenth;
            rows.push_back({std::to_string(time / 10) + "." + std::to_string(time % 10) + "0",
                            tenth % 2 == 0 ? "780,90.0,0,0.9" : "1240,90.0,0,0.9"});
        }
    }
    rows.push_back({"31.10", kOther});
    Start();
    for (int press = 0; press < 3; ++press) main.Click(IDC_REPLAY_FASTER);
    Load(WriteLog("x.csv", ClassicLog(rows)));
    ASSERT_TRUE(session.Shows(0, L"900 /min"));
    OpenAll();
    EXPECT_TRUE(HasOneGap(Between(11.0, 30.0, 10.0, 31.1)));
}

// The line is broken, and another one marks the place.
TEST_F(LookBackPlot, ASlotThatShowsSomethingElseBeginsAnotherLine) {
    StartLive();
    Send(kSlow, kSlowText);
    Send(kFast, kFastText);
    Send(OneField("G003,F0,40,%"), L"40 %");
    Send(OneField("G003,F0,60,%"), L"60 %");
    OpenAll();
    const std::vector<double> times = SavedTimes();
    ASSERT_EQ(times.size(), 4u);
    Gap gap = Between(times[1], times[2], times[0], times[3]);
    EXPECT_TRUE(Becomes([this] { return MarkedColumn() < 0; }, false));
    EXPECT_NEAR(MarkedColumn(), gap.last + 1, gap.tolerance);
    gap.last = MarkedColumn();  // it covers the first sample
    EXPECT_TRUE(HasOneGap(gap));
}

// Who widens a range sees all of the line in it.
TEST_F(LookBackPlot, ANewRangeBreaksNothingAndHoldsForAllOfTheLine) {
    StartLive();
    Send(kSlow, kSlowText);
    Send(kFast, kFastText);
    main.Type(IDC_SCALE_MAX, L"3560");
    main.Focus(IDC_SHIFT_UP);
    Send(kSlow, kSlowText);
    Send(kFast, kFastText);
    OpenAll();
    EXPECT_TRUE(Becomes([this] { return HistoryPlot(history).GapsOf(kTrace); }, kNoGaps));
    const HistoryPlot plot(history);
    EXPECT_EQ(plot.Rows(0, kTrace).back(), plot.RowOf(780, 0, 3560));
    EXPECT_EQ(plot.Rows(plot.Columns() - 1, kTrace).front(), plot.RowOf(1780, 0, 3560));
}

}  // namespace
}  // namespace plotvane::test

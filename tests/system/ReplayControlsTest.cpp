// The box "Time- Speed", and the fuel buttons that lie below it.
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

constexpr COLORREF kFirstTraceColour = 0x0000FF;

class ReplayControls : public Replay {
protected:
    void SetUp() override { Start(); }
    std::wstring Speed() const { return main.Text(IDC_REPLAY_SPEED); }
};

TEST_F(ReplayControls, TheSpeedDoublesUpToEight) {
    EXPECT_EQ(Speed(), L"1x");
    for (const wchar_t* speed : {L"2x", L"4x", L"8x", L"8x"}) {
        main.Click(IDC_REPLAY_FASTER);
        EXPECT_EQ(Speed(), speed);
    }
}

TEST_F(ReplayControls, TheSpeedHalvesDownToAHalf) {
    for (const wchar_t* speed : {L"0.5x", L"0.5x"}) {
        main.Click(IDC_REPLAY_SLOWER);
        EXPECT_EQ(Speed(), speed);
    }
    main.Click(IDC_REPLAY_FASTER);
    EXPECT_EQ(Speed(), L"1x");
}

TEST_F(ReplayControls, TheSpeedIsShownBesideTheTimeAndNotInItsPlace) {
    Load(WriteLog("x.csv", LogThatLingersAt(kDriving)));
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    ASSERT_TRUE(Becomes([this] { return main.Text(IDC_ELAPSED); }, L"0.04"));
    main.Click(IDC_REPLAY_SLOWER);
    EXPECT_EQ(Speed(), L"0.5x");
    EXPECT_EQ(main.Text(IDC_ELAPSED), L"0.04");
}

TEST_F(ReplayControls, ANewSpeedIsInForceAtOnce) {
    Load(WriteLog("x.csv", LogThatLingersAt(kDriving)));
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    for (int press = 0; press < 3; ++press) main.Click(IDC_REPLAY_FASTER);
    // 4.9 seconds of the log now take 0.6.
    EXPECT_TRUE(Becomes([this] { return session.ValueText(0); }, L"780 /min", 3000ms));
}

TEST_F(ReplayControls, TheTimeIsTheOneOfTheLog) {
    Load(WriteLog("x.csv",
                  ClassicLog({{"100.25", kIdle}, {"100.5", kIdle}, {"104.5", kDriving}, {"108", kIdle}})));
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_TRUE(Becomes([this] { return main.Text(IDC_ELAPSED); }, L"100.50"));
}

TEST_F(ReplayControls, AJumpInTimeLeavesAGapInsteadOfALongWait) {
    Load(WriteLog("x.csv", ClassicLog({{"0.01", kIdle},
                                       {"0.02", kIdle},
                                       {"0.03", kIdle},
                                       {"1000", kDriving},
                                       {"1000.1", kIdle},
                                       {"1005", kIdle}})));
    EXPECT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_TRUE(session.Shows(0, L"780 /min"));
    // The gap has thirty pixels. To its right is the new trace, with a shift of three.
    const ChartOnScreen chart(main);
    const int right = chart.PlotRight();
    EXPECT_TRUE(Becomes([&] { return chart.Rows(right - 2, kFirstTraceColour).empty(); }, false));
    for (int x = right - 30; x < right - 6; ++x)
        EXPECT_EQ(chart.Rows(x, kFirstTraceColour), std::vector<int>{}) << right - x;
    EXPECT_NE(chart.Rows(right - 38, kFirstTraceColour), std::vector<int>{});
}

// They overlap in the window.
TEST_F(ReplayControls, SpeedAndFuelButtonsBothWork) {
    Load(WriteLog("x.csv", LogThatLingersAt(kDriving)));
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_TRUE(main.IsShown(IDC_MILEAGE));
    EXPECT_TRUE(main.IsShown(IDC_CONSUMPTION));
    main.Click(IDC_REPLAY_FASTER);
    EXPECT_EQ(Speed(), L"2x");
    main.Click(IDC_MILEAGE);
    EXPECT_TRUE(HasDialog());
}

TEST_F(ReplayControls, TheFuelButtonsStillFollowAfterAHold) {
    Load(WriteLog("x.csv", LogThatLingersAt(kDriving)));
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    Press(IDC_PAUSE);
    Press(IDC_PAUSE);
    for (int press = 0; press < 3; ++press) main.Click(IDC_REPLAY_FASTER);
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(main.IsShown(IDC_MILEAGE));
}

TEST_F(ReplayControls, ALogFromElsewhereLeavesTheRangesInTheirFolder) {
    std::filesystem::create_directories(session.Folder() / "elsewhere");
    const auto log = session.Folder() / "elsewhere" / "x.csv";
    WriteBytes(log, LogThatLingersAt(kDriving));
    Load(log);
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_TRUE(session.Closes());
    EXPECT_TRUE(std::filesystem::exists(session.Scaling("038-906-019-FT.SCL")));
    EXPECT_FALSE(std::filesystem::exists(session.Folder() / "elsewhere" / "Scaling"));
}

}  // namespace
}  // namespace plotvane::test

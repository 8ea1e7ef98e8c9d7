// Load, Stop and Pause in each state: what the buttons offer, and what they do.
#include "tests/support/system/Replay.h"

#include <dlgs.h>

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

constexpr COLORREF kFirstTraceColour = 0x0000FF;

// A replay that is over at once.
const std::string kShortLog = ClassicLog({{"0.01", kIdle}, {"0.02", kDriving}});

class ReplayStates : public Replay {
protected:
    void SetUp() override {
        Start();
        m_atRest = Buttons();
    }

    // Plays up to the row after which nothing happens for long.
    void PlayUpToTheLongPause() {
        Load(WriteLog("x.csv", LogThatLingersAt(kDriving)));
        ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    }
    void PlayToTheEnd() {
        Load(WriteLog("x.csv", kShortLog));
        ASSERT_TRUE(session.Shows(0, L"1240 /min"));
        ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
        ASSERT_TRUE(main.Answers(5000ms));  // the handler is over, so the file is closed
    }
    bool IsPlaying() const { return Buttons().stopImage != m_atRest.stopImage; }

    // The replay is stopped: the user can only start over or load another log.
    void ExpectStartingOverIsOffered() {
        EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
        const RunButtonsSeen seen = Buttons();
        EXPECT_FALSE(seen.stopEnabled);
        EXPECT_TRUE(seen.pauseEnabled);
        EXPECT_TRUE(seen.loadEnabled);
        EXPECT_EQ(seen.stopImage, m_atRest.stopImage);
        EXPECT_EQ(seen.loadImage, m_atRest.loadImage);
        EXPECT_NE(seen.pauseImage, m_atRest.pauseImage);
        EXPECT_EQ(main.Text(IDC_ELAPSED), L"0.00");
    }

    RunButtonsSeen m_atRest;
};

TEST_F(ReplayStates, BeforeAnyLogOnlyLoadIsOffered) {
    for (const int id : {IDC_STOP, IDC_PAUSE, IDC_LOAD_LOG}) EXPECT_TRUE(main.IsShown(id)) << id;
    EXPECT_FALSE(m_atRest.stopEnabled);
    EXPECT_FALSE(m_atRest.pauseEnabled);
    EXPECT_TRUE(m_atRest.loadEnabled);
}

TEST_F(ReplayStates, WhileALogPlaysItCanBeStoppedAndHeld) {
    PlayUpToTheLongPause();
    const RunButtonsSeen seen = Buttons();
    EXPECT_TRUE(seen.stopEnabled);
    EXPECT_TRUE(seen.pauseEnabled);
    EXPECT_NE(seen.stopImage, m_atRest.stopImage);
    EXPECT_NE(seen.loadImage, m_atRest.loadImage);
}

TEST_F(ReplayStates, WhileALogPlaysLoadIsIgnored) {
    PlayUpToTheLongPause();
    main.PostClick(IDC_LOAD_LOG);
    EXPECT_TRUE(main.Answers(5000ms));  // after the click
    EXPECT_FALSE(HasDialog());
    EXPECT_TRUE(IsPlaying());
}

TEST_F(ReplayStates, PauseOffersToGoOnAndPauseAgainToHold) {
    PlayUpToTheLongPause();
    const RunButtonsSeen playing = Buttons();
    Press(IDC_PAUSE);
    RunButtonsSeen held;
    EXPECT_TRUE(Becomes(
        [&] {
            held = Buttons();
            return held.pauseImage != playing.pauseImage;
        },
        true));
    held.pauseImage = playing.pauseImage;
    EXPECT_EQ(held, playing) << "nothing else changes";
    Press(IDC_PAUSE);
    EXPECT_TRUE(Becomes([this] { return Buttons(); }, playing));
}

TEST_F(ReplayStates, AHeldReplayDrawsNothingAndAResumedOneLeavesAGap) {
    PlayUpToTheLongPause();
    const ChartOnScreen chart(main);
    const int right = chart.PlotRight();
    const int row = chart.RowOf(780, 0, 6000);
    // The level stretch up to the fourth row, just left of where the fifth rises.
    ASSERT_TRUE(Becomes([&] { return chart.Rows(right - 5, kFirstTraceColour); }, std::vector<int>{row}));
    Press(IDC_PAUSE);
    EXPECT_TRUE(
        Stays([&] { return chart.Rows(right - 5, kFirstTraceColour); }, std::vector<int>{row}, 200ms));
    Press(IDC_PAUSE);
    EXPECT_TRUE(Becomes([&] { return chart.Rows(right - 35, kFirstTraceColour); }, std::vector<int>{row}));
    for (int x = right - 29; x < right; ++x)
        EXPECT_EQ(chart.Rows(x, kFirstTraceColour), std::vector<int>{}) << right - x;
}

TEST_F(ReplayStates, StopEndsTheReplayAndOffersToStartOver) {
    PlayUpToTheLongPause();
    Press(IDC_STOP);
    ExpectStartingOverIsOffered();
    EXPECT_EQ(session.ValueText(0), L"1240 /min") << "the last values stay";
    EXPECT_TRUE(
        Becomes([this] { return std::filesystem::exists(session.Scaling("038-906-019-FT.SCL")); }, true));
}

TEST_F(ReplayStates, StopWorksInAHoldToo) {
    PlayUpToTheLongPause();
    const ChartOnScreen chart(main);
    const int row = chart.RowOf(780, 0, 6000);
    Press(IDC_PAUSE);
    Press(IDC_STOP);
    ExpectStartingOverIsOffered();
    EXPECT_TRUE(
        Becomes([&] { return chart.Rows(chart.PlotRight() - 5, kFirstTraceColour); }, std::vector<int>{row}))
        << "and leaves no gap";
}

TEST_F(ReplayStates, AfterAStopTheSameLogIsReplayedFromItsFirstRowWithoutAsking) {
    PlayUpToTheLongPause();
    Press(IDC_STOP);
    ExpectStartingOverIsOffered();
    // Another log under the same name shows that the program reads the file again.
    WriteLog("x.csv", LogThatLingersAt(kOther));
    Press(IDC_PAUSE);
    EXPECT_TRUE(session.Shows(0, L"900 /min"));
    EXPECT_FALSE(HasDialog());
    EXPECT_TRUE(IsPlaying());
    EXPECT_TRUE(main.IsEnabled(IDC_STOP));
}

TEST_F(ReplayStates, AfterAStopInAHoldTheReplayDoesNotBeginHeld) {
    PlayUpToTheLongPause();
    const RunButtonsSeen playing = Buttons();
    Press(IDC_PAUSE);
    Press(IDC_STOP);
    ExpectStartingOverIsOffered();
    WriteLog("x.csv", LogThatLingersAt(kOther));
    Press(IDC_PAUSE);
    EXPECT_TRUE(session.Shows(0, L"900 /min"));
    EXPECT_EQ(Buttons(), playing);
}

TEST_F(ReplayStates, AfterAStopAnotherLogCanBeLoaded) {
    PlayUpToTheLongPause();
    Press(IDC_STOP);
    ExpectStartingOverIsOffered();
    Load(WriteLog("y.csv", LogThatLingersAt(kOther)));
    EXPECT_TRUE(session.Shows(0, L"900 /min"));
    EXPECT_TRUE(Becomes([this] { return main.Text(); }, L"Plotvane   -   038-906-019-FT  -   y.csv"));
}

TEST_F(ReplayStates, AtTheEndOfTheLogTheProgramStopsByItself) {
    PlayToTheEnd();
    ExpectStartingOverIsOffered();
    EXPECT_FALSE(HasDialog());
    EXPECT_EQ(session.ValueText(0), L"1240 /min");
    // Other last values show that it plays again. Playing itself may be over before the test looks.
    WriteLog("x.csv", ClassicLog({{"0.01", kIdle}, {"0.02", kOther}}));
    Press(IDC_PAUSE);
    EXPECT_TRUE(session.Shows(0, L"900 /min"));
    ExpectStartingOverIsOffered();
}

// The dialog looks for a name without a folder in the folder in which it begins.
TEST_F(ReplayStates, TheFileDialogBeginsInTheFolderOfLogs) {
    WriteLog("x.csv", LogThatLingersAt(kDriving));
    WriteBytes(session.Folder() / "x.csv", LogThatLingersAt(kOther));
    Load("x.csv");
    EXPECT_TRUE(session.Shows(0, L"1240 /min"));
}

TEST_F(ReplayStates, TheFileDialogOffersLogsAndAllFiles) {
    Press(IDC_LOAD_LOG);
    const RemoteWindow kinds = FileDialog().Control(cmb1);
    ASSERT_EQ(kinds.Send(CB_GETCOUNT), 2);
    const auto kind = [&](WPARAM index) {
        std::wstring text(static_cast<std::size_t>(kinds.Send(CB_GETLBTEXTLEN, index)) + 1, L'\0');
        kinds.Send(CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        return text;
    };
    EXPECT_EQ(kind(0), L"Diagnel logs (*.csv)");
    EXPECT_EQ(kind(1), L"All Files (*.*)");
    EXPECT_EQ(kinds.Send(CB_GETCURSEL), 0);
    FileDialog().PostClick(IDCANCEL);
}

TEST_F(ReplayStates, ACancelledDialogAtTheStartLeavesOnlyLoad) {
    Press(IDC_LOAD_LOG);
    FileDialog().PostClick(IDCANCEL);
    EXPECT_TRUE(Becomes([this] { return HasDialog(); }, false));
    EXPECT_EQ(Buttons(), m_atRest);
}

TEST_F(ReplayStates, ACancelledDialogGivesUpTheLogBefore) {
    PlayToTheEnd();
    Press(IDC_LOAD_LOG);
    FileDialog().PostClick(IDCANCEL);
    EXPECT_TRUE(Becomes([this] { return Buttons(); }, m_atRest));
    EXPECT_EQ(session.ValueText(0), L"1240 /min");
}

TEST_F(ReplayStates, AFileThatIsGoneIsReportedAndCanBeTriedAgain) {
    PlayToTheEnd();
    const auto log = session.Folder() / "LOGS" / "x.csv";
    std::filesystem::rename(log, session.Folder() / "kept.csv");
    const RunButtonsSeen before = Buttons();
    Press(IDC_PAUSE);
    ConfirmMessage(L"Sorry, can't open this file.", L"Error");
    EXPECT_TRUE(Becomes([this] { return ::IsWindowEnabled(main.Get()) != FALSE; }, true));
    EXPECT_EQ(Buttons(), before) << "the program offers the same again";
    EXPECT_FALSE(HasDialog()) << "the message comes once";

    WriteLog("x.csv", LogThatLingersAt(kOther));
    Press(IDC_PAUSE);
    EXPECT_TRUE(session.Shows(0, L"900 /min"));
    EXPECT_TRUE(IsPlaying());
}

TEST_F(ReplayStates, ClosingEndsAPlayingReplay) {
    PlayUpToTheLongPause();
    EXPECT_TRUE(session.Closes());
}

TEST_F(ReplayStates, ClosingEndsAHeldReplay) {
    PlayUpToTheLongPause();
    Press(IDC_PAUSE);
    EXPECT_TRUE(session.Closes());
}

TEST_F(ReplayStates, ClosingWhileALogIsChosenEndsTheProgramToo) {
    Press(IDC_LOAD_LOG);
    ASSERT_TRUE(FileDialog().Exists());
    main.Close();
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
}

// A log that must not start by itself.
class ReplayByHand : public Replay {
protected:
    void SetUp() override {
        std::filesystem::create_directory(session.Scaling(""));
        WriteBytes(session.Scaling("Prefs.cfg"), "Autorun=0\r\nFuelHistoryDepth=1\r\n");
        Start();
    }
};

TEST_F(ReplayByHand, HoldsAfterTheFirstRowUntilItIsResumed) {
    const RunButtonsSeen atRest = Buttons();
    Load(WriteLog("x.csv", ClassicLog({{"0.01", kIdle}, {"4.91", kDriving}, {"9.81", kIdle}})));
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(Stays([this] { return session.ValueText(0); }, L"780 /min", 500ms));
    const RunButtonsSeen held = Buttons();
    EXPECT_TRUE(held.stopEnabled);
    EXPECT_TRUE(held.pauseEnabled);
    EXPECT_NE(held.stopImage, atRest.stopImage);
    Press(IDC_PAUSE);
    EXPECT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_NE(Buttons().pauseImage, held.pauseImage);
}

TEST_F(ReplayByHand, HoldsAgainWhenItIsStartedOver) {
    Load(WriteLog("x.csv", ClassicLog({{"0.01", kIdle}, {"0.02", kDriving}, {"0.03", kIdle}})));
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    ASSERT_TRUE(Becomes([this] { return main.Text(IDC_ELAPSED); }, L"0.01"));
    Press(IDC_STOP);
    ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    WriteLog("x.csv", ClassicLog({{"0.01", kOther}, {"0.02", kDriving}}));
    Press(IDC_PAUSE);
    ASSERT_TRUE(session.Shows(0, L"900 /min"));
    EXPECT_TRUE(Stays([this] { return session.ValueText(0); }, L"900 /min", 500ms));
}

}  // namespace
}  // namespace plotvane::test

// Looking back at the drive, by mouse and keys.
#include <gtest/gtest.h>

#include "tests/support/system/LookingBack.h"
#include "tests/support/system/ProgramState.h"
#include "tests/support/system/Records.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

// The ten channels hold the number and what follows it.
std::string ChannelRecord(int number) {
    std::string record = "01-ECU,";
    for (int channel = 0; channel < 10; ++channel)
        record += "GZER,F" + std::to_string(channel) + "," + std::to_string(number + channel) + ",,";
    for (int slot = 0; slot < 8; ++slot) record += "G000,,,,";
    return record;
}

TEST_F(LookingBack, ADoubleClickOnTheChartShowsTheValuesOfTheDrive) {
    StartLive();
    Send(kFirstRecord, L"780 /min");
    Send(kSecondRecord, L"1780 /min");
    history = OpenHistory(main);
    EXPECT_TRUE(IsTitled(L"Plotvane - looking back - 038 906 019 FT"));
    // The last values in view are told while the pointer is elsewhere. The last column would tell them too,
    // but a window manager may change the size of a window that has just come, and then it is another column.
    ::SetCursorPos(0, 0);
    EXPECT_TRUE(TableHas(L"001-1\t/min\t1780\r\n"));
    ClickPlot(0);
    EXPECT_TRUE(TableHas(L"Name\tUnit\t0.00\r\n001-1\t/min\t780\r\n"));
}

TEST_F(LookingBack, CtrlHOpensItAndItsKeysAreItsOwn) {
    StartLive();
    Send(kFirstRecord, L"780 /min");
    ASSERT_TRUE(BringToFront(main));
    main.Focus(IDC_SHIFT_UP);
    PressKey(Ctrl('H'));
    history = OpenedHistory(main);
    ASSERT_TRUE(GiveKeyboard(history));
    const std::wstring shift = main.Text(IDC_SHIFT_LABEL);
    PressKey(Ctrl(VK_RIGHT));  // moves the cursor here, and the chart's shift there
    PressKey({VK_ESCAPE});
    EXPECT_TRUE(Becomes([this] { return history.Exists(); }, false));
    EXPECT_EQ(main.Text(IDC_SHIFT_LABEL), shift);
    EXPECT_TRUE(session.Closes());
}

TEST_F(LookingBack, OneClickOpensNothing) {
    StartLive();
    Send(kFirstRecord, L"780 /min");
    const RECT chart = main.Control(IDC_CHART).ScreenRect();
    ::SetCursorPos((chart.left + chart.right) / 2, (chart.top + chart.bottom) / 2);
    ::mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    EXPECT_TRUE(Stays([this] { return FindHistory(main).Exists(); }, false, 300ms));
}

TEST_F(LookingBack, TheDriveGoesOnWhileItIsOpenAndAfterIt) {
    StartLive();
    Send(kFirstRecord, L"780 /min");
    Open();
    Send(kSecondRecord, L"1780 /min");
    EXPECT_TRUE(TableHas(L"\t1780\r\n")) << "it follows";
    Key(VK_ESCAPE);
    EXPECT_TRUE(Becomes([this] { return history.Exists(); }, false));
    Send(kFirstRecord, L"780 /min");
    Open();
    Key(VK_HOME);
    ClickPlot(0);
    EXPECT_TRUE(TableHas(L"\t780\r\n"));
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(LookingBack, AReplayIsShownWithItsStamps) {
    Start();
    Load(WriteLog("drive.csv", ClassicLog({{"10.00", kIdle}, {"10.20", kDriving}, {"10.40", kOther}})));
    ASSERT_TRUE(session.Shows(0, L"900 /min"));
    Open();
    EXPECT_TRUE(TableHas(L"Name\tUnit\t10.40\r\n001-1\t/min\t900\r\n"));
    ClickPlot(0);
    EXPECT_TRUE(TableHas(L"Name\tUnit\t10.00\r\n001-1\t/min\t780\r\n"));
}

TEST_F(LookingBack, AnotherModuleBeginsAfresh) {
    StartLive();
    Send(kFirstRecord, L"780 /min");
    Open();
    const RunButtonsSeen running = Buttons();
    session.Host().StopSending();
    ASSERT_TRUE(Becomes([&] { return Buttons() == running; }, false)) << "it has stopped";
    main.PostClick(IDC_PAUSE);
    Send(RecordOf("1J0 907 379", "G001,F0,12,km/h,G000,,,,G000,,,,G000,,,,"), L"12 km/h");
    EXPECT_TRUE(IsTitled(L"Plotvane - looking back - 1J0 907 379"));
    EXPECT_EQ(TableOf(history), L"Name\tUnit\t0.00\r\n001-1\tkm/h\t12\r\n");
}

TEST_F(LookingBack, TenChannelsAreShown) {
    StartLive();
    session.Host().SendRecord(ChannelRecord(100));
    ASSERT_TRUE(Becomes([this] { return main.Text(IDC_CHANNEL_VALUE_FIRST + 9); }, L"109"));
    Open();
    const std::wstring table = TableOf(history);
    EXPECT_TRUE(table.starts_with(L"Name\tUnit\t0.00\r\nField#1\t\t100\r\n"))
        << ::testing::PrintToString(table);
    EXPECT_TRUE(table.ends_with(L"Field#10\t\t109\r\n"));
}

TEST_F(LookingBack, SamplesAndPictureAreSaved) {
    StartLive();
    Send(kFirstRecord, L"780 /min");
    Send(kSecondRecord, L"1780 /min");
    Open();
    SaveSamples(session.Folder() / "drive.csv");
    SavePicture(session.Folder() / "drive.png");
    const std::string csv = BytesOf(session.Folder() / "drive.csv");
    EXPECT_TRUE(
        csv.starts_with("Time (s),001-1 (/min),001-2 (\xC2\xB0"
                        "C),001-3 (km/h),001-4 (l/h)\r\n0.000,780,90,50,4.2\r\n"))
        << csv;
    EXPECT_TRUE(csv.ends_with(",1780,91,51,5.2\r\n")) << csv;
    EXPECT_EQ(BytesOf(session.Folder() / "drive.png").substr(0, 4), "\x89PNG");
}

TEST_F(LookingBack, APointerThatRestsOnTheChartIsToldTheValuesThere) {
    StartLive();
    Send(kFirstRecord, L"780 /min");
    Send(kSecondRecord, L"1780 /min");
    const auto told = [] {
        const RemoteWindow tip(::FindWindowW(L"PlotvaneReadOut", nullptr));
        return tip.IsShown() ? tip.Text() : std::wstring();
    };
    const RECT chart = main.Control(IDC_CHART).ClientScreenRect();
    const int newest = chart.right - 11;  // the plot keeps ten pixels from the edge
    ::SetCursorPos(newest - 30, chart.top + 60);
    ::SetCursorPos(newest, chart.top + 60);
    EXPECT_TRUE(
        Becomes([&] { return told().substr(0, 42); }, L"0.00 s before the newest\r\n001-1: 1780 /min"));
    ::mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    EXPECT_TRUE(Becomes(told, L""));
    ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    EXPECT_TRUE(Becomes([&] { return told().empty(); }, false)) << "it still rests there";
    ::SetCursorPos(0, 0);
    EXPECT_TRUE(Becomes(told, L""));
}

TEST_F(LookingBack, AWindowThatFollowsALiveDriveKeepsNobodyWaiting) {
    StartLive();
    {
        const Feed feed = Feed::Records(session.Host());
        ASSERT_TRUE(session.Shows(0, DriveText(5)));
        Open();
        AnswerWatch watch(main.Get());
        const int sent = feed.Sent();
        EXPECT_TRUE(Becomes([&] { return feed.Sent() > sent + 60; }, true));
        EXPECT_TRUE(AnsweredPromptly(watch));
        EXPECT_TRUE(session.Shows(0, DriveText(feed.Sent())));
    }
    EXPECT_TRUE(ClosesPromptly(session));
}

class LookingBackIn : public AnyState, public ::testing::WithParamInterface<ProgramState> {};

TEST_P(LookingBackIn, EveryStateOpensClosesAndEndsTheProgram) {
    Enter(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    const RemoteWindow first = OpenHistory(main);
    first.Send(WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_TRUE(Becomes([&] { return first.Exists(); }, false));
    EXPECT_TRUE(KeepsAnswering(main, 200ms));
    OpenHistory(main);
    EXPECT_TRUE(ClosesPromptly(session));
}

INSTANTIATE_TEST_SUITE_P(States, LookingBackIn, ::testing::ValuesIn(kProgramStates),
                         [](const auto& instance) { return NameOf(instance.param); });

}  // namespace
}  // namespace plotvane::test

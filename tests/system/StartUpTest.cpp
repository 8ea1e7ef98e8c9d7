#include <gtest/gtest.h>

#include <vector>

#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

TEST(StartUp, ASecondCopyEndsSilently) {
    Session first;
    first.Start();
    ASSERT_TRUE(first.Main().Exists());

    Session second;
    second.Start();
    // It must never show a window before it ends.
    EXPECT_TRUE(Becomes(
        [&] {
            EXPECT_TRUE(WindowsOf(second.Process().Id()).empty());
            return second.Process().Running();
        },
        false));
    EXPECT_TRUE(first.Process().Running());
    EXPECT_FALSE(std::filesystem::exists(second.Scaling("")));
}

TEST(StartUp, ACopyStartedAfterTheFirstHasEndedRuns) {
    {
        Session first;
        first.Start();
        EXPECT_TRUE(first.Closes());
    }
    Session second;
    second.Start();
    EXPECT_TRUE(second.Main().Exists());
}

TEST(StartUp, TheTitleHintShrinksFrom14To0AndThenTheTitleStands) {
    Session session;
    session.Start();
    const RemoteWindow main = session.Main();

    std::vector<std::wstring> hints;
    auto lastLook = std::chrono::steady_clock::now();
    auto longestGap = 0ms;
    EXPECT_TRUE(Becomes(
        [&] {
            const std::wstring title = main.Text();
            const auto now = std::chrono::steady_clock::now();
            longestGap =
                std::max(longestGap, std::chrono::duration_cast<std::chrono::milliseconds>(now - lastLook));
            lastLook = now;
            if (title.starts_with(L"<=") && (hints.empty() || hints.back() != title)) hints.push_back(title);
            return hints.empty() ? L"(no hint yet)" : title;
        },
        L"Plotvane v1.9f"));

    std::vector<std::wstring> expected;
    for (std::size_t count = 15; count-- > 0;) {
        expected.push_back(L"<=" + std::wstring(count, L'=') + L"Click icon for preferences");
    }
    // Each step shows for 100 ms. This process can miss one only if it did not get to run for that long.
    if (longestGap < 80ms) {
        EXPECT_EQ(hints, expected);
    } else {
        EXPECT_TRUE(
            std::includes(expected.begin(), expected.end(), hints.begin(), hints.end(), std::greater<>()))
            << ::testing::PrintToString(hints);
        EXPECT_GE(hints.size(), 5u);
    }
    EXPECT_TRUE(Stays([&] { return main.Text(); }, std::wstring(L"Plotvane v1.9f"), 500ms))
        << "the hint shows once";
}

// The ids of the template, and those of the chart and the swatches, which the program makes itself.
std::vector<int> IdsOfAllControls() {
    std::vector<int> ids = {IDC_CHART_FRAME, IDC_CHART};
    for (int id = IDC_MOVED_FIRST; id <= IDC_MOVED_LAST; ++id) ids.push_back(id);
    for (int slot = 0; slot < 12; ++slot) ids.push_back(IDC_SWATCH_WINDOW_FIRST + slot);
    for (int channel = 0; channel < 10; ++channel) ids.push_back(IDC_CHANNEL_SWATCH_WINDOW_FIRST + channel);
    return ids;
}

// A program that drives this one looks for the controls as soon as it has found the window, and only once.
TEST(StartUp, TheWindowHasEveryControlFromTheFirstMoment) {
    for (int start = 0; start < 5; ++start) {
        Session session;
        session.Start();
        std::vector<RemoteWindow> windows;
        while (windows.empty() && session.Process().Running()) windows = WindowsOf(session.Process().Id());
        ASSERT_EQ(windows.size(), 1u);
        for (const int id : IdsOfAllControls()) EXPECT_TRUE(windows[0].Control(id).Exists()) << id;
        EXPECT_TRUE(Stays([&] { return windows[0].IsShown(); }, true, 300ms));
        EXPECT_TRUE(session.Closes());
    }
}

TEST(StartUp, WithoutAHostTheReplayControlsAreShown) {
    Session session;
    session.Start();
    const RemoteWindow main = session.Main();
    for (const int id : {IDC_LOAD_LOG, IDC_STOP, IDC_PAUSE, IDC_REPLAY_GROUP, IDC_REPLAY_FASTER,
                         IDC_REPLAY_SLOWER, IDC_REPLAY_SPEED, IDC_ELAPSED}) {
        EXPECT_TRUE(Becomes([&] { return main.IsShown(id); }, true)) << id;
    }
    EXPECT_TRUE(main.IsEnabled(IDC_LOAD_LOG));
    EXPECT_FALSE(main.IsEnabled(IDC_STOP));
    EXPECT_FALSE(main.IsEnabled(IDC_PAUSE));
}

// Load log file is the default button, whatever control has the focus.
TEST(StartUp, WithoutAHostEnterAsksForALog) {
    Session session;
    session.Start();
    const RemoteWindow main = session.Main();
    ASSERT_TRUE(Becomes([&] { return main.IsShown(IDC_LOAD_LOG); }, true));
    EXPECT_TRUE(Becomes([&] { return main.FocusedId(); }, IDC_SHOW_FIRST)) << "the first that can be used";
    main.Control(IDC_SHOW_FIRST).Post(WM_KEYDOWN, VK_RETURN);
    EXPECT_TRUE(Becomes([&] { return WindowsOf(main.ProcessId()).size() > 1; }, true));
}

TEST(StartUp, WithAHostPauseIsOfferedAndNothingOfTheReplay) {
    Session session;
    session.StartWithHost();
    const RemoteWindow main = session.Main();
    EXPECT_TRUE(Becomes([&] { return main.IsEnabled(IDC_PAUSE); }, true));
    EXPECT_TRUE(main.IsShown(IDC_PAUSE));
    for (const int id : {IDC_LOAD_LOG, IDC_STOP, IDC_REPLAY_GROUP, IDC_REPLAY_FASTER, IDC_REPLAY_SLOWER,
                         IDC_REPLAY_SPEED, IDC_ELAPSED}) {
        EXPECT_FALSE(main.IsShown(id)) << id;
    }
}

TEST(StartUp, BeforeAnyRecordTheBoxesAreEmptyAndTheScaleBoxesReady) {
    Session session;
    session.Start();
    const RemoteWindow main = session.Main();
    for (int slot = 0; slot < 12; ++slot) {
        EXPECT_EQ(session.ValueText(slot), L"");
        EXPECT_TRUE(main.IsShown(IDC_VALUE_FIRST + slot));
        EXPECT_FALSE(main.IsShown(IDC_FRAME_ROW_C_FIRST + slot));
        EXPECT_FALSE(main.IsShown(IDC_AIR_FUEL_FIRST + slot));
    }
    for (int channel = 0; channel < 10; ++channel)
        EXPECT_FALSE(main.IsShown(IDC_CHANNEL_VALUE_FIRST + channel));
    EXPECT_EQ(main.Text(IDC_SHIFT_LABEL), L"PixelShift:3");
    EXPECT_EQ(main.Text(IDC_VERTICAL_SCALE), L"Vertical scale");
    EXPECT_EQ(main.Text(IDC_HORIZONTAL_SCALE), L"Horizontal scale");
}

TEST(StartUp, TheMainWindowStandsInItsDefaultSize) {
    Session session;
    session.Start();
    EXPECT_EQ(session.Main().Size().cx, 634);
    EXPECT_EQ(session.Main().Size().cy, 433);
}

TEST(StartUp, TheSystemMenuOpensAbout) {
    Session session;
    session.Start();
    // The low four bits of a system command are the system's own.
    session.Main().Post(WM_SYSCOMMAND, ID_SYSMENU_ABOUT | 1);
    const RemoteWindow about = session.DialogWith(IDC_ABOUT_VERSION);
    EXPECT_TRUE(Becomes([&] { return about.Text(IDC_ABOUT_VERSION); }, L"Version 1.9f"));
    about.PostClick(IDOK);
    EXPECT_TRUE(Becomes([&] { return about.Exists(); }, false));
    EXPECT_TRUE(session.Closes());
}

}  // namespace
}  // namespace plotvane::test

// Every meter is open, somebody keeps resizing the window, starts more copies, and presses faster than the
// program can follow.
#include <random>

#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Meters.h"
#include "tests/support/system/ProgramState.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kAllMeters = 12 + 2;

class RoughHandling : public AnyState {
protected:
    // One for each slot, and the two of the fuel figures.
    void OpenEveryMeter() {
        for (int slot = 0; slot < 12; ++slot) {
            ASSERT_TRUE(Becomes([&] { return main.IsChecked(IDC_SHOW_FIRST + slot); }, true)) << slot;
            RightClick(main, IDC_SWATCH_FIRST + slot);
        }
        for (const int id : {IDC_MILEAGE, IDC_CONSUMPTION}) {
            ASSERT_TRUE(Becomes([&] { return main.IsShown(id); }, true)) << id;
            main.Click(id);
        }
        ASSERT_EQ(OpenMeters(main).size(), kAllMeters);
    }
    // Waits until the window has handled everything posted to it: posts one more press and waits for its
    // effect.
    ::testing::AssertionResult HandlesAll() {
        const std::wstring before = main.Text(IDC_SHIFT_LABEL);
        main.PostClick(before.ends_with(L":3") ? IDC_SHIFT_UP : IDC_SHIFT_DOWN);
        return Becomes(
            [&] {
                return !session.Process().Running()           ? L"the program has ended"
                       : main.Text(IDC_SHIFT_LABEL) == before ? L"not yet"
                                                              : L"handled";
            },
            std::wstring(L"handled"));
    }
    // A log with all twelve fields; the first shows "<speed> /min".
    static std::string FullLog(int speed) {
        std::string log =
            "Friday,20,November,2026,10:15:30\r\n038 906 019 FT,Engine control\r\n\r\n"
            ",Row A,'001,,,,Row B,'003,,,,Row C,'004\r\n,,,,,,,,,,,,,,,\r\n,,,,,,,,,,,,,,,\r\n"
            "mark,time, /min, km/h, l/h, V,time, %, %, %, %,time, %, %, %, %\r\n";
        for (int row = 1; row <= 400; ++row) {
            const std::string time =
                std::to_string(row / 20) + "." + std::to_string(row % 20 * 5 + 100).substr(1);
            const std::string four = "," + time + ",1,2,3," + std::to_string(row % 100);
            log.append("0,").append(time).append(",").append(std::to_string(speed)).append(",50,4.2,12");
            log.append(four).append(four).append(",\r\n");
        }
        return log;
    }
};

TEST_F(RoughHandling, AnotherLogIsLoadedWithEveryMeterOpen) {
    Start();
    Load(WriteLog("first.csv", FullLog(780)));
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    OpenEveryMeter();
    ASSERT_FALSE(HasFatalFailure());
    AnswerWatch answers(main.Get());
    Press(IDC_STOP);
    ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    Load(WriteLog("second.csv", FullLog(1240)));
    EXPECT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_EQ(OpenMeters(main).size(), kAllMeters) << "they stay";
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(RoughHandling, EveryMeterFollowsTheHostAndClosesWithTheProgram) {
    Enter(ProgramState::LiveRunning);
    OpenEveryMeter();
    ASSERT_FALSE(HasFatalFailure());
    AnswerWatch answers(main.Get());
    const int shown = std::stoi(session.ValueText(0));
    EXPECT_TRUE(Becomes([&] { return std::stoi(session.ValueText(0)) > shown + 20; }, true));
    for (const RemoteWindow& meter : OpenMeters(main)) meter.Close();
    EXPECT_TRUE(Becomes([this] { return OpenMeters(main).size(); }, 0u));
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

// Sizes from nothing to more than the screen, faster than the program can lay them out. In between the window
// is minimised and maximised.
TEST_F(RoughHandling, AWindowResizedManyTimesIsLaidOutForItsLastSize) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    const SIZE usual = main.Size();
    const RECT chartBefore = main.Control(IDC_CHART).ScreenRect();
    AnswerWatch answers(main.Get());
    constexpr unsigned kSeed = 1121;
    std::mt19937 random(kSeed);
    for (int pull = 0; pull < 60; ++pull) {
        if (pull % 30 == 7) main.Post(WM_SYSCOMMAND, SC_MINIMIZE);
        if (pull % 30 == 11) main.Post(WM_SYSCOMMAND, SC_RESTORE);
        if (pull % 30 == 17) main.Post(WM_SYSCOMMAND, SC_MAXIMIZE);
        if (pull % 30 == 21) main.Post(WM_SYSCOMMAND, SC_RESTORE);
        main.ResizeTo(static_cast<int>(random() % 1400), static_cast<int>(random() % 1100));
    }
    // The window manager follows in its own time, and may minimise or maximise the window once more
    // afterwards.
    const auto chartGrewBy = [&](int width, int height) {
        if (::IsIconic(main.Get()) || ::IsZoomed(main.Get())) main.Post(WM_SYSCOMMAND, SC_RESTORE);
        if (main.Size().cx != usual.cx + width) main.ResizeTo(usual.cx + width, usual.cy + height);
        const RECT chart = main.Control(IDC_CHART).ScreenRect();
        return std::pair(chart.right - chart.left - (chartBefore.right - chartBefore.left),
                         chart.bottom - chart.top - (chartBefore.bottom - chartBefore.top));
    };
    EXPECT_TRUE(Becomes([&] { return chartGrewBy(90, 60); }, std::pair<LONG, LONG>(90, 60)));
    EXPECT_TRUE(Becomes([&] { return chartGrewBy(0, 0); }, std::pair<LONG, LONG>(0, 0)));
    answers.Stop();
    EXPECT_LE(answers.MedianMs(), answers.BoundMs()) << "a layout is expensive, but layouts must not pile up";
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

// More presses at once than the stack has room for holds. Every second press resumes the hold that the one
// before began.
class FloodOfPauses : public RoughHandling, public ::testing::WithParamInterface<ProgramState> {};

TEST_P(FloodOfPauses, LeavesOneHoldAtMost) {
    Enter(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    const LRESULT before = Buttons().pauseImage;
    constexpr int kPresses = 3400;  // a multiple of two
    for (int press = 0; press < kPresses; ++press) main.PostClick(IDC_PAUSE);
    ASSERT_TRUE(HandlesAll());
    EXPECT_EQ(Buttons().pauseImage, before);
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

INSTANTIATE_TEST_SUITE_P(In, FloodOfPauses,
                         ::testing::Values(ProgramState::LiveRunning, ProgramState::ReplayPlaying),
                         [](const auto& info) { return NameOf(info.param); });

// Something opens a dialog or a message, again and again, although one is open already.
struct Request {
    const char* name;
    ProgramState state;
    UINT message;
    WPARAM wParam;
};

void PrintTo(const Request& request, std::ostream* out) {
    *out << request.name;
}

constexpr Request kRequests[] = {
    {"Preferences", ProgramState::LiveRunning, WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES},
    {"About", ProgramState::LiveHeld, WM_SYSCOMMAND, ID_SYSMENU_ABOUT},
    {"AboutInAReplay", ProgramState::ReplayPlaying, WM_SYSCOMMAND, ID_SYSMENU_ABOUT},
    {"Load", ProgramState::Idle, WM_COMMAND, IDC_LOAD_LOG},
    {"ReplayOfALogThatIsGone", ProgramState::ReplayEnded, WM_COMMAND, IDC_PAUSE}};

class FloodOfRequests : public RoughHandling, public ::testing::WithParamInterface<Request> {};

TEST_P(FloodOfRequests, OpensOneWindow) {
    Enter(GetParam().state);
    ASSERT_FALSE(HasFatalFailure());
    if (GetParam().state == ProgramState::ReplayEnded) {
        std::error_code ignored;
        ASSERT_TRUE(Becomes(
            [&] { return std::filesystem::remove(session.Folder() / "LOGS" / "x.csv", ignored); }, true));
    }
    const auto ask = [this] {
        for (int request = 0; request < 200; ++request) main.Post(GetParam().message, GetParam().wParam);
    };
    ask();
    ASSERT_TRUE(Becomes([this] { return WindowsOf(main.ProcessId()).size(); }, 2u));
    ask();
    EXPECT_TRUE(HandlesAll());
    EXPECT_TRUE(Stays([this] { return WindowsOf(main.ProcessId()).size(); }, 2u, 500ms));
    EXPECT_TRUE(ClosesPromptly(session));
}

INSTANTIATE_TEST_SUITE_P(For, FloodOfRequests, ::testing::ValuesIn(kRequests),
                         [](const auto& info) { return std::string(info.param.name); });

// Presses posted after a close must not start again what the close has ended: the program would go on without
// a window.
TEST_F(RoughHandling, PressesAfterACloseKeepNothingAlive) {
    for (const ProgramState state : {ProgramState::LiveRunning, ProgramState::LiveHeld}) {
        Enter(state);
        ASSERT_FALSE(HasFatalFailure());
        main.Close();
        for (int press = 0; press < 3; ++press) main.PostClick(IDC_PAUSE);
        EXPECT_TRUE(EndsPromptly(session));
        feed.reset();
    }
}

// The system's dialog for files accepts the names of devices, and opening a device could wait for ever.
TEST_F(RoughHandling, ADeviceIsNoLog) {
    Start();
    for (const auto* name : {L"COM1", L"com1.csv", L"AUX", L"NUL", L"CON", L"LPT1"}) {
        Load(name);
        ConfirmMessage(L"Sorry, can't open this file.", L"Error");
    }
    EXPECT_TRUE(KeepsAnswering(main, 100ms));
    EXPECT_TRUE(ClosesPromptly(session));
}

// The file dialog itself shows a message that there is no such file.
TEST_F(RoughHandling, TheProgramClosesOverAMessageOfTheFileDialog) {
    Start();
    Press(IDC_LOAD_LOG);
    const RemoteWindow dialog = FileDialog();
    Type(dialog, L"missing.csv");
    dialog.PostClick(IDOK);
    ASSERT_TRUE(Becomes([this] { return WindowsOf(main.ProcessId()).size(); }, 3u));
    EXPECT_TRUE(ClosesPromptly(session));
}

// An open menu has a loop of its own, in which the system dispatches the messages.
TEST_F(RoughHandling, TheProgramClosesOverAnOpenMenu) {
    for (const WPARAM opens : {WPARAM{SC_KEYMENU}, WPARAM{SC_MOUSEMENU | HTSYSMENU}}) {
        Enter(ProgramState::LiveRunning);
        ASSERT_FALSE(HasFatalFailure());
        main.Post(WM_SYSCOMMAND, opens, L' ');
        const DWORD thread = ::GetWindowThreadProcessId(main.Get(), nullptr);
        ASSERT_TRUE(Becomes(
            [&] {
                GUITHREADINFO info{};
                info.cbSize = sizeof info;
                ::GetGUIThreadInfo(thread, &info);
                return (info.flags & GUI_INMENUMODE) != 0;
            },
            true));
        EXPECT_TRUE(ClosesPromptly(session));
        feed.reset();
    }
}

// Each copy ends silently by itself, and the first one goes on undisturbed.
TEST_F(RoughHandling, CopiesStartedOverAndOverDisturbNothing) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    const DWORD first = main.ProcessId();
    AnswerWatch answers(main.Get());
    const std::wstring program = L'"' + (ProgramFolder() / "plotvane.exe").wstring() + L'"';
    for (int copy = 0; copy < 15; ++copy) {
        ChildProcess second(program, session.Folder());
        ASSERT_TRUE(Becomes(
            [&] {
                EXPECT_TRUE(WindowsOf(second.Id()).empty()) << "a copy shows a window";
                return second.Running();
            },
            false));
        EXPECT_EQ(second.ExitCode(), 0u);
    }
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_EQ(FindMainDialog().ProcessId(), first);
    EXPECT_TRUE(std::filesystem::exists(session.ExchangeFile())) << "it belongs to the first copy";
    EXPECT_FALSE(std::filesystem::exists(session.Scaling("Prefs.cfg"))) << "a copy has written it";
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test

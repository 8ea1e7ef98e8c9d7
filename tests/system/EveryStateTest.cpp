// People in a hurry press every button, and every key that ends something, in every state of the program.
#include "tests/support/system/ProgramState.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

class Pressing : public AnyState {
protected:
    // The buttons and check boxes that a person can press now: shown and enabled, and no group boxes.
    std::vector<int> PressableButtons() const {
        std::vector<int> ids;
        for (HWND child = ::GetWindow(main.Get(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
            wchar_t name[16]{};
            ::GetClassNameW(child, name, 16);
            const bool isFrame = (::GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
            if (std::wstring_view(name) == L"Button" && !isFrame && ::IsWindowVisible(child) &&
                ::IsWindowEnabled(child)) {
                ids.push_back(::GetDlgCtrlID(child));
            }
        }
        return ids;
    }

    // Presses and releases the button as a mouse does, and waits for an answer.
    ::testing::AssertionResult PressAndAnswer(int id) {
        main.Control(id).Post(BM_CLICK);
        for (int turn = 0; turn < 3; ++turn) {
            if (!main.Answers(kDeadline)) return ::testing::AssertionFailure() << "no answer after " << id;
        }
        return ::testing::AssertionSuccess();
    }

    // Cancels dialogs for choosing a log until none is left.
    ::testing::AssertionResult CancelsFileDialog() {
        return Becomes(
            [this] {
                for (const RemoteWindow& window : WindowsOf(main.ProcessId())) {
                    if (window.Text() == L"Choose a log file") window.PostClick(IDCANCEL);
                }
                return HasDialog();
            },
            false);
    }

    void PressKey(WPARAM key, LPARAM flags = 1, UINT message = WM_KEYDOWN) {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        ::GetGUIThreadInfo(::GetWindowThreadProcessId(main.Get(), nullptr), &info);
        RemoteWindow(info.hwndFocus ? info.hwndFocus : main.Get()).Post(message, key, flags);
    }
};

class EveryState : public Pressing, public ::testing::WithParamInterface<ProgramState> {};

TEST_P(EveryState, EachButtonThatChangesNoRunCanBePressed) {
    Enter(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    AnswerWatch answers(main.Get());
    int pressed = 0;
    for (const int id : PressableButtons()) {
        if (id == IDC_STOP || id == IDC_PAUSE || id == IDC_LOAD_LOG) continue;
        // Twice, so that a check box is as before.
        EXPECT_TRUE(PressAndAnswer(id)) << id;
        EXPECT_TRUE(PressAndAnswer(id)) << id;
        ++pressed;
    }
    EXPECT_GE(pressed, 4 + 12) << "at least the scale buttons and the traces";
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

// Those of Stop, Pause and Load log file that a state offers. Other tests check what they do; here nothing
// may get stuck afterwards.
struct OfferedButton {
    int id;
    const char* name;
    ProgramState state;
};

void PrintTo(const OfferedButton& button, std::ostream* out) {
    *out << button.name << NameOf(button.state);
}

constexpr OfferedButton kOfferedButtons[] = {
    {IDC_STOP, "Stop", ProgramState::ReplayPlaying},   {IDC_STOP, "Stop", ProgramState::ReplayHeld},
    {IDC_PAUSE, "Pause", ProgramState::LiveWaiting},   {IDC_PAUSE, "Pause", ProgramState::LiveRunning},
    {IDC_PAUSE, "Pause", ProgramState::LiveHeld},      {IDC_PAUSE, "Pause", ProgramState::LiveStopped},
    {IDC_PAUSE, "Pause", ProgramState::LiveMalformed}, {IDC_PAUSE, "Pause", ProgramState::ReplayPlaying},
    {IDC_PAUSE, "Pause", ProgramState::ReplayHeld},    {IDC_PAUSE, "Pause", ProgramState::ReplayEnded},
    {IDC_LOAD_LOG, "Load", ProgramState::Idle},        {IDC_LOAD_LOG, "Load", ProgramState::ReplayPlaying},
    {IDC_LOAD_LOG, "Load", ProgramState::ReplayHeld},  {IDC_LOAD_LOG, "Load", ProgramState::ReplayEnded}};

class RunButton : public Pressing, public ::testing::WithParamInterface<OfferedButton> {};

TEST_P(RunButton, LeavesNothingStuck) {
    const auto [id, name, state] = GetParam();
    Enter(state);
    ASSERT_FALSE(HasFatalFailure());
    ASSERT_TRUE(main.IsShown(id));
    ASSERT_TRUE(main.IsEnabled(id));
    AnswerWatch answers(main.Get());
    EXPECT_TRUE(PressAndAnswer(id));
    if (id != IDC_LOAD_LOG) {  // opening its dialog for files may take the system long
        EXPECT_TRUE(AnsweredPromptly(answers));
    }
    if (id == IDC_LOAD_LOG && (state == ProgramState::Idle || state == ProgramState::ReplayEnded)) {
        EXPECT_TRUE(FileDialog().Exists());
        EXPECT_TRUE(CancelsFileDialog());
    }
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

INSTANTIATE_TEST_SUITE_P(Pressing, RunButton, ::testing::ValuesIn(kOfferedButtons),
                         [](const auto& info) { return info.param.name + NameOf(info.param.state); });

TEST_P(EveryState, EscEndsNothing) {
    Enter(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    for (int press = 0; press < 3; ++press) {
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(main.Answers(kDeadline));
    }
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_P(EveryState, AltF4ClosesTheProgram) {
    Enter(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    constexpr LPARAM kWithAlt = 1 | (1 << 29);
    PressKey(VK_F4, kWithAlt, WM_SYSKEYDOWN);
    EXPECT_TRUE(EndsPromptly(session));
}

TEST_P(EveryState, EnterEndsNothing) {
    Enter(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    for (int press = 0; press < 3; ++press) {
        PressKey(VK_RETURN);
        EXPECT_TRUE(main.Answers(kDeadline));
    }
    // Enter presses the button that has the focus: Pause or Load.
    EXPECT_TRUE(CancelsFileDialog());
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

INSTANTIATE_TEST_SUITE_P(In, EveryState, ::testing::ValuesIn(kProgramStates),
                         [](const auto& info) { return NameOf(info.param); });

}  // namespace
}  // namespace plotvane::test

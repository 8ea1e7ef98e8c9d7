// The user logs off or shuts the machine down while the program runs: the program saves what a close would
// have saved.
#include <optional>

#include "tests/support/system/ProgramState.h"
#include "tests/support/system/Records.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

constexpr int kWidth = 0x300;
constexpr int kHeight = 0x200;

class SessionEnd : public AnyState {
protected:
    // Gives the window a new size, which it should have again at its next start.
    void SetSize() {
        const HWND chart = main.Control(IDC_CHART).Get();
        main.ResizeTo(kWidth, kHeight);
        ASSERT_TRUE(Becomes(
            [&] {
                const HWND now = main.Control(IDC_CHART).Get();
                return now != nullptr && now != chart;
            },
            true));
    }

    // Types the upper limit of the first field. The focus is still in its box.
    void TypeLimit() {
        // A meter that has just opened may take the focus once more.
        const auto typed = [this] {
            main.Type(IDC_SCALE_MAX, L"4711");
            return main.FocusedId();
        };
        ASSERT_TRUE(Becomes(typed, static_cast<int>(IDC_SCALE_MAX)));
        ASSERT_EQ(main.Text(IDC_SCALE_MAX), L"4711");
    }

    // Does what Windows does: asks every window of the program, then tells it, and ends the program at once.
    void EndTheSession() {
        const DWORD id = main.ProcessId();
        const Handle program(::OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id));
        for (const RemoteWindow& window : WindowsOf(id))
            EXPECT_EQ(Answer(window, WM_QUERYENDSESSION, 0), TRUE) << "a window refuses";
        EXPECT_FALSE(std::filesystem::exists(PrefsFile())) << "the question alone must change nothing";
        EXPECT_TRUE(Answer(main, WM_ENDSESSION, TRUE)) << "the window does not answer";
        ::TerminateProcess(program.Get(), 0);
        ::WaitForSingleObject(program.Get(), INFINITE);
    }

    // The window's answer; nothing if none comes in time.
    static std::optional<LRESULT> Answer(const RemoteWindow& window, UINT message, WPARAM wParam) {
        DWORD_PTR result = 0;
        if (!::SendMessageTimeoutW(window.Get(), message, wParam, 0, SMTO_NORMAL,
                                   static_cast<UINT>(kDeadline.count()), &result))
            return {};
        return static_cast<LRESULT>(result);
    }

    std::filesystem::path PrefsFile() const { return session.Scaling("Prefs.cfg"); }

    void ExpectTheSizeSaved() const {
        const std::string prefs = BytesOf(PrefsFile());
        EXPECT_NE(prefs.find("\r\nWidth=300\r\nHeight=200\r\n"), std::string::npos) << prefs;
        EXPECT_FALSE(std::filesystem::exists(session.ExchangeFile()));
    }
    void ExpectTheLimitSaved() const {
        const std::string ranges = BytesOf(session.Scaling(kScalingFile));
        EXPECT_NE(ranges.find("\r\n1,0,4711,"), std::string::npos) << ranges.substr(0, 100);
    }
};

class SessionEndInEveryState : public SessionEnd, public ::testing::WithParamInterface<ProgramState> {};

TEST_P(SessionEndInEveryState, SavesTheSize) {
    Enter(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    SetSize();
    EndTheSession();
    ExpectTheSizeSaved();
}

INSTANTIATE_TEST_SUITE_P(In, SessionEndInEveryState, ::testing::ValuesIn(kProgramStates),
                         [](const auto& info) { return NameOf(info.param); });

class SessionEndOfARun : public SessionEndInEveryState {};

TEST_P(SessionEndOfARun, SavesALimitThatIsBeingTyped) {
    Enter(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    TypeLimit();
    EndTheSession();
    ExpectTheLimitSaved();
}

INSTANTIATE_TEST_SUITE_P(In, SessionEndOfARun,
                         ::testing::Values(ProgramState::LiveRunning, ProgramState::LiveHeld,
                                           ProgramState::ReplayPlaying, ProgramState::ReplayHeld),
                         [](const auto& info) { return NameOf(info.param); });

TEST_F(SessionEnd, ThatIsCalledOffChangesNothing) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_EQ(Answer(main, WM_QUERYENDSESSION, 0), TRUE);
    EXPECT_TRUE(Answer(main, WM_ENDSESSION, FALSE));
    EXPECT_FALSE(std::filesystem::exists(PrefsFile()));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(SessionEnd, ThatLeavesTheProgramTimeEndsItInGoodOrder) {
    Enter(ProgramState::ReplayPlaying);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(Answer(main, WM_ENDSESSION, TRUE));
    EXPECT_TRUE(EndsPromptly(session));
}

struct Opened {
    WPARAM command;
    int control;  // one that only this dialog has
    const char* name;
};

void PrintTo(const Opened& dialog, std::ostream* out) {
    *out << dialog.name;
}

class SessionEndWithADialog : public SessionEnd, public ::testing::WithParamInterface<Opened> {};

TEST_P(SessionEndWithADialog, SavesSizeAndLimits) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    SetSize();
    TypeLimit();
    main.Post(WM_SYSCOMMAND, GetParam().command);
    ASSERT_TRUE(session.DialogWith(GetParam().control).Exists());
    EndTheSession();
    ExpectTheSizeSaved();
    ExpectTheLimitSaved();
}

INSTANTIATE_TEST_SUITE_P(Open, SessionEndWithADialog,
                         ::testing::Values(Opened{ID_SYSMENU_PREFERENCES, IDC_PREFS_TRACE_LIST,
                                                  "Preferences"},
                                           Opened{ID_SYSMENU_ABOUT, IDC_ABOUT_VERSION, "About"}),
                         [](const auto& info) { return std::string(info.param.name); });

// A number that Preferences would complain about, in the box that has the focus.
TEST_F(SessionEnd, WithAWrongNumberInPreferencesSavesTheSizeAndAsksNothing) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    SetSize();
    main.Post(WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES);
    const RemoteWindow dialog = session.DialogWith(IDC_PREFS_MAX_MILEAGE);
    dialog.Type(IDC_PREFS_MAX_MILEAGE, L"0");
    EndTheSession();
    ExpectTheSizeSaved();
}

// The message about it is still on the screen.
TEST_F(SessionEnd, WithAMessageOfPreferencesSavesTheSize) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    SetSize();
    main.Post(WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES);
    const RemoteWindow dialog = session.DialogWith(IDC_PREFS_MAX_MILEAGE);
    dialog.Type(IDC_PREFS_MAX_MILEAGE, L"0");
    dialog.Post(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(dialog.Control(IDC_PREFS_AUTORUN).Get()), TRUE);
    ASSERT_TRUE(Becomes([&] { return WindowsOf(main.ProcessId()).size(); }, 3u));
    EndTheSession();
    ExpectTheSizeSaved();
}

TEST_F(SessionEnd, WithTheFileDialogSavesTheSize) {
    Enter(ProgramState::Idle);
    ASSERT_FALSE(HasFatalFailure());
    SetSize();
    Press(IDC_LOAD_LOG);
    ASSERT_TRUE(FileDialog().Exists());
    EndTheSession();
    ExpectTheSizeSaved();
}

TEST_F(SessionEnd, WithAMessageSavesTheSize) {
    Enter(ProgramState::Idle);
    ASSERT_FALSE(HasFatalFailure());
    SetSize();
    Load(WriteLog("empty.csv", ""));
    ASSERT_TRUE(Becomes([this] { return HasDialog(); }, true));
    EndTheSession();
    ExpectTheSizeSaved();
}

TEST_F(SessionEnd, WithAMeterSavesSizeAndLimits) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    SetSize();
    const RECT swatch = main.Control(IDC_SWATCH_FIRST).ScreenRect();
    main.Send(WM_CONTEXTMENU, 0, MAKELPARAM(swatch.left + 2, swatch.top + 2));
    ASSERT_TRUE(Becomes([this] { return HasDialog(); }, true));
    TypeLimit();
    EndTheSession();
    ExpectTheSizeSaved();
    ExpectTheLimitSaved();
}

// Another program has the file of the ranges open at that moment.
class SessionEndWithoutRanges : public SessionEnd {
protected:
    void StartAndHoldTheRanges() {
        Enter(ProgramState::LiveRunning);
        ASSERT_FALSE(HasFatalFailure());
        SetSize();
        ASSERT_TRUE(Becomes([this] { return CanBeRead(session.Scaling(kScalingFile)); }, true));
        held.emplace(::CreateFileW(session.Scaling(kScalingFile).c_str(), GENERIC_READ, 0, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
        ASSERT_NE(held->Get(), INVALID_HANDLE_VALUE);
    }

    void CloseWithAMessage() {
        StartAndHoldTheRanges();
        ASSERT_FALSE(HasFatalFailure());
        main.Close();
        ASSERT_TRUE(Becomes([this] { return HasDialog(); }, true));
    }
    bool HasMenu() const {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        ::GetGUIThreadInfo(::GetWindowThreadProcessId(main.Get(), nullptr), &info);
        return (info.flags & GUI_INMENUMODE) != 0;
    }

    std::optional<Handle> held;
};

TEST_F(SessionEndWithoutRanges, SaysNothingAndSavesTheRest) {
    StartAndHoldTheRanges();
    ASSERT_FALSE(HasFatalFailure());
    EndTheSession();
    ExpectTheSizeSaved();
}

TEST_F(SessionEndWithoutRanges, InACloseThatWaitsForItsMessageSavesTheRest) {
    CloseWithAMessage();
    ASSERT_FALSE(HasFatalFailure());
    EndTheSession();
    ExpectTheSizeSaved();
}

// The system menu of the message box has a loop of its own.
TEST_F(SessionEndWithoutRanges, InACloseWhoseMessageHasItsMenuOpenEndsTheProgramInGoodOrder) {
    CloseWithAMessage();
    ASSERT_FALSE(HasFatalFailure());
    const RemoteWindow message(::GetLastActivePopup(main.Get()));
    message.Post(WM_SYSCOMMAND, SC_KEYMENU, L' ');
    ASSERT_TRUE(Becomes([this] { return HasMenu(); }, true));
    EXPECT_TRUE(Answer(main, WM_ENDSESSION, TRUE));
    EXPECT_TRUE(EndsPromptly(session));
    ExpectTheSizeSaved();
}

}  // namespace
}  // namespace plotvane::test

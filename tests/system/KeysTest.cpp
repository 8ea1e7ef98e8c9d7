// The keys of the main window, pressed on the machine's keyboard: in every state of the program, where they
// do something and where they do not.
#include <cmath>

#include "tests/support/system/KeyTest.h"
#include "tests/support/system/Meters.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

class KeysInEveryState : public KeyTest, public ::testing::WithParamInterface<ProgramState> {
protected:
    static bool IsLive() {
        return GetParam() >= ProgramState::LiveWaiting && GetParam() <= ProgramState::LiveMalformed;
    }
    static bool HasValues() {
        return GetParam() != ProgramState::Idle && GetParam() != ProgramState::LiveWaiting;
    }
    ::testing::AssertionResult SelectsSlot(int slot) {
        return Becomes([this] { return ShownFrames(main); }, std::vector<int>{slot});
    }
};

TEST_P(KeysInEveryState, PressTheButtonsOfTheScales) {
    EnterWithKeyboard(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    PressKey(Ctrl(VK_RIGHT));
    EXPECT_TRUE(Becomes([this] { return Shift(); }, L"PixelShift:4"));
    PressKey(Ctrl(VK_LEFT));
    EXPECT_TRUE(Becomes([this] { return Shift(); }, L"PixelShift:3"));
    PressKey({VK_NEXT});
    EXPECT_TRUE(SelectsSlot(HasValues() ? 1 : 0));
    PressKey({VK_PRIOR});
    EXPECT_TRUE(SelectsSlot(0));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

// The buttons of the speed are shown only where there is no host.
TEST_P(KeysInEveryState, ChangeTheSpeedOfReplaysOnly) {
    EnterWithKeyboard(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    for (const auto& [key, speed] :
         {std::pair(VK_F7, L"2x"), std::pair(VK_F6, L"1x"), std::pair(VK_F6, L"0.5x")}) {
        PressKey({static_cast<WORD>(key)});
        EXPECT_TRUE(HandlesAll());
        EXPECT_EQ(Speed(), IsLive() ? L"1x" : speed);
    }
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_P(KeysInEveryState, OpenTheMeterOfTheSelectedValue) {
    EnterWithKeyboard(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    ASSERT_EQ(main.IsChecked(IDC_SHOW_FIRST), HasValues());
    PressKey(Ctrl('M'));
    if (HasValues()) {
        ASSERT_TRUE(Becomes([this] { return OpenMeters(main).size(); }, 1u));
        PressKey(Ctrl('M'));  // the meter has the focus now, and keys go on working
        PressKey({VK_NEXT});
        EXPECT_TRUE(SelectsSlot(1));
        EXPECT_EQ(OpenMeters(main).size(), 1u) << "of the value that was selected before";
    } else {
        EXPECT_TRUE(HandlesAll());
        EXPECT_EQ(OpenMeters(main).size(), 0u);
    }
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_P(KeysInEveryState, OpenTheDialogs) {
    EnterWithKeyboard(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    PressKey(Ctrl(VK_OEM_COMMA));
    Cancel(session.DialogWith(IDC_PREFS_TRACE_LIST));
    ASSERT_FALSE(HasFatalFailure());
    PressKey(Ctrl('S'));
    Cancel(WindowCalled(kSaveTitle));
    ASSERT_FALSE(HasFatalFailure());
    PressKey({VK_F1});  // beside the tests there is no manual
    ConfirmMessage(L"Sorry, can't open the manual. Is manual.html beside the program?", L"Error");
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_P(KeysInEveryState, CopyThePicture) {
    EnterWithKeyboard(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    const DWORD before = ::GetClipboardSequenceNumber();
    PressKey(Ctrl('C'));
    EXPECT_TRUE(Becomes([&] { return ::GetClipboardSequenceNumber() != before; }, true));
    EXPECT_TRUE(Becomes([] { return ::IsClipboardFormatAvailable(CF_DIB) != FALSE; }, true));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_P(KeysInEveryState, EndNothingWithEscOrCtrlPause) {
    EnterWithKeyboard(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    for (const Key key : {Key{VK_ESCAPE}, Ctrl(VK_CANCEL)}) {
        PressKey(key);
        EXPECT_TRUE(HandlesAll());
    }
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

INSTANTIATE_TEST_SUITE_P(In, KeysInEveryState, ::testing::ValuesIn(kProgramStates),
                         [](const auto& info) { return NameOf(info.param); });

class Keys : public KeyTest {
protected:
    // Presses the key, which changes what the Pause button offers.
    ::testing::AssertionResult ChangesPause(Key key) {
        const LRESULT before = Buttons().pauseImage;
        PressKey(key);
        return Becomes([&] { return Buttons().pauseImage != before; }, true);
    }
    ::testing::AssertionResult IsStopped() {
        return Becomes([this] { return main.IsEnabled(IDC_STOP); }, false);
    }
};

class PauseKey : public Keys, public ::testing::WithParamInterface<WORD> {};

TEST_P(PauseKey, HoldsAndResumesLiveData) {
    EnterWithKeyboard(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(ChangesPause({GetParam()}));
    EXPECT_TRUE(ChangesPause({GetParam()}));
    EXPECT_TRUE(ComesBackToLife());
}

TEST_P(PauseKey, StartsALiveRunOverThatTheHostHasStopped) {
    EnterWithKeyboard(ProgramState::LiveStopped);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(ChangesPause({GetParam()}));
    session.Host().SendRecord(DriveRecord(7));
    EXPECT_TRUE(session.Shows(0, DriveText(7)));
}

TEST_P(PauseKey, HoldsResumesAndRepeatsAReplay) {
    EnterWithKeyboard(ProgramState::ReplayPlaying);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(ChangesPause({GetParam()}));
    EXPECT_TRUE(ChangesPause({GetParam()}));
    PressKey({VK_F5, false, true});
    EXPECT_TRUE(IsStopped());
    PressKey({GetParam()});
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, true));
}

TEST_P(PauseKey, DoesNothingWhileItsButtonIsDisabled) {
    EnterWithKeyboard(ProgramState::Idle);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(DoesNothing({GetParam()}));
}

TEST_P(PauseKey, CountsOnceHoweverLongItIsHeld) {
    EnterWithKeyboard(ProgramState::LiveHeld);
    ASSERT_FALSE(HasFatalFailure());
    const LRESULT held = Buttons().pauseImage;
    PressKey({GetParam()}, 4);
    EXPECT_TRUE(HandlesAll());
    EXPECT_NE(Buttons().pauseImage, held);
}

INSTANTIATE_TEST_SUITE_P(By, PauseKey, ::testing::Values(WORD{VK_F5}, WORD{VK_PAUSE}),
                         [](const auto& info) { return info.param == VK_F5 ? "F5" : "Pause"; });

TEST_F(Keys, ShiftF5StopsOnlyWhereThereIsAStopButton) {
    EnterWithKeyboard(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(DoesNothing({VK_F5, false, true}));
    EXPECT_TRUE(ComesBackToLife());
}

TEST_F(Keys, CtrlOLoadsALog) {
    EnterWithKeyboard(ProgramState::Idle);
    ASSERT_FALSE(HasFatalFailure());
    const auto log = WriteLog("x.csv", LogThatLingersAt(kDriving));
    PressKey(Ctrl('O'));
    Choose(log);
    EXPECT_TRUE(session.Shows(0, L"1240 /min"));
}

TEST_F(Keys, CtrlODoesNothingWhileALogPlays) {
    EnterWithKeyboard(ProgramState::ReplayHeld);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(DoesNothing(Ctrl('O')));
}

TEST_F(Keys, CtrlODoesNothingWithAHost) {
    EnterWithKeyboard(ProgramState::LiveHeld);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(DoesNothing(Ctrl('O')));
}

// F8.

class RowKey : public Keys {
protected:
    std::wstring Value() const { return session.ValueText(0); }
};

TEST_F(RowKey, ShowsOneRowOfAHeldReplay) {
    EnterWithKeyboard(ProgramState::ReplayHeld);
    ASSERT_FALSE(HasFatalFailure());
    const RunButtonsSeen held = Buttons();
    // The rows of this log are in turn one and the other.
    for (int row = 0; row < 4; ++row) {
        const std::wstring before = Value();
        PressKey({VK_F8});
        EXPECT_TRUE(Becomes([this] { return Value(); },
                            before == L"780 /min" ? L"1240 /min" : std::wstring(L"780 /min")));
        EXPECT_EQ(Buttons(), held);
    }
    const std::wstring shown = Value();
    EXPECT_TRUE(Stays([this] { return Value(); }, shown, 300ms));
    PressKey({VK_F5});
    EXPECT_TRUE(Becomes([&] { return Value() != shown; }, true));
}

TEST_F(RowKey, ShowsARowForEachPress) {
    EnterWithKeyboard(ProgramState::ReplayHeld);
    ASSERT_FALSE(HasFatalFailure());
    const double before = std::stod(main.Text(IDC_ELAPSED));
    for (int press = 0; press < 10; ++press) PressKey({VK_F8});
    const auto rowsLater = [&] {
        return static_cast<int>(std::lround((std::stod(main.Text(IDC_ELAPSED)) - before) / 0.05));
    };
    EXPECT_TRUE(Becomes(rowsLater, 10));
    EXPECT_TRUE(Stays(rowsLater, 10, 200ms));
}

class NoRowKey : public RowKey, public ::testing::WithParamInterface<ProgramState> {};

TEST_P(NoRowKey, WhereNoReplayIsHeld) {
    EnterWithKeyboard(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    const std::wstring before = Value();
    EXPECT_TRUE(DoesNothing({VK_F8}));
    EXPECT_EQ(Value(), before);
    EXPECT_TRUE(ComesBackToLife());
}

INSTANTIATE_TEST_SUITE_P(In, NoRowKey,
                         ::testing::Values(ProgramState::Idle, ProgramState::LiveWaiting,
                                           ProgramState::LiveHeld, ProgramState::LiveStopped,
                                           ProgramState::LiveMalformed, ProgramState::ReplayEnded),
                         [](const auto& info) { return NameOf(info.param); });

// Over the window.

TEST_F(Keys, DoNothingWhileAMessageIsShown) {
    EnterWithKeyboard(ProgramState::ReplayHeld);
    ASSERT_FALSE(HasFatalFailure());
    PressKey({VK_F1});
    const RemoteWindow message = session.DialogWith(kMessageText);
    ASSERT_TRUE(BringToFront(message));
    const RunButtonsSeen held = Buttons();
    const DWORD clipboard = ::GetClipboardSequenceNumber();
    for (const Key key : {Key{VK_F5}, Key{VK_F7}, Key{VK_F8}, Key{VK_NEXT}, Ctrl(VK_RIGHT), Ctrl('O'),
                          Ctrl('S'), Ctrl('M'), Ctrl(VK_OEM_COMMA), Key{VK_F1}, Key{VK_F5, false, true}})
        PressKey(key);
    PressKey({VK_RETURN});
    EXPECT_TRUE(Becomes([&] { return message.Exists(); }, false));
    TakeKeyboard();
    EXPECT_EQ(Shift(), L"PixelShift:3");
    EXPECT_EQ(Speed(), L"1x");
    EXPECT_EQ(Buttons(), held);
    EXPECT_EQ(OpenWindows(), 1u);
    EXPECT_EQ(::GetClipboardSequenceNumber(), clipboard);
}

TEST_F(Keys, OfADialogOverTheWindowAreTheDialogsAndF1) {
    EnterWithKeyboard(ProgramState::ReplayHeld);
    ASSERT_FALSE(HasFatalFailure());
    PressKey(Ctrl(VK_OEM_COMMA));
    const RemoteWindow preferences = session.DialogWith(IDC_PREFS_TRACE_LIST);
    ASSERT_TRUE(BringToFront(preferences));
    const RunButtonsSeen held = Buttons();
    for (const Key key : {Key{VK_F5}, Key{VK_F7}, Key{VK_F8}, Ctrl(VK_RIGHT), Ctrl('O'), Ctrl('S'), Ctrl('M'),
                          Key{VK_F5, false, true}})
        PressKey(key);
    PressKey({VK_F1});
    const RemoteWindow message = session.DialogWith(kMessageText);
    EXPECT_EQ(::GetWindow(message.Get(), GW_OWNER), preferences.Get());
    EXPECT_FALSE(::IsWindowEnabled(preferences.Get()));
    message.PostClick(IDOK);
    ASSERT_TRUE(Becomes([&] { return message.Exists(); }, false));
    EXPECT_TRUE(::IsWindowEnabled(preferences.Get()));
    EXPECT_FALSE(::IsWindowEnabled(main.Get()));
    EXPECT_EQ(Shift(), L"PixelShift:3");
    EXPECT_EQ(Speed(), L"1x");
    EXPECT_EQ(Buttons(), held);
    EXPECT_EQ(OpenWindows(), 2u);
    ASSERT_TRUE(BringToFront(preferences));
    PressKey({VK_ESCAPE});
    EXPECT_TRUE(Becomes([&] { return preferences.Exists(); }, false));
    EXPECT_TRUE(::IsWindowEnabled(main.Get()));
}

// The ten channels lie on the two buttons of the speed.
TEST_F(Keys, ChangeTheSpeedOfTheTenChannelsToo) {
    Start();
    std::string log =
        "Friday,20,November,2026,10:15:30\r\n038 906 019 FT,Engine control\r\n\r\n"
        ",Row A,'000,,,,,,,,,,Row B,none,,,,Row C,none\r\n,,,,,,,,,,,,,,,,,,,,,\r\n,,,,,,,,,,,,,,,,,,,,,\r\n"
        "mark,time,,,,,,,,,,,time,,,,,time,,,,\r\n";
    for (int row = 1; row <= 200; ++row)
        log += "0," + std::to_string(row) + ".00,12,128,0,0,0,0,0,0,0,0,,,,,,,,,,\r\n";
    Load(WriteLog("ten.csv", log));
    ASSERT_TRUE(Becomes([this] { return main.IsShown(IDC_CHANNEL_VALUE_FIRST); }, true));
    TakeKeyboard();
    EXPECT_FALSE(main.IsShown(IDC_REPLAY_FASTER));
    PressKey({VK_F7});
    EXPECT_TRUE(Becomes([this] { return Speed(); }, L"2x"));
    PressKey({VK_F6});
    EXPECT_TRUE(Becomes([this] { return Speed(); }, L"1x"));
    // No slot can be selected there.
    PressKey(Ctrl('M'));
    EXPECT_TRUE(HandlesAll());
    EXPECT_EQ(OpenMeters(main).size(), 0u);
}

}  // namespace
}  // namespace plotvane::test

// The keys while an edit has the focus: Max and Min, where a user types, and the boxes that only show. And
// what keys do to the limits from elsewhere.
#include "tests/support/system/Clipboard.h"
#include "tests/support/system/KeyTest.h"
#include "tests/support/system/Records.h"

namespace plotvane::test {
namespace {

constexpr COLORREF kFirstTraceColour = 0x0000FF;

class KeysInEdits : public KeyTest {
protected:
    void SetUp() override {
        session.StartWithHost();
        main = session.Main();
        SendRecord(kFirstRecord, L"780 /min");
        ASSERT_TRUE(BringToFront(main));
    }
    void SendRecord(const std::string& record, const std::wstring& shown) {
        session.Host().SendRecord(record);
        ASSERT_TRUE(session.Shows(0, shown));
        ASSERT_TRUE(Becomes([this] { return main.Text(IDC_SCALE_MAX).empty(); }, false));
    }
    void FocusOn(int id) {
        main.Focus(id);
        ASSERT_TRUE(Becomes([this] { return main.FocusedId(); }, id));
    }
    std::wstring Max() const { return main.Text(IDC_SCALE_MAX); }
    std::wstring Min() const { return main.Text(IDC_SCALE_MIN); }
    // Where the selection begins, and where it ends: after its last character.
    std::pair<int, int> Selection(int id) const {
        const LRESULT selection = main.Control(id).Send(EM_GETSEL);
        return {LOWORD(selection), HIWORD(selection)};
    }
    // What the scaling file holds after the end of the program.
    ::testing::AssertionResult Saves(const std::string& ranges) {
        if (const auto closed = session.Closes(); !closed) return closed;
        return BytesOf(session.Scaling(kScalingFile)) == ScalingBytes(3, ranges)
                   ? ::testing::AssertionSuccess()
                   : ::testing::AssertionFailure() << BytesOf(session.Scaling(kScalingFile)).substr(0, 60);
    }
};

TEST_F(KeysInEdits, EnterTakesTheNumberAndSelectsIt) {
    main.Type(IDC_SCALE_MAX, L"5000");
    PressKey({VK_RETURN});
    EXPECT_TRUE(Becomes([this] { return Selection(IDC_SCALE_MAX); }, std::pair(0, 4)));
    EXPECT_EQ(main.FocusedId(), IDC_SCALE_MAX);
    PressKey({VK_ESCAPE});  // the number taken is the old one now
    SendRecord(kSecondRecord, L"1780 /min");
    SendRecord(kFirstRecord, L"780 /min");
    session.Host().SendRecord(kFirstRecord);  // level, so that it is one row
    const ChartOnScreen chart(main);
    EXPECT_TRUE(Becomes([&] { return chart.Rows(chart.PlotRight() - 2, kFirstTraceColour); },
                        std::vector<int>{chart.RowOf(780, 0, 5000)}));
    EXPECT_EQ(Max(), L"5000");
    EXPECT_TRUE(Saves("0,5000,-10,120,0,250,0,100,"));
}

TEST_F(KeysInEdits, EnterTakesWhatIsTypedAsMinimumToo) {
    main.Type(IDC_SCALE_MIN, L"500");
    PressKey({VK_RETURN});
    EXPECT_TRUE(Becomes([this] { return Selection(IDC_SCALE_MIN); }, std::pair(0, 3)));
    EXPECT_TRUE(Saves("500,6000,-10,120,0,250,0,100,"));
}

TEST_F(KeysInEdits, EscPutsTheOldNumberBack) {
    main.Type(IDC_SCALE_MAX, L"5");
    PressKey({VK_ESCAPE});
    EXPECT_TRUE(Becomes([this] { return Max(); }, L"6000"));
    main.Type(IDC_SCALE_MIN, L"no number");
    PressKey({VK_ESCAPE});
    EXPECT_TRUE(Becomes([this] { return Min(); }, L"0"));
    EXPECT_TRUE(main.Answers(kDeadline));
    EXPECT_TRUE(Saves(kUnitRanges));
}

TEST_F(KeysInEdits, PageDownTakesTheNumberBeforeItShowsTheNextOne) {
    main.Type(IDC_SCALE_MAX, L"5000");
    PressKey({VK_NEXT});
    EXPECT_TRUE(Becomes([this] { return Max(); }, L"120"));
    EXPECT_TRUE(Becomes([this] { return Selection(IDC_SCALE_MAX); }, std::pair(0, 3))) << "to be typed over";
    main.Type(IDC_SCALE_MAX, L"130");
    PressKey({VK_PRIOR});
    EXPECT_TRUE(Becomes([this] { return Max(); }, L"5000"));
    EXPECT_TRUE(Saves("0,5000,-10,130,0,250,0,100,"));
}

TEST_F(KeysInEdits, CtrlArrowsMoveTheCaretAndNotTheChart) {
    main.Type(IDC_SCALE_MAX, L"12 34");
    PressKey(Ctrl(VK_LEFT));
    EXPECT_TRUE(Becomes([this] { return Selection(IDC_SCALE_MAX); }, std::pair(3, 3)));
    PressKey(Ctrl(VK_RIGHT));
    EXPECT_TRUE(Becomes([this] { return Selection(IDC_SCALE_MAX); }, std::pair(5, 5)));
    EXPECT_EQ(Shift(), L"PixelShift:3");
}

TEST_F(KeysInEdits, TheOtherKeysPressTheirButtons) {
    FocusOn(IDC_SCALE_MAX);
    const LRESULT running = Buttons().pauseImage;
    PressKey({VK_F5});
    EXPECT_TRUE(Becomes([&] { return Buttons().pauseImage != running; }, true));
    PressKey({VK_F5});
    EXPECT_TRUE(Becomes([&] { return Buttons().pauseImage; }, running));
    EXPECT_EQ(main.FocusedId(), IDC_SCALE_MAX);
}

// What an edit does with Ctrl and a letter it does by the character that comes of it.
TEST_F(KeysInEdits, NoKeyOfTheTableTypesACharacter) {
    FocusOn(IDC_SCALE_MAX);
    for (const WORD key : {WORD{'F'}, WORD{'M'}, WORD{VK_OEM_COMMA}}) {
        PressKey(Ctrl(key));
        if (key == VK_OEM_COMMA) session.DialogWith(IDC_PREFS_TRACE_LIST).PostClick(IDCANCEL);
    }
    EXPECT_TRUE(Becomes([this] { return ::IsWindowEnabled(main.Get()) != FALSE; }, true));
    EXPECT_EQ(Max(), L"6000");
}

TEST_F(KeysInEdits, CtrlCCopiesTheTextThatIsSelectedOrElseThePicture) {
    FocusOn(IDC_SCALE_MAX);
    main.Control(IDC_SCALE_MAX).Send(EM_SETSEL, 0, 3);
    PressKey(Ctrl('C'));
    EXPECT_TRUE(Becomes(ClipboardText, L"600"));
    main.Control(IDC_SCALE_MAX).Send(EM_SETSEL, 1, 1);
    PressKey(Ctrl('C'));
    EXPECT_TRUE(Becomes([] { return ::IsClipboardFormatAvailable(CF_DIB) != FALSE; }, true));
    EXPECT_FALSE(::IsClipboardFormatAvailable(CF_UNICODETEXT));
}

// The boxes of the values pass the focus on; the one with the time of a replay keeps it.
TEST_F(KeysInEdits, AValueBoxLeavesTheFocusToMaxAndTheKeysWork) {
    main.Focus(IDC_VALUE_FIRST + 2);
    ASSERT_TRUE(Becomes([this] { return main.FocusedId(); }, IDC_SCALE_MAX));
    PressKey({VK_NEXT});
    EXPECT_TRUE(Becomes([this] { return ShownFrames(main); }, std::vector<int>{3}));
}

TEST_F(KeysInEdits, ACheckBoxHasTheFocusAndTheKeysWork) {
    FocusOn(IDC_SHOW_FIRST + 1);
    PressKey({VK_NEXT});
    EXPECT_TRUE(Becomes([this] { return ShownFrames(main); }, std::vector<int>{1}));
    EXPECT_TRUE(HandlesAll());
    EXPECT_TRUE(main.IsChecked(IDC_SHOW_FIRST + 1));
}

// The ten channels disable Max, and no window gets the focus then. Windows sends keys as it does with Alt.
TEST_F(KeysInEdits, WithoutAnyFocusTheKeysWork) {
    FocusOn(IDC_SCALE_MAX);
    std::string record = "038 906 019 FT,";
    for (char digit = '0'; digit <= '9'; ++digit) record.append("GZER,F").append(1, digit).append(",7,,");
    for (int slot = 4; slot < 12; ++slot) record += "G000,,,,";
    session.Host().SendRecord(record);
    ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_SCALE_MAX); }, false));
    ASSERT_TRUE(Becomes([this] { return main.FocusedId(); }, 0));
    const LRESULT running = Buttons().pauseImage;
    PressKey({VK_ESCAPE});
    PressKey({VK_F5});
    EXPECT_TRUE(Becomes([&] { return Buttons().pauseImage != running; }, true));
    EXPECT_TRUE(HandlesAll());
    EXPECT_TRUE(session.Closes());
}

// Ctrl+F.

TEST_F(KeysInEdits, TheFitIsTypedForTheUser) {
    SendRecord(kSecondRecord, L"1780 /min");
    FocusOn(IDC_SHIFT_UP);
    PressKey(Ctrl('F'));
    // 780 and 1780, and fifty at each end.
    EXPECT_TRUE(Becomes([this] { return std::pair(Min(), Max()); },
                        std::pair<std::wstring, std::wstring>(L"730", L"1830")));
    SendRecord(kFirstRecord, L"780 /min");
    SendRecord(kSecondRecord, L"1780 /min");
    session.Host().SendRecord(kSecondRecord);  // level, so that it is one row
    const ChartOnScreen chart(main);
    EXPECT_TRUE(Becomes([&] { return chart.Rows(chart.PlotRight() - 2, kFirstTraceColour); },
                        std::vector<int>{chart.RowOf(1780, 730, 1830)}));
    EXPECT_TRUE(Saves("730,1830,-10,120,0,250,0,100,"));
}

TEST_F(KeysInEdits, TheFitIsForTheSelectedValue) {
    SendRecord(kSecondRecord, L"1780 /min");
    FocusOn(IDC_SHIFT_UP);
    PressKey({VK_NEXT});
    PressKey(Ctrl('F'));
    // 90 and 91 degrees: 89.95 and 91.05.
    EXPECT_TRUE(Becomes([this] { return std::pair(Min(), Max()); },
                        std::pair<std::wstring, std::wstring>(L"89", L"92")));
    EXPECT_TRUE(Saves("0,6000,89,92,0,250,0,100,"));
}

TEST_F(KeysInEdits, AFitOfEqualValuesChangesNothing) {
    FocusOn(IDC_SHIFT_UP);
    EXPECT_TRUE(DoesNothing(Ctrl('F')));
    main.Type(IDC_SCALE_MAX, L"123");
    PressKey(Ctrl('F'));
    PressKey({'4'});
    EXPECT_TRUE(Becomes([this] { return Max(); }, L"1234"));
}

class KeysInReplayBox : public KeyTest {};

TEST_F(KeysInReplayBox, OnlyItsTextIsTheBoxs) {
    EnterWithKeyboard(ProgramState::ReplayHeld);
    ASSERT_FALSE(HasFatalFailure());
    const RemoteWindow box = main.Control(IDC_ELAPSED);
    main.Focus(IDC_ELAPSED);
    ASSERT_TRUE(Becomes([this] { return main.FocusedId(); }, IDC_ELAPSED));
    box.Send(EM_SETSEL, 0, -1);
    PressKey(Ctrl('C'));
    EXPECT_TRUE(Becomes(ClipboardText, main.Text(IDC_ELAPSED)));
    PressKey(Ctrl(VK_RIGHT));
    PressKey({VK_F7});
    EXPECT_TRUE(Becomes([this] { return Speed(); }, L"2x"));
    EXPECT_EQ(Shift(), L"PixelShift:3");
    PressKey({VK_ESCAPE});
    PressKey({VK_F7});
    EXPECT_TRUE(Becomes([this] { return Speed(); }, L"4x"));
}

}  // namespace
}  // namespace plotvane::test

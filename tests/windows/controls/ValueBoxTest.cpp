#include "controls/ValueBox.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "framework/Text.h"
#include "tests/support/DegreeSign.h"
#include "tests/windows/app/MainDialogFixture.h"
#include "tests/windows/framework/TestWnd.h"

namespace plotvane::test {
namespace {

constexpr int kPlain = 5000;  // an id that the dialog has not

// A value box of the program's dialog, and beside it a plain edit of the same kind and size: what the one
// shows is what the other shows.
class ValueBoxTest : public MainDialogFixture {
public:
    explicit ValueBoxTest(int id = IDC_VALUE_FIRST) : edit(dialog.GetDlgItem(id)) {
        CRect place = PlaceOf(IDC_VALUE_FIRST + 5);
        place.right = place.left + PlaceOf(id).Width();
        ::ShowWindow(dialog.GetDlgItem(IDC_VALUE_FIRST + 5), SW_HIDE);
        plain = ::CreateWindowExW(static_cast<DWORD>(::GetWindowLongPtrW(edit, GWL_EXSTYLE)), L"EDIT", L"",
                                  WS_VISIBLE | static_cast<DWORD>(::GetWindowLongPtrW(edit, GWL_STYLE)),
                                  place.left, place.top, place.Width(), place.Height(), dialog.m_hWnd,
                                  reinterpret_cast<HMENU>(UINT_PTR{kPlain}), nullptr, nullptr);
        ::SendMessageW(plain, WM_SETFONT, static_cast<WPARAM>(::SendMessageW(edit, WM_GETFONT, 0, 0)), FALSE);
        for (const HWND each : {edit, plain})
            ::SendMessageW(each, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
        box.TakeOver(edit);
        ::SetFocus(dialog.GetDlgItem(IDC_SCALE_MAX));
        Settle();
    }
    ~ValueBoxTest() override { ::DestroyWindow(plain); }

protected:
    static void Settle() { DispatchAll(); }

    void ShowBoth(std::string_view text) {
        box.Show(text);
        dialog.SetDlgItemText(kPlain, text);
    }

    // Width, height, and every pixel of the client area as it stands on the screen.
    static std::vector<std::uint32_t> Pixels(HWND window) {
        CRect client;
        ::GetClientRect(window, &client);
        const Picture picture(client.Width(), client.Height());
        const CClientDC dc(window);
        CDC(picture.Dc()).BitBlt(0, 0, client.Width(), client.Height(), dc, 0, 0, SRCCOPY);
        std::vector<std::uint32_t> pixels{static_cast<std::uint32_t>(client.Width()),
                                          static_cast<std::uint32_t>(client.Height())};
        for (const std::uint32_t pixel : picture.Pixels()) pixels.push_back(pixel & 0xFFFFFF);
        return pixels;
    }

    struct Ink {
        int pixels = 0;
        CRect box{1000, 1000, -1, -1};
    };
    static Ink InkIn(HWND window) {
        const auto pixels = Pixels(window);
        const int width = static_cast<int>(pixels[0]);
        Ink ink;
        for (int i = 0; i + 2 < static_cast<int>(pixels.size()); ++i) {
            if (pixels[static_cast<std::size_t>(i) + 2] == pixels[2]) continue;
            ++ink.pixels;
            const CRect spot{i % width, i / width, i % width + 1, i / width + 1};
            ink.box = {std::min(ink.box.left, spot.left), std::min(ink.box.top, spot.top),
                       std::max(ink.box.right, spot.right), std::max(ink.box.bottom, spot.bottom)};
        }
        return ink;
    }

    // At once, and still after everything that is waiting to be painted was painted.
    void ExpectTheSamePixels(const std::string& what) {
        ::UpdateWindow(plain);
        EXPECT_EQ(Pixels(edit), Pixels(plain)) << what << ", at once";
        ::InvalidateRect(edit, nullptr, TRUE);
        ::InvalidateRect(plain, nullptr, TRUE);
        Settle();
        EXPECT_EQ(Pixels(edit), Pixels(plain)) << what << ", painted again";
    }

    static std::string TextOf(HWND window) {
        wchar_t text[300]{};
        ::SendMessageW(window, WM_GETTEXT, 300, reinterpret_cast<LPARAM>(text));
        return ToBytes(text);
    }

    static std::string Copied() {
        if (!::OpenClipboard(nullptr)) return "(closed)";
        const HANDLE data = ::GetClipboardData(CF_UNICODETEXT);
        const auto* text = static_cast<const wchar_t*>(::GlobalLock(data));
        std::string copied = text ? ToBytes(text) : "(nothing)";
        ::GlobalUnlock(data);
        ::CloseClipboard();
        return copied;
    }

    HWND edit;
    HWND plain = nullptr;
    CValueBox box;
};

TEST_F(ValueBoxTest, LooksAsAPlainEditDoes) {
    for (const char* text : {"780 l/h", "12.5 V", "-7 " DEGREES_C, "98.4 %", "0", "1.013e+06 Pascals", ""}) {
        ShowBoth(text);
        ExpectTheSamePixels(text);
        EXPECT_EQ(InkIn(edit).pixels > 0, *text != 0) << text;
    }
}

TEST_F(ValueBoxTest, LooksAsAPlainEditDoesWithATextThatIsTooLong) {
    for (const char* text : {"12345.6789 revolutions in all of it", "wwwwwwwwwwww", "0000000000000"}) {
        ShowBoth(text);
        ExpectTheSamePixels(text);
    }
}

// Wine's edit sets some letters, such as "m", a pixel narrower than Wine's text output does.
TEST_F(ValueBoxTest, NoTextStandsMoreThanAPixelAwayFromWhereAPlainEditHasIt) {
    for (const char* text : {"780 /min", "12.5 mg/R", "7.7 kV", "11.1 AT"}) {
        ShowBoth(text);
        ::UpdateWindow(plain);
        const Ink ours = InkIn(edit);
        const Ink theirs = InkIn(plain);
        EXPECT_EQ(ours.box.top, theirs.box.top) << text;
        EXPECT_EQ(ours.box.bottom, theirs.box.bottom) << text;
        EXPECT_NEAR(ours.box.left, theirs.box.left, 1) << text;
        EXPECT_NEAR(ours.box.right, theirs.box.right, 1) << text;
        EXPECT_NEAR(ours.pixels, theirs.pixels, theirs.pixels / 20) << text;
    }
}

// The time of a replay; its texts begin at the left.
class ElapsedBoxTest : public ValueBoxTest {
protected:
    ElapsedBoxTest() : ValueBoxTest(IDC_ELAPSED) {
        dialog.ShowDlgItem(IDC_ELAPSED, true);
        Settle();
    }
};

TEST_F(ElapsedBoxTest, LooksAsAPlainEditDoes) {
    for (const char* text : {"0.00", "12.50", "8x", "123456.78 and more", ""}) {
        ShowBoth(text);
        ExpectTheSamePixels(text);
    }
}

TEST_F(ElapsedBoxTest, ItsTextsBeginAtOnePlaceHoweverLongTheyAre) {
    std::set<LONG> lefts;
    for (const char* text : {"8", "88.88", "8888.88"}) {
        box.Show(text);
        lefts.insert(InkIn(edit).box.left);
    }
    EXPECT_EQ(lefts.size(), 1u);
    EXPECT_LT(*lefts.begin(), 5);
}

TEST_F(ValueBoxTest, LooksAsAPlainEditDoesAtEveryWidthOfItsText) {
    std::string text;
    for (int length = 1; length <= 20; ++length) {
        text += "0u8n"[length % 4];
        ShowBoth(text);
        ExpectTheSamePixels(text);
    }
}

TEST_F(ValueBoxTest, LooksAsAPlainEditDoesInAnotherSize) {
    ShowBoth("780 l/h");
    for (const int width : {43, 74, 20, 60}) {
        for (const HWND each : {edit, plain})
            ::SetWindowPos(each, nullptr, 0, 0, width, 21, SWP_NOMOVE | SWP_NOZORDER);
        Settle();
        ExpectTheSamePixels(std::to_string(width));
        ShowBoth("8" + std::to_string(width) + " l/h");
        ExpectTheSamePixels(std::to_string(width) + ", another text");
    }
}

TEST_F(ValueBoxTest, LooksAsAPlainEditDoesWhileItIsDisabled) {
    ShowBoth("780 l/h");
    for (const HWND each : {edit, plain}) ::EnableWindow(each, FALSE);
    Settle();
    ExpectTheSamePixels("disabled");
    ShowBoth("790 l/h");
    Settle();
    ExpectTheSamePixels("disabled, another text");
    for (const HWND each : {edit, plain}) ::EnableWindow(each, TRUE);
    Settle();
    ExpectTheSamePixels("enabled again");
}

TEST_F(ValueBoxTest, LooksAsAPlainEditDoesInAnotherFont) {
    const CFont font{::CreateFontW(11, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, ANSI_CHARSET,
                                   OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                   DEFAULT_PITCH | FF_SWISS, L"Arial")};
    ShowBoth("780 l/h");
    const WPARAM before = static_cast<WPARAM>(::SendMessageW(edit, WM_GETFONT, 0, 0));
    for (const WPARAM each : {reinterpret_cast<WPARAM>(font.Get()), before}) {
        for (const HWND window : {edit, plain}) ::SendMessageW(window, WM_SETFONT, each, TRUE);
        Settle();
        ExpectTheSamePixels("font");
        ShowBoth(each == before ? "79 l/h" : "78 l/h");
        ExpectTheSamePixels("font, another text");
    }
}

TEST_F(ValueBoxTest, TakesOverTheTextThatTheEditHas) {
    CValueBox other;
    ::SetWindowTextW(plain, L"8x");
    other.TakeOver(plain);
    ::UpdateWindow(plain);
    EXPECT_GT(InkIn(plain).pixels, 0);
    EXPECT_EQ(TextOf(plain), "8x");
    const auto before = Pixels(plain);
    ::InvalidateRect(plain, nullptr, TRUE);
    Settle();
    EXPECT_EQ(Pixels(plain), before);
}

TEST_F(ValueBoxTest, ItsTextIsWhatItShows) {
    for (const char* text : {"780 l/h", "-7 " DEGREES_C, ""}) {
        box.Show(text);
        EXPECT_EQ(::SendMessageW(edit, WM_GETTEXTLENGTH, 0, 0),
                  static_cast<LRESULT>(std::string(text).size()));
        box.Show("something else");
        box.Show(text);
        EXPECT_EQ(TextOf(edit), text);
        EXPECT_EQ(dialog.GetDlgItemText(IDC_VALUE_FIRST), text);
    }
}

// Screen readers and scripts ask these. Each answer is about the text on the screen, not about an earlier
// one.
TEST_F(ValueBoxTest, AnswersEveryQuestionAboutItsTextAsAPlainEditDoes) {
    struct Question {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };
    for (const Question& question :
         {Question{EM_LINELENGTH, 0, 0}, Question{EM_LINEINDEX, 0, 0}, Question{EM_LINEFROMCHAR, 5, 0},
          Question{EM_POSFROMCHAR, 5, 0}, Question{EM_CHARFROMPOS, 0, MAKELPARAM(40, 5)},
          Question{WM_GETTEXTLENGTH, 0, 0}}) {
        ShowBoth("7 V");
        EXPECT_EQ(TextOf(edit), "7 V");
        ShowBoth("780 l/h");
        EXPECT_EQ(::SendMessageW(edit, question.message, question.wParam, question.lParam),
                  ::SendMessageW(plain, question.message, question.wParam, question.lParam))
            << question.message;
    }
    ::SendMessageW(edit, EM_SETSEL, 2, 5);
    EXPECT_EQ(::SendMessageW(edit, EM_GETSEL, 0, 0), MAKELONG(2, 5));
}

TEST_F(ValueBoxTest, TellsScreenReadersThatItsValueHasChanged) {
    static HWND s_box;
    static std::vector<std::string> s_heard;
    s_box = edit;
    s_heard.clear();
    const HWINEVENTHOOK hook = ::SetWinEventHook(
        EVENT_OBJECT_VALUECHANGE, EVENT_OBJECT_VALUECHANGE, ::GetModuleHandleW(nullptr),
        [](HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD, DWORD) {
            if (window == s_box && object == OBJID_CLIENT && child == CHILDID_SELF)
                s_heard.push_back(TextOf(window));
        },
        ::GetCurrentProcessId(), ::GetCurrentThreadId(), WINEVENT_INCONTEXT);
    ASSERT_NE(hook, nullptr);
    box.Show("780 l/h");
    box.Show("780 l/h");
    box.Show("790 l/h");
    ::UnhookWinEvent(hook);
    EXPECT_EQ(s_heard, (std::vector<std::string>{"780 l/h", "790 l/h"}));
}

TEST_F(ValueBoxTest, ShowsATextThatSomebodyElseHasSet) {
    box.Show("780 l/h");
    ShowBoth("781 l/h");
    for (const HWND each : {edit, plain}) ::SetWindowTextW(each, L"600 V");
    Settle();
    ExpectTheSamePixels("set");
    ShowBoth("781 l/h");
    ExpectTheSamePixels("shown again");
    EXPECT_EQ(TextOf(edit), "781 l/h");
}

TEST_F(ValueBoxTest, WithTheFocusItIsAnEditLikeAnyOther) {
    std::vector<std::uint32_t> selected;
    std::vector<std::uint32_t> plainSelected;
    for (const HWND each : {edit, plain}) {
        box.Show("780 l/h");
        dialog.SetDlgItemText(kPlain, "780 l/h");
        ::SetFocus(each);
        ::SendMessageW(each, EM_SETSEL, 0, 3);
        Settle();
        ::HideCaret(each);
        Settle();
        (each == edit ? selected : plainSelected) = Pixels(each);
    }
    EXPECT_EQ(selected, plainSelected);

    // New values go on being shown.
    ::SetFocus(edit);
    ShowBoth("790 l/h");
    Settle();
    EXPECT_EQ(TextOf(edit), "790 l/h");
    ::SetFocus(dialog.GetDlgItem(IDC_SCALE_MAX));
    Settle();
    ExpectTheSamePixels("without the focus again");
}

TEST_F(ValueBoxTest, WhatIsSelectedAndCopiedIsWhatItShows) {
    box.Show("780 l/h");
    ::SendMessageW(edit, EM_SETSEL, 0, 3);
    ::SendMessageW(edit, WM_COPY, 0, 0);
    EXPECT_EQ(Copied(), "780");

    box.Show("12.5 V");
    ::SendMessageW(edit, EM_SETSEL, 0, -1);
    ::SendMessageW(edit, WM_COPY, 0, 0);
    EXPECT_EQ(Copied(), "12.5 V");
}

TEST_F(ValueBoxTest, WhileHiddenItDrawsNothingAndLaterWhatItWasGiven) {
    ShowBoth("780 l/h");
    ::ShowWindow(edit, SW_HIDE);
    Settle();
    ShowBoth("790 l/h");
    Settle();
    ::ShowWindow(edit, SW_SHOWNA);
    Settle();
    ExpectTheSamePixels("shown again");
}

TEST_F(ValueBoxTest, DrawnOnTheDialogItLooksAsAPlainEditDoes) {
    CDialogDC dc(dialog.m_hWnd);
    for (const char* text : {"780 l/h", "12.5 V", "12345.6789 revolutions in all of it"}) {
        const auto before = Pixels(edit);
        box.Take(text);
        EXPECT_TRUE(box.HasToDraw());
        EXPECT_EQ(Pixels(edit), before) << text;
        dialog.SetDlgItemText(kPlain, text);
        box.DrawOnParent(dc);
        EXPECT_FALSE(box.HasToDraw());
        ExpectTheSamePixels(text);
    }
    box.Take("12345.6789 revolutions in all of it");
    EXPECT_FALSE(box.HasToDraw());
}

// The dialog is drawn on beneath it.
TEST_F(ValueBoxTest, HiddenItLeavesTheDialogAlone) {
    ::ShowWindow(edit, SW_HIDE);
    Settle();
    const auto before = Pixels(dialog.m_hWnd);
    box.Show("790 l/h");
    EXPECT_EQ(Pixels(dialog.m_hWnd), before);
}

TEST_F(ValueBoxTest, StaysWithinItsWindowWhereverThatMoves) {
    ShowBoth("780 l/h");
    const CRect place = PlaceOf(IDC_VALUE_FIRST);
    ::SetWindowPos(edit, nullptr, place.left + 9, place.top + 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    Settle();
    ShowBoth("790 l/h");
    ExpectTheSamePixels("moved");
}

TEST_F(ValueBoxTest, LeavesNothingBehind) {
    const int before = LivingGdiObjects();
    for (int round = 0; round < 3; ++round) {
        CValueBox other;
        other.TakeOver(::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_READONLY | ES_CENTER, 0,
                                         0, 70, 20, dialog.m_hWnd, nullptr, nullptr, nullptr));
        other.Show("780 l/h");
        EXPECT_EQ(LivingGdiObjects(), before);
        if (round == 1) other.DestroyWindow();
        other.Show("without a window, perhaps");
    }
    EXPECT_EQ(LivingGdiObjects(), before);
}

}  // namespace
}  // namespace plotvane::test

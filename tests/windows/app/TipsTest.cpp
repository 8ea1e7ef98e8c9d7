#include "app/Tips.h"

#include <commctrl.h>

#include <map>

#include "framework/Text.h"
#include "tests/windows/app/MainDialogFixture.h"

namespace plotvane::test {
namespace {

class TipsTest : public MainDialogFixture {
protected:
    TipsTest() {
        ::InitCommonControls();
        ::GetCursorPos(&m_before);
    }
    ~TipsTest() override { ::SetCursorPos(m_before.x, m_before.y); }

    // As Windows tells the dialog of a move of the pointer.
    void PointAt(int id) {
        const CRect place = ScreenPlaceOf(id);
        ::SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
        tips.TakeMouseMessage(WM_MOUSEMOVE);
    }
    CRect ScreenPlaceOf(int id) const {
        CRect place;
        ::GetWindowRect(dialog.GetDlgItem(id), &place);
        return place;
    }

    // The one window for tips; null as long as there is none.
    static HWND TipWindow() {
        HWND found = nullptr;
        ::EnumThreadWindows(
            ::GetCurrentThreadId(),
            [](HWND window, LPARAM result) -> BOOL {
                wchar_t name[40]{};
                ::GetClassNameW(window, name, 40);
                if (std::wstring(name) == TOOLTIPS_CLASSW) *reinterpret_cast<HWND*>(result) = window;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }
    static LRESULT Tools() { return ::SendMessageW(TipWindow(), TTM_GETTOOLCOUNT, 0, 0); }
    // What the tip over a control would say now.
    std::wstring TipOver(int id) const {
        wchar_t text[200]{};
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.hwnd = dialog.m_hWnd;
        tool.uId = reinterpret_cast<UINT_PTR>(dialog.GetDlgItem(id));
        tool.lpszText = text;
        ::SendMessageW(TipWindow(), TTM_GETTEXTW, 200, reinterpret_cast<LPARAM>(&tool));
        return text;
    }

    std::map<int, std::string> texts{{IDC_PAUSE, "Pause (F5)"}, {IDC_SCALE_NEXT, "Next\nvalue"}};
    Tips tips{dialog, [this](int id) { return texts[id]; }};

private:
    POINT m_before{};
};

TEST_F(TipsTest, NothingIsMadeBeforeThePointerComesToAControlWithATip) {
    EXPECT_EQ(TipWindow(), nullptr);
    PointAt(IDC_SCALE_MAX);
    EXPECT_EQ(TipWindow(), nullptr);
    PointAt(IDC_PAUSE);
    ASSERT_NE(TipWindow(), nullptr);
    EXPECT_FALSE(::IsWindowVisible(TipWindow()));  // not before the pointer has rested
    EXPECT_EQ(TipOver(IDC_PAUSE), L"Pause (F5)");
}

TEST_F(TipsTest, TheTextIsMadeWhenThePointerComes) {
    PointAt(IDC_PAUSE);
    PointAt(IDC_SCALE_MAX);
    texts[IDC_PAUSE] = "Go on (F5)";
    PointAt(IDC_PAUSE);
    EXPECT_EQ(TipOver(IDC_PAUSE), L"Go on (F5)");
}

TEST_F(TipsTest, OnlyTheControlUnderThePointerHasOne) {
    PointAt(IDC_PAUSE);
    EXPECT_EQ(Tools(), 1);
    PointAt(IDC_SCALE_NEXT);
    EXPECT_EQ(Tools(), 1);
    EXPECT_EQ(TipOver(IDC_SCALE_NEXT), L"Next\nvalue");
    PointAt(IDC_SCALE_MAX);
    EXPECT_EQ(Tools(), 0);
}

TEST_F(TipsTest, ADisabledControlHasOneToo) {
    dialog.EnableDlgItem(IDC_PAUSE, false);
    PointAt(IDC_PAUSE);
    EXPECT_EQ(TipOver(IDC_PAUSE), L"Pause (F5)");
}

TEST_F(TipsTest, ItShowsAfterThePointerHasRestedAndGoesWithAPress) {
    PointAt(IDC_PAUSE);
    ::SendMessageW(TipWindow(), TTM_SETDELAYTIME, TTDT_INITIAL, 1);
    tips.TakeMouseMessage(WM_MOUSEMOVE);
    const auto isShown = [] { return ::IsWindowVisible(TipWindow()) != FALSE; };
    const ULONGLONG until = ::GetTickCount64() + 5000;
    for (MSG message; !isShown() && ::GetTickCount64() < until;) {
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
    }
    EXPECT_TRUE(isShown());
    tips.TakeMouseMessage(WM_LBUTTONDOWN);
    EXPECT_FALSE(isShown());
}

}  // namespace
}  // namespace plotvane::test

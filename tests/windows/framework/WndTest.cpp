#include "framework/Wnd.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/windows/framework/TestWnd.h"

namespace {

using plotvane::test::CreateHidden;
using plotvane::test::kTestClass;

TEST(Wnd, IsFoundByItsHandleWhileTheWindowLives) {
    CWnd wnd;
    ASSERT_TRUE(CreateHidden(wnd));
    const HWND handle = wnd.m_hWnd;
    EXPECT_EQ(CWnd::FromHandle(handle), &wnd);

    EXPECT_TRUE(wnd.DestroyWindow());

    EXPECT_EQ(CWnd::FromHandle(handle), nullptr);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_FALSE(wnd.DestroyWindow());
}

TEST(Wnd, CanBeCreatedAgainButNotTwice) {
    CWnd wnd;
    ASSERT_TRUE(CreateHidden(wnd));
    const HWND first = wnd.m_hWnd;
    EXPECT_FALSE(CreateHidden(wnd));
    EXPECT_EQ(wnd.m_hWnd, first);

    wnd.DestroyWindow();
    EXPECT_TRUE(CreateHidden(wnd));
    EXPECT_EQ(CWnd::FromHandle(wnd.m_hWnd), &wnd);
}

TEST(Wnd, WithoutItsClassThereIsNoWindow) {
    CWnd wnd;
    EXPECT_FALSE(wnd.CreateEx(0, L"PlotvaneNoSuchClass", "", WS_POPUP, CRect{0, 0, 1, 1}, nullptr, 0));
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST(Wnd, AnObjectThatDiesFirstDestroysItsWindow) {
    auto wnd = std::make_unique<CWnd>();
    ASSERT_TRUE(CreateHidden(*wnd));
    const HWND handle = wnd->m_hWnd;

    wnd.reset();

    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_EQ(CWnd::FromHandle(handle), nullptr);
}

TEST(Wnd, AChildGoesWithItsParentAndItsObjectStays) {
    CWnd parent;
    CWnd child;
    ASSERT_TRUE(CreateHidden(parent));
    ASSERT_TRUE(CreateHidden(child, parent.m_hWnd));
    EXPECT_EQ(parent.GetDlgItem(77), child.m_hWnd);

    parent.DestroyWindow();

    EXPECT_EQ(child.m_hWnd, nullptr);
}

TEST(Wnd, FindsAControlThatWasDestroyedAndCreatedAgain) {
    CWnd parent;
    ASSERT_TRUE(CreateHidden(parent));
    for (int round = 0; round < 3; ++round) {
        CWnd child;
        EXPECT_EQ(parent.GetDlgItem(77), nullptr);
        ASSERT_TRUE(CreateHidden(child, parent.m_hWnd));
        EXPECT_EQ(parent.GetDlgItem(77), child.m_hWnd);
        EXPECT_EQ(parent.GetDlgItem(77), child.m_hWnd);
        child.DestroyWindow();
        EXPECT_EQ(parent.GetDlgItem(77), nullptr);
    }
}

TEST(Wnd, FindsAControlByItsNewIdOnly) {
    CWnd parent;
    CWnd child;
    ASSERT_TRUE(CreateHidden(parent));
    ASSERT_TRUE(CreateHidden(child, parent.m_hWnd));
    EXPECT_EQ(parent.GetDlgItem(77), child.m_hWnd);

    ::SetWindowLongPtrW(child.m_hWnd, GWLP_ID, 78);

    EXPECT_EQ(parent.GetDlgItem(77), nullptr);
    EXPECT_EQ(parent.GetDlgItem(78), child.m_hWnd);
}

TEST(Wnd, DoesNotFindAControlThatMovedToAnotherParent) {
    CWnd parent;
    CWnd other;
    CWnd child;
    ASSERT_TRUE(CreateHidden(parent));
    ASSERT_TRUE(CreateHidden(other));
    ASSERT_TRUE(CreateHidden(child, parent.m_hWnd));
    EXPECT_EQ(parent.GetDlgItem(77), child.m_hWnd);

    ::SetParent(child.m_hWnd, other.m_hWnd);

    EXPECT_EQ(parent.GetDlgItem(77), nullptr);
    EXPECT_EQ(other.GetDlgItem(77), child.m_hWnd);
}

TEST(Wnd, FindsTheControlsOfTheWindowThatItHasNow) {
    CWnd parent;
    for (int round = 0; round < 3; ++round) {
        CWnd child;
        ASSERT_TRUE(CreateHidden(parent));
        ASSERT_TRUE(CreateHidden(child, parent.m_hWnd));
        EXPECT_EQ(parent.GetDlgItem(77), child.m_hWnd);
        parent.DestroyWindow();
        EXPECT_EQ(parent.GetDlgItem(77), nullptr);
    }
}

TEST(Wnd, AControlThatDoesNotExistHasNoTextAndNoState) {
    CWnd parent;
    ASSERT_TRUE(CreateHidden(parent));
    parent.SetDlgItemText(1, "text");
    parent.CheckDlgButton(1, true);
    EXPECT_EQ(parent.GetDlgItemText(1), "");
    EXPECT_FALSE(parent.IsDlgButtonChecked(1));
    EXPECT_EQ(parent.SendDlgItemMessage(1, WM_GETTEXTLENGTH), 0);
}

TEST(Wnd, TextsAreWindows1252) {
    CWnd wnd;
    ASSERT_TRUE(CreateHidden(wnd));
    EXPECT_EQ(wnd.GetWindowText(), "test");

    wnd.SetWindowText("5 \xB0");

    EXPECT_EQ(wnd.GetWindowText(), "5 \xB0");
    wchar_t wide[10]{};
    ::GetWindowTextW(wnd.m_hWnd, wide, 10);
    EXPECT_STREQ(wide, L"5 \u00B0");
}

TEST(Wnd, KnowsItsPlace) {
    CWnd wnd;
    ASSERT_TRUE(CreateHidden(wnd));
    const CRect place = wnd.GetWindowRect();
    EXPECT_EQ(place.left, 10);
    EXPECT_EQ(place.top, 20);
    EXPECT_EQ(place.Width(), 100);
    EXPECT_EQ(place.Height(), 50);

    const CRect client = wnd.ScreenToClient(CRect{13, 24, 20, 30});
    EXPECT_EQ(client.left, 3);
    EXPECT_EQ(client.top, 4);
    EXPECT_EQ(client.right, 10);
    EXPECT_EQ(client.bottom, 10);

    wnd.MoveWindow(CRect{1, 2, 31, 42});
    EXPECT_EQ(wnd.GetWindowRect().left, 1);
    EXPECT_EQ(wnd.GetClientRect().Width(), 30);
    EXPECT_EQ(wnd.GetClientRect().Height(), 40);
}

TEST(Wnd, TakesOverAControlAndGivesItBack) {
    class UpperCase : public CWnd {
    protected:
        const CMessageMap& GetMessageMap() const override {
            static const CMessageRow rows[] = {
                {WM_GETTEXTLENGTH, 0, 0, 0, [](CWnd&, const CMessage&) -> LRESULT { return 99; }}};
            static const CMessageMap map{nullptr, rows};
            return map;
        }
    };
    const HWND label =
        ::CreateWindowExW(0, L"STATIC", L"text", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(label, nullptr);
    UpperCase wnd;
    CWnd second;

    EXPECT_TRUE(wnd.Attach(label));
    EXPECT_FALSE(second.Attach(label));
    EXPECT_EQ(::SendMessageW(label, WM_GETTEXTLENGTH, 0, 0), 99);
    wchar_t text[10]{};
    EXPECT_EQ(::SendMessageW(label, WM_GETTEXT, 10, reinterpret_cast<LPARAM>(text)), 4);  // the label's own

    ::DestroyWindow(label);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandle(label), nullptr);
    EXPECT_FALSE(second.Attach(label));
    EXPECT_EQ(second.m_hWnd, nullptr);
}

TEST(Wnd, SubclassesAControlThatItCreates) {
    CWnd edit;
    ASSERT_TRUE(edit.CreateEx(0, L"EDIT", "abc", WS_POPUP, CRect{0, 0, 50, 20}, nullptr, 0));
    EXPECT_EQ(CWnd::FromHandle(edit.m_hWnd), &edit);
    EXPECT_EQ(edit.SendMessage(EM_LINELENGTH), 3);
    edit.DestroyWindow();
    EXPECT_EQ(edit.m_hWnd, nullptr);
}

TEST(RegisterWindowClass, MayBeAskedAgain) {
    EXPECT_TRUE(RegisterWindowClass(kTestClass, 0));
    EXPECT_TRUE(RegisterWindowClass(kTestClass, 0));
}

TEST(RegisterWindowClass, RefusesANameThatIsSomebodyElses) {
    EXPECT_FALSE(RegisterWindowClass(L"EDIT", 0));
}

}  // namespace

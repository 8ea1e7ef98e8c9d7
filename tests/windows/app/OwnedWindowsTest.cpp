#include "app/OwnedWindows.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "tests/windows/framework/TestWnd.h"

namespace plotvane::test {
namespace {

// A window that notes who was asked to close.
class NotingWnd : public CWnd {
public:
    NotingWnd(HWND owner, DWORD style, std::vector<const NotingWnd*>& asked) : m_asked(asked) {
        RegisterWindowClass(kTestClass, 0);
        CreateEx(0, kTestClass, "", style, CRect(10, 10, 200, 150), owner, 0);
    }

    std::function<void()> onClose = [] {};

private:
    void OnClose() {
        m_asked.push_back(this);
        onClose();
    }
    DECLARE_MESSAGE_MAP()

    std::vector<const NotingWnd*>& m_asked;
};

BEGIN_MESSAGE_MAP(NotingWnd, CWnd)
    ON_WM_CLOSE()
END_MESSAGE_MAP()

class OwnedWindows : public testing::Test {
protected:
    static constexpr DWORD kDialog = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    static constexpr DWORD kTip = WS_POPUP;

    using Asked = std::vector<const NotingWnd*>;
    Asked asked;
    NotingWnd owner{nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE, asked};
};

TEST_F(OwnedWindows, ThatAreShownAreAskedToClose) {
    const NotingWnd dialog(owner.m_hWnd, kDialog | WS_VISIBLE, asked);
    const NotingWnd bare(owner.m_hWnd, kTip | WS_VISIBLE, asked);
    CloseOwnedWindows(owner.m_hWnd);
    EXPECT_EQ(asked.size(), 2u);
}

// The window of an input method, or that of the tips while there is none to show.
TEST_F(OwnedWindows, ThatNobodySeesAreLeftAlone) {
    const NotingWnd tip(owner.m_hWnd, kTip, asked);
    const NotingWnd dialog(owner.m_hWnd, kDialog, asked);
    CloseOwnedWindows(owner.m_hWnd);
    EXPECT_EQ(asked, Asked());
}

// Their loops are on the stack all the same.
TEST_F(OwnedWindows, ThatAMinimisedOwnerHidesAreAskedToClose) {
    const NotingWnd dialog(owner.m_hWnd, kDialog | WS_VISIBLE, asked);
    const NotingWnd tip(owner.m_hWnd, kTip, asked);
    ::ShowWindow(owner.m_hWnd, SW_MINIMIZE);
    ASSERT_TRUE(owner.IsIconic());
    CloseOwnedWindows(owner.m_hWnd);
    EXPECT_EQ(asked, Asked{&dialog});
}

TEST_F(OwnedWindows, AreAskedBeforeTheOnesThatTheyBelongTo) {
    const NotingWnd dialog(owner.m_hWnd, kDialog | WS_VISIBLE, asked);
    const NotingWnd message(dialog.m_hWnd, kDialog | WS_VISIBLE, asked);
    CloseOwnedWindows(owner.m_hWnd);
    EXPECT_EQ(asked, (Asked{&message, &dialog}));
}

TEST_F(OwnedWindows, MayCloseEachOther) {
    NotingWnd first(owner.m_hWnd, kDialog | WS_VISIBLE, asked);
    NotingWnd second(owner.m_hWnd, kDialog | WS_VISIBLE, asked);
    first.onClose = second.onClose = [&] {
        first.DestroyWindow();
        second.DestroyWindow();
    };
    CloseOwnedWindows(owner.m_hWnd);
    EXPECT_EQ(asked.size(), 1u);
}

}  // namespace
}  // namespace plotvane::test

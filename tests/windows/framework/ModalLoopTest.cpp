// The loop in which a dialog runs: when it shows the window, which windows it asks before it handles a
// message, and what it tells the owner and the loops outside.
#include "framework/MessageLoop.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "framework/Dialog.h"
#include "res/resource.h"
#include "tests/windows/framework/TestWnd.h"
#include "tests/windows/support/test_dialogs.h"

namespace {

constexpr UINT kScript = WM_APP + 1;
constexpr UINT kNote = WM_APP + 2;

// Not shown by its template. Each script runs once, from a message that was posted in OnInitDialog.
class HiddenDialog : public CDialog {
public:
    explicit HiddenDialog(HWND owner = nullptr) : CDialog(IDD_ABOUT, owner) {}

    std::function<void()> onInit = [] {};
    std::function<void()> onScript = [] {};
    std::function<void()> onNote = [] {};
    std::function<void()> onTimer = [] {};
    std::function<bool(MSG&)> before = [](MSG&) { return false; };

    bool PreTranslateMessage(MSG& message) override { return before(message); }

protected:
    BOOL OnInitDialog() override {
        onInit();
        ::PostMessageW(m_hWnd, kScript, 0, 0);
        return TRUE;
    }

private:
    LRESULT OnScript(WPARAM, LPARAM) {
        onScript();
        return 0;
    }
    LRESULT OnNote(WPARAM, LPARAM) {
        onNote();
        return 0;
    }
    void OnTimer(UINT_PTR) { onTimer(); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(HiddenDialog, CDialog)
    ON_MESSAGE(kScript, OnScript)
    ON_MESSAGE(kNote, OnNote)
    ON_WM_TIMER()
END_MESSAGE_MAP()

class Owner : public CWnd {
public:
    Owner() { plotvane::test::CreateHidden(*this); }

    int idles = 0;
    std::function<void()> onIdle = [] {};
    std::vector<UINT> asked;

    bool PreTranslateMessage(MSG& message) override {
        if (message.message == WM_KEYDOWN) asked.push_back(static_cast<UINT>(message.wParam));
        return false;
    }

private:
    LRESULT OnEnterIdle(WPARAM reason, LPARAM) {
        if (reason == MSGF_DIALOGBOX) ++idles;
        onIdle();
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Owner, CWnd)
    ON_MESSAGE(WM_ENTERIDLE, OnEnterIdle)
END_MESSAGE_MAP()

class ModalLoop : public testing::Test {
protected:
    Owner owner;
    HiddenDialog dialog{owner.m_hWnd};
};

TEST_F(ModalLoop, ShowsTheWindowWhenTheQueueIsFirstEmpty) {
    bool shownInScript = true;
    bool shownInNote = true;
    bool shownWhenIdle = false;
    dialog.onScript = [&] {
        shownInScript = ::IsWindowVisible(dialog.m_hWnd);
        ::PostMessageW(dialog.m_hWnd, kNote, 0, 0);
    };
    dialog.onNote = [&] { shownInNote = ::IsWindowVisible(dialog.m_hWnd); };
    owner.onIdle = [&] {
        shownWhenIdle = ::IsWindowVisible(dialog.m_hWnd);
        dialog.EndDialog(5);
    };
    EXPECT_EQ(dialog.DoModal(), 5);
    EXPECT_FALSE(shownInScript);
    EXPECT_FALSE(shownInNote);
    EXPECT_TRUE(shownWhenIdle);
}

// Under messages that never end, a dialog would stay hidden.
TEST_F(ModalLoop, ShowsTheWindowAfterATimerThoughTheQueueIsNeverEmpty) {
    int notes = 0;
    bool isShown = false;
    dialog.onScript = [&] {
        dialog.SetTimer(1, USER_TIMER_MINIMUM);
        ::PostMessageW(dialog.m_hWnd, kNote, 0, 0);
    };
    dialog.onNote = [&] {
        isShown = ::IsWindowVisible(dialog.m_hWnd);
        if (isShown || ++notes > 10'000'000) return dialog.EndDialog(1);
        // A timer's message comes when nothing else is there.
        MSG timer;
        if (notes % 100 == 0 && ::PeekMessageW(&timer, dialog.m_hWnd, WM_TIMER, WM_TIMER, PM_REMOVE))
            ::PostMessageW(dialog.m_hWnd, WM_TIMER, timer.wParam, 0);
        ::PostMessageW(dialog.m_hWnd, kNote, 0, 0);
    };
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_TRUE(isShown);
}

// Its user may have given it another size since then.
TEST_F(ModalLoop, LeavesAWindowAloneThatAHandlerHasShown) {
    bool wasZoomed = false;
    dialog.onScript = [&] { dialog.ShowWindow(SW_SHOWMAXIMIZED); };
    owner.onIdle = [&] {
        wasZoomed = ::IsZoomed(dialog.m_hWnd);
        dialog.EndDialog(1);
    };
    dialog.DoModal();
    EXPECT_TRUE(wasZoomed);
}

TEST_F(ModalLoop, TellsTheOwnerEachTimeThatNothingIsLeftToDo) {
    owner.onIdle = [&] {
        if (owner.idles < 3) {
            ::PostMessageW(dialog.m_hWnd, kNote, 0, 0);
        } else {
            dialog.EndDialog(1);
        }
    };
    dialog.DoModal();
    EXPECT_EQ(owner.idles, 3);
}

TEST_F(ModalLoop, DisablesTheOwnerUntilItEndsAndNoLonger) {
    bool inInit = true;
    bool atEnd = false;
    bool isShownAtEnd = true;
    dialog.onInit = [&] { inInit = ::IsWindowEnabled(owner.m_hWnd); };
    owner.onIdle = [&] {
        dialog.EndDialog(1);
        atEnd = ::IsWindowEnabled(owner.m_hWnd);
        isShownAtEnd = ::IsWindowVisible(dialog.m_hWnd);
    };
    dialog.DoModal();
    EXPECT_FALSE(inInit);
    EXPECT_TRUE(atEnd);
    EXPECT_FALSE(isShownAtEnd);
    EXPECT_TRUE(::IsWindowEnabled(owner.m_hWnd));
}

TEST_F(ModalLoop, LeavesAnOwnerDisabledThatWasDisabledBefore) {
    ::EnableWindow(owner.m_hWnd, FALSE);
    owner.onIdle = [&] { dialog.EndDialog(1); };
    dialog.DoModal();
    EXPECT_FALSE(::IsWindowEnabled(owner.m_hWnd));
}

TEST_F(ModalLoop, EnablesTheOwnerWhereTheDialogCannotBeSetUp) {
    dialog.onInit = [] { throw std::runtime_error("in OnInitDialog"); };
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(::IsWindowEnabled(owner.m_hWnd));
}

TEST_F(ModalLoop, PassesARequestToQuitOnToTheLoopOutside) {
    owner.onIdle = [] { ::PostQuitMessage(7); };
    EXPECT_EQ(dialog.DoModal(), 0);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(::IsWindowEnabled(owner.m_hWnd));
    MSG message;
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(ModalLoop, EndsWithAWindowThatIsDestroyed) {
    owner.onIdle = [&] { dialog.DestroyWindow(); };
    EXPECT_EQ(dialog.DoModal(), 0);
    EXPECT_TRUE(::IsWindowEnabled(owner.m_hWnd));
}

TEST_F(ModalLoop, AsksTheDialogAndThenItsOwnerForAKeyOfAControl) {
    std::vector<UINT> asked;
    dialog.before = [&](MSG& message) {
        if (message.message == WM_KEYDOWN) asked.push_back(static_cast<UINT>(message.wParam));
        return message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
    };
    dialog.onScript = [&] {
        ::PostMessageW(dialog.GetDlgItem(IDOK), WM_KEYDOWN, VK_ESCAPE, 1);
        ::PostMessageW(dialog.GetDlgItem(IDOK), WM_KEYDOWN, VK_F5, 1);
    };
    owner.onIdle = [&] { dialog.EndDialog(9); };
    EXPECT_EQ(dialog.DoModal(), 9) << "Esc was taken, or it would have cancelled";
    EXPECT_EQ(asked, (std::vector<UINT>{VK_ESCAPE, VK_F5}));
    EXPECT_EQ(owner.asked, (std::vector<UINT>{VK_F5}));
}

TEST_F(ModalLoop, TreatsAKeyThatNobodyTakesAsADialogDoes) {
    dialog.onScript = [&] { ::PostMessageW(dialog.GetDlgItem(IDOK), WM_KEYDOWN, VK_ESCAPE, 1); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(ModalLoop, ATakerThatThrowsHasTakenTheMessage) {
    dialog.before = [](MSG& message) {
        if (message.message == WM_KEYDOWN) throw std::runtime_error("a taker failed");
        return false;
    };
    dialog.onScript = [&] { ::PostMessageW(dialog.GetDlgItem(IDOK), WM_KEYDOWN, VK_ESCAPE, 1); };
    owner.onIdle = [&] { dialog.EndDialog(9); };
    EXPECT_EQ(dialog.DoModal(), 9);
}

// Nobody can press a key there; a message that is posted all the same goes to the control itself.
TEST_F(ModalLoop, ADisabledDialogTreatsNoKeyAsADialogDoes) {
    dialog.onScript = [&] {
        ::EnableWindow(dialog.m_hWnd, FALSE);
        ::PostMessageW(dialog.GetDlgItem(IDOK), WM_KEYDOWN, VK_ESCAPE, 1);
    };
    owner.onIdle = [&] { dialog.EndDialog(9); };
    EXPECT_EQ(dialog.DoModal(), 9);
}

TEST_F(ModalLoop, ADialogThatIsOverTreatsNoKeyAsADialogDoes) {
    dialog.onScript = [&] {
        MSG escape{dialog.GetDlgItem(IDOK), WM_KEYDOWN, VK_ESCAPE, 1, 0, {}};
        dialog.EndDialog(9);
        EXPECT_FALSE(dialog.IsDialogMessage(escape));
    };
    EXPECT_EQ(dialog.DoModal(), 9);
}

}  // namespace

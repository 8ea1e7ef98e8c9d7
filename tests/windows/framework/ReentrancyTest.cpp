#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <new>

#include "framework/Wnd.h"
#include "tests/windows/framework/TestWnd.h"

namespace {

using plotvane::test::CreateHidden;
using plotvane::test::DispatchAll;

constexpr UINT kRun = WM_APP + 1;

// A window whose objects live, one at a time, in memory that the test keeps: delete fills it with 0xDD, and
// nobody may write there afterwards.
class MortalWnd : public CWnd {
public:
    static void* operator new(std::size_t) { return s_place; }
    static void operator delete(void*) { std::fill_n(s_place, sizeof(MortalWnd), std::byte{0xDD}); }

    static bool IsDeadAndUntouched() {
        return std::all_of(s_place, s_place + sizeof(MortalWnd),
                           [](std::byte b) { return b == std::byte{0xDD}; });
    }

    // What the handlers do. Each handler calls a copy, because the call may delete the object.
    std::function<void(MortalWnd*)> onRun[3];
    std::function<void(MortalWnd*)> onDestroy;

    using CWnd::Default;

private:
    LRESULT OnRun(WPARAM which, LPARAM) {
        const auto call = onRun[which];
        call(this);
        return 42;
    }
    void OnDestroy() {
        if (const auto call = onDestroy) call(this);
    }

    alignas(std::max_align_t) static std::byte s_place[];
    DECLARE_MESSAGE_MAP()
};

alignas(std::max_align_t) std::byte MortalWnd::s_place[sizeof(MortalWnd)];

BEGIN_MESSAGE_MAP(MortalWnd, CWnd)
    ON_WM_DESTROY()
    ON_MESSAGE(kRun, OnRun)
END_MESSAGE_MAP()

class Reentrancy : public testing::Test {
protected:
    void SetUp() override {
        m_wnd = new MortalWnd;
        ASSERT_TRUE(CreateHidden(*m_wnd));
        m_handle = m_wnd->m_hWnd;
    }
    void ExpectObjectAndWindowGone() {
        EXPECT_TRUE(MortalWnd::IsDeadAndUntouched());
        EXPECT_FALSE(::IsWindow(m_handle));
        EXPECT_EQ(CWnd::FromHandle(m_handle), nullptr);
    }

    MortalWnd* m_wnd = nullptr;
    HWND m_handle = nullptr;
};

TEST_F(Reentrancy, AWindowMayDeleteItselfWhenItIsDestroyed) {
    m_wnd->onDestroy = [](MortalWnd* self) { delete self; };
    EXPECT_TRUE(::DestroyWindow(m_handle));
    ExpectObjectAndWindowGone();
}

// Deleting an object destroys its window, but not one that is being destroyed already.
TEST_F(Reentrancy, AWindowThatDeletesItselfIsDestroyedOnce) {
    static HWND s_watched;
    static int s_destroys;
    s_watched = m_handle;
    s_destroys = 0;
    const HHOOK hook = ::SetWindowsHookExW(
        WH_CALLWNDPROC,
        [](int code, WPARAM wParam, LPARAM lParam) -> LRESULT {
            const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
            if (message->hwnd == s_watched && message->message == WM_DESTROY) ++s_destroys;
            return ::CallNextHookEx(nullptr, code, wParam, lParam);
        },
        nullptr, ::GetCurrentThreadId());
    ASSERT_NE(hook, nullptr);
    m_wnd->onDestroy = [](MortalWnd* self) { delete self; };

    ::DestroyWindow(m_handle);

    ::UnhookWindowsHookEx(hook);
    EXPECT_EQ(s_destroys, 1);
}

TEST_F(Reentrancy, AWindowMayDeleteItselfInAnyHandler) {
    m_wnd->onRun[0] = [](MortalWnd* self) { delete self; };
    EXPECT_EQ(::SendMessageW(m_handle, kRun, 0, 0), 42);  // the handler's own answer
    ExpectObjectAndWindowGone();
}

TEST_F(Reentrancy, AWindowMayGoWhileItsHandlerDispatchesMessages) {
    m_wnd->onRun[0] = [](MortalWnd* self) {
        ::PostMessageW(self->m_hWnd, kRun, 1, 0);
        DispatchAll();
    };
    m_wnd->onRun[1] = [](MortalWnd* self) { delete self; };
    EXPECT_EQ(::SendMessageW(m_handle, kRun, 0, 0), 42);
    ExpectObjectAndWindowGone();
}

TEST_F(Reentrancy, AWindowMayDeleteItselfBelowSeveralHandlers) {
    m_wnd->onRun[0] = [](MortalWnd* self) { self->SendMessage(kRun, 1); };
    m_wnd->onRun[1] = [](MortalWnd* self) { self->SendMessage(kRun, 2); };
    m_wnd->onRun[2] = [](MortalWnd* self) { self->DestroyWindow(); };
    m_wnd->onDestroy = [](MortalWnd* self) { delete self; };
    EXPECT_EQ(::SendMessageW(m_handle, kRun, 0, 0), 42);
    ExpectObjectAndWindowGone();
}

TEST_F(Reentrancy, AHandlerThatDestroysItsWindowStillHasItsObject) {
    bool defaultWasHarmless = false;
    m_wnd->onRun[0] = [&](MortalWnd* self) {
        self->DestroyWindow();
        defaultWasHarmless = self->Default() == 0;  // no window: nothing to do
    };
    EXPECT_EQ(::SendMessageW(m_handle, kRun, 0, 0), 42);
    EXPECT_TRUE(defaultWasHarmless);
    EXPECT_EQ(m_wnd->m_hWnd, nullptr);
    delete m_wnd;
    ExpectObjectAndWindowGone();
}

// Answers WM_SETTEXT by sending itself another message before the default processing.
class NestingWnd : public CWnd {
private:
    LRESULT OnSetText(WPARAM, LPARAM) {
        SendMessage(WM_GETTEXTLENGTH);
        return Default();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(NestingWnd, CWnd)
    ON_MESSAGE(WM_SETTEXT, OnSetText)
END_MESSAGE_MAP()

TEST(DefaultProcessing, IsThatOfTheHandlersOwnMessageAfterANestedOne) {
    NestingWnd wnd;
    ASSERT_TRUE(CreateHidden(wnd));
    wnd.SetWindowText("new text");
    EXPECT_EQ(wnd.GetWindowText(), "new text");
}

}  // namespace

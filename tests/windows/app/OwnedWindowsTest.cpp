#include "app/OwnedWindows.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/windows/framework/TestWnd.h"

namespace plotvane::test {
namespace {

using Names = std::vector<std::string>;

// A window that notes its name when it is asked to close.
class NotingWnd : public CWnd {
public:
    NotingWnd(Names& closed, std::string name) : m_closed(closed), m_name(std::move(name)) {}
    ~NotingWnd() override { DestroyWindow(); }

    bool Create(HWND owner) {
        return RegisterWindowClass(kTestClass, 0) &&
               CreateEx(0, kTestClass, m_name.c_str(), WS_POPUP, CRect{0, 0, 50, 50}, owner, 0);
    }

    std::function<void()> onClose = [this] { DestroyWindow(); };

private:
    void OnClose() {
        m_closed.push_back(m_name);
        onClose();
    }
    DECLARE_MESSAGE_MAP()

    Names& m_closed;
    std::string m_name;
};

BEGIN_MESSAGE_MAP(NotingWnd, CWnd)
    ON_WM_CLOSE()
END_MESSAGE_MAP()

class OwnedWindowsTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_main.Create(nullptr)); }

    Names m_closed;
    NotingWnd m_main{m_closed, "main"};
};

TEST_F(OwnedWindowsTest, AreClosedAndNoOtherWindowIs) {
    NotingWnd meter(m_closed, "meter");
    NotingWnd stranger(m_closed, "stranger");
    ASSERT_TRUE(meter.Create(m_main.m_hWnd));
    ASSERT_TRUE(stranger.Create(nullptr));
    CloseOwnedWindows(m_main.m_hWnd);
    EXPECT_EQ(m_closed, Names{"meter"});
}

TEST_F(OwnedWindowsTest, AreClosedBeforeTheirOwnOwner) {
    NotingWnd dialog(m_closed, "dialog");
    NotingWnd message(m_closed, "message");
    ASSERT_TRUE(dialog.Create(m_main.m_hWnd));
    ASSERT_TRUE(message.Create(dialog.m_hWnd));
    CloseOwnedWindows(m_main.m_hWnd);
    EXPECT_EQ(m_closed, (Names{"message", "dialog"}));
}

TEST_F(OwnedWindowsTest, MayRefuse) {
    NotingWnd first(m_closed, "first");
    NotingWnd second(m_closed, "second");
    for (NotingWnd* const window : {&first, &second}) {
        ASSERT_TRUE(window->Create(m_main.m_hWnd));
        window->onClose = [] {};
    }
    CloseOwnedWindows(m_main.m_hWnd);
    EXPECT_EQ(m_closed.size(), 2u);
    EXPECT_NE(first.m_hWnd, nullptr);
    EXPECT_NE(second.m_hWnd, nullptr);
}

TEST_F(OwnedWindowsTest, MayCloseEachOther) {
    NotingWnd first(m_closed, "first");
    NotingWnd second(m_closed, "second");
    ASSERT_TRUE(first.Create(m_main.m_hWnd));
    ASSERT_TRUE(second.Create(m_main.m_hWnd));
    const auto closeBoth = [&] {
        first.DestroyWindow();
        second.DestroyWindow();
    };
    first.onClose = second.onClose = closeBoth;
    CloseOwnedWindows(m_main.m_hWnd);
    EXPECT_EQ(m_closed.size(), 1u);
}

}  // namespace
}  // namespace plotvane::test

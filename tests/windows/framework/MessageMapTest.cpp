#include "framework/MessageMap.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "framework/Wnd.h"
#include "tests/windows/framework/TestWnd.h"

namespace {

using plotvane::test::CreateHidden;

using Calls = std::vector<std::string>;

constexpr int kFirst = 1031;
constexpr int kLast = 1042;

class BaseWnd : public CWnd {
public:
    Calls calls;

private:
    void OnTimer(UINT_PTR id) { calls.push_back("base timer " + std::to_string(id)); }
    void OnCommand() { calls.push_back("base command"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(BaseWnd, CWnd)
    ON_WM_TIMER()
    ON_COMMAND(7, OnCommand)
    ON_COMMAND(8, OnCommand)
END_MESSAGE_MAP()

class MappedWnd : public BaseWnd {
private:
    void OnClose() { calls.push_back("close"); }
    void OnContextMenu(HWND window, POINT at) {
        calls.push_back("menu " + std::to_string(at.x) + " " + std::to_string(at.y));
        EXPECT_EQ(window, m_hWnd);
    }
    void OnSize(UINT type, int width, int height) {
        calls.push_back("size " + std::to_string(type) + " " + std::to_string(width) + " " +
                        std::to_string(height));
    }
    void OnSysCommand(UINT id, LPARAM) { calls.push_back("system " + std::to_string(id)); }
    HCURSOR OnQueryDragIcon() { return reinterpret_cast<HCURSOR>(UINT_PTR{55}); }
    LRESULT OnUser(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) + lParam; }

    void OnFocus(UINT id) { calls.push_back("focus " + std::to_string(id)); }
    void OnLeave() { calls.push_back("leave"); }
    void OnClick() { calls.push_back("click"); }
    void OnSelect() { calls.push_back("select"); }
    void OnItem(UINT id) { calls.push_back("item " + std::to_string(id)); }
    LRESULT OnDrawRange(UINT id, const NMHDR&) {
        calls.push_back("draw of many " + std::to_string(id));
        return 12;
    }
    void OnThrow() { throw std::runtime_error("in a handler"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(MappedWnd, BaseWnd)
    ON_WM_CLOSE()
    ON_WM_CONTEXTMENU()
    ON_WM_QUERYDRAGICON()
    ON_WM_SIZE()
    ON_WM_SYSCOMMAND()
    ON_MESSAGE(WM_APP + 5, OnUser)
    ON_CONTROL_RANGE(EN_SETFOCUS, kFirst, kLast, OnFocus)
    ON_EN_KILLFOCUS(kFirst, OnLeave)
    ON_BN_CLICKED(8, OnClick)
    ON_CBN_SELENDOK(9, OnSelect)
    ON_CONTROL_RANGE(0, 32775, 32783, OnItem)
    ON_COMMAND(10, OnThrow)
    ON_NOTIFY_RANGE(NM_CUSTOMDRAW, 1216, 1224, OnDrawRange)
END_MESSAGE_MAP()

class MessageMap : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(CreateHidden(m_wnd));
        m_wnd.calls.clear();
    }
    Calls CallsOf(UINT message, WPARAM wParam, LPARAM lParam = 0) {
        m_wnd.calls.clear();
        m_wnd.SendMessage(message, wParam, lParam);
        return m_wnd.calls;
    }
    Calls CallsOfCommand(int code, int id) {
        return CallsOf(WM_COMMAND, MAKEWPARAM(static_cast<WORD>(id), static_cast<WORD>(code)));
    }

    MappedWnd m_wnd;
};

TEST_F(MessageMap, HandsTheParametersOfAMessageToItsHandler) {
    EXPECT_EQ(CallsOf(WM_CLOSE, 0), (Calls{"close"}));
    EXPECT_EQ(CallsOf(WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(640, 480)), (Calls{"size 2 640 480"}));
    EXPECT_EQ(CallsOf(WM_SYSCOMMAND, 16), (Calls{"system 16"}));
    EXPECT_EQ(m_wnd.SendMessage(WM_QUERYDRAGICON), 55);
    EXPECT_EQ(m_wnd.SendMessage(WM_APP + 5, 40, 2), 42);
}

TEST_F(MessageMap, PointsLeftOfAndAboveTheFirstScreenAreNegative) {
    const auto window = reinterpret_cast<WPARAM>(m_wnd.m_hWnd);
    EXPECT_EQ(CallsOf(WM_CONTEXTMENU, window, MAKELPARAM(0xFFFB, 0xFFFE)), (Calls{"menu -5 -2"}));
}

TEST_F(MessageMap, ARangeOfControlsEndsWithItsLastId) {
    EXPECT_EQ(CallsOfCommand(EN_SETFOCUS, kFirst - 1), Calls{});
    EXPECT_EQ(CallsOfCommand(EN_SETFOCUS, kFirst), (Calls{"focus 1031"}));
    EXPECT_EQ(CallsOfCommand(EN_SETFOCUS, kLast), (Calls{"focus 1042"}));
    EXPECT_EQ(CallsOfCommand(EN_SETFOCUS, kLast + 1), Calls{});
}

TEST_F(MessageMap, NotificationsOfOneControlAreToldApart) {
    EXPECT_EQ(CallsOfCommand(EN_KILLFOCUS, kFirst), (Calls{"leave"}));
    EXPECT_EQ(CallsOfCommand(EN_CHANGE, kFirst), Calls{});
    EXPECT_EQ(CallsOfCommand(CBN_SELENDOK, 9), (Calls{"select"}));
    EXPECT_EQ(CallsOfCommand(CBN_SELENDCANCEL, 9), Calls{});
}

TEST_F(MessageMap, MenuItemsAreRoutedByTheirIds) {
    EXPECT_EQ(CallsOfCommand(0, 32774), Calls{});
    EXPECT_EQ(CallsOfCommand(0, 32775), (Calls{"item 32775"}));
    EXPECT_EQ(CallsOfCommand(0, 32783), (Calls{"item 32783"}));
    EXPECT_EQ(CallsOfCommand(0, 32784), Calls{});
}

TEST_F(MessageMap, TheBaseClassGetsWhatTheClassHasNoRowFor) {
    EXPECT_EQ(CallsOf(WM_TIMER, 3), (Calls{"base timer 3"}));
    EXPECT_EQ(CallsOfCommand(0, 7), (Calls{"base command"}));
    EXPECT_EQ(CallsOfCommand(BN_CLICKED, 8), (Calls{"click"}));
}

TEST_F(MessageMap, CommonControlsAreRoutedByCodeAndId) {
    const auto notify = [&](UINT_PTR id, UINT code) {
        const NMHDR header{nullptr, id, code};
        m_wnd.calls.clear();
        return m_wnd.SendMessage(WM_NOTIFY, id, reinterpret_cast<LPARAM>(&header));
    };
    EXPECT_EQ(notify(1215, NM_CUSTOMDRAW), 0);
    EXPECT_EQ(m_wnd.calls, Calls{});
    EXPECT_EQ(notify(1216, NM_CUSTOMDRAW), 12);
    EXPECT_EQ(m_wnd.calls, (Calls{"draw of many 1216"}));
    EXPECT_EQ(notify(1224, NM_CUSTOMDRAW), 12);
    EXPECT_EQ(m_wnd.calls, (Calls{"draw of many 1224"}));
    EXPECT_EQ(notify(1225, NM_CUSTOMDRAW), 0);
    EXPECT_EQ(m_wnd.calls, Calls{});
    EXPECT_EQ(notify(1224, NM_CLICK), 0);
    EXPECT_EQ(m_wnd.calls, Calls{});
}

TEST_F(MessageMap, ANotificationWithoutAHeaderIsNobodys) {
    EXPECT_EQ(CallsOf(WM_NOTIFY, 1216, 0), Calls{});
}

TEST_F(MessageMap, WithoutARowTheDefaultProcessingRuns) {
    m_wnd.SetWindowText("by default");
    EXPECT_EQ(m_wnd.GetWindowText(), "by default");
}

TEST_F(MessageMap, AHandlerThatThrowsCountsAsDone) {
    EXPECT_EQ(m_wnd.SendMessage(WM_COMMAND, 10), 0);
    EXPECT_EQ(CallsOfCommand(0, 7), (Calls{"base command"}));  // and the window works on
}

}  // namespace

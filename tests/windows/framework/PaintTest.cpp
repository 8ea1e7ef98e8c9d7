#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "framework/Dc.h"
#include "framework/Wnd.h"
#include "tests/windows/framework/TestWnd.h"

namespace {

using plotvane::test::CreateHidden;
using plotvane::test::DispatchAll;

class PaintedWnd : public CWnd {
public:
    std::function<void(HWND)> paint;
    int paints = 0;

private:
    void OnPaint() {
        ++paints;
        paint(m_hWnd);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(PaintedWnd, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

// Paints once. True if Windows would ask for the same again.
bool HasSomethingLeftToPaint(PaintedWnd& wnd) {
    wnd.ShowWindow(SW_SHOWNA);
    DispatchAll();
    wnd.Invalidate();
    wnd.UpdateWindow();
    const bool left = ::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE) != 0;
    ::ValidateRect(wnd.m_hWnd, nullptr);
    return left;
}

TEST(Paint, APaintDcTakesWhatIsToBePainted) {
    PaintedWnd wnd;
    wnd.paint = [](HWND window) { const CPaintDC dc{window}; };
    ASSERT_TRUE(CreateHidden(wnd));
    EXPECT_FALSE(HasSomethingLeftToPaint(wnd));
    EXPECT_GT(wnd.paints, 0);
}

TEST(Paint, AnExceptionWhilePaintingEndsThePainting) {
    PaintedWnd wnd;
    wnd.paint = [](HWND window) {
        const CPaintDC dc{window};
        throw std::runtime_error("while painting");
    };
    ASSERT_TRUE(CreateHidden(wnd));
    EXPECT_FALSE(HasSomethingLeftToPaint(wnd));
    EXPECT_GT(wnd.paints, 0);
}

// Without an end of the painting, this test would never return: WM_PAINT comes as long as an update region is
// left.
TEST(Paint, AnExceptionBeforePaintingDoesNotBringThePaintingBack) {
    PaintedWnd wnd;
    wnd.paint = [](HWND) { throw std::runtime_error("before painting"); };
    ASSERT_TRUE(CreateHidden(wnd));
    EXPECT_FALSE(HasSomethingLeftToPaint(wnd));
    EXPECT_GT(wnd.paints, 0);
}

TEST(Paint, TheClientDcDrawsOnTheWindow) {
    PaintedWnd wnd;
    wnd.paint = [](HWND window) { const CPaintDC dc{window}; };
    ASSERT_TRUE(CreateHidden(wnd));
    wnd.ShowWindow(SW_SHOWNA);
    DispatchAll();

    CClientDC dc{wnd.m_hWnd};
    dc.FillSolidRect(wnd.GetClientRect(), RGB(10, 20, 30));

    EXPECT_EQ(::GetPixel(dc, 50, 25), RGB(10, 20, 30));
}

// A window whose set-up fails.
class FailingWnd : public CWnd {
private:
    LRESULT OnCreate(WPARAM, LPARAM) { throw std::runtime_error("while being created"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(FailingWnd, CWnd)
    ON_MESSAGE(WM_CREATE, OnCreate)
END_MESSAGE_MAP()

TEST(Wnd, IsNotCreatedIfItsSetUpThrows) {
    FailingWnd wnd;
    EXPECT_FALSE(CreateHidden(wnd));
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

}  // namespace

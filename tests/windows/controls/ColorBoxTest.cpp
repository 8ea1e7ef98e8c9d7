#include "controls/ColorBox.h"

#include <gtest/gtest.h>

#include "framework/Dc.h"

namespace plotvane::test {
namespace {

constexpr Colour kFill = 0x3070B0;
constexpr Colour kFrame = 0xE0C020;

// Stands in for a dialog, which opens a meter when a swatch asks it for a menu.
class SwatchOwner : public CWnd {
public:
    bool wasAskedForAMenu = false;

private:
    void OnContextMenu(HWND, POINT) { wasAskedForAMenu = true; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(SwatchOwner, CWnd)
    ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

class ColorBox : public testing::Test {
protected:
    ColorBox() {
        RegisterWindowClass(L"ColorBoxTest", 0);
        parent.CreateEx(0, L"ColorBoxTest", "", WS_POPUP | WS_VISIBLE, CRect{0, 0, 60, 40}, nullptr, 0);
    }

    bool Create() { return box.Create(WS_CHILD | WS_VISIBLE, CRect{10, 5, 24, 17}, parent.m_hWnd, 1); }

    // The colour on the screen after painting.
    Colour At(int x, int y) {
        box.UpdateWindow();
        const CClientDC dc(box.m_hWnd);
        return ::GetPixel(dc, x, y);
    }

    SwatchOwner parent;
    CColorBox box;
};

TEST_F(ColorBox, FramesTheFillWithOnePixel) {
    ASSERT_TRUE(Create());
    box.SetFillColor(kFill);
    box.SetFrameColor(kFrame);
    const CRect client = box.GetClientRect();  // a sunken edge of one pixel takes two of the 14 by 12
    ASSERT_EQ(client.Width(), 12);
    ASSERT_EQ(client.Height(), 10);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 12; ++x) {
            const bool isEdge = x == 0 || x == 11 || y == 0 || y == 9;
            EXPECT_EQ(At(x, y), isEdge ? kFrame : kFill) << x << ", " << y;
        }
    }
}

TEST_F(ColorBox, IsBlackUntilSetAndAcceptsColoursBeforeItsWindow) {
    EXPECT_EQ(box.GetFillColor(), kBlack);
    box.SetFillColor(kFill);
    EXPECT_EQ(box.GetFillColor(), kFill);
    ASSERT_TRUE(Create());
    EXPECT_EQ(At(5, 5), kFill);
    EXPECT_EQ(At(0, 0), kBlack);
}

TEST_F(ColorBox, DropsTheHighByteOfAColour) {
    ASSERT_TRUE(Create());
    box.SetFillColor(0x01000000 | kFill);
    box.SetFrameColor(0x02000000 | kFrame);
    EXPECT_EQ(At(5, 5), kFill);
    EXPECT_EQ(At(0, 0), kFrame);
}

TEST_F(ColorBox, FollowsItsSize) {
    ASSERT_TRUE(Create());
    box.SetFillColor(kFill);
    box.SetFrameColor(kFrame);
    box.MoveWindow(CRect{10, 5, 44, 27});
    EXPECT_EQ(At(11, 9), kFill);
    EXPECT_EQ(At(31, 19), kFrame);
}

TEST_F(ColorBox, IsValidAfterPainting) {
    ASSERT_TRUE(Create());
    box.SetFillColor(kFill);
    EXPECT_TRUE(::GetUpdateRect(box.m_hWnd, nullptr, FALSE));
    box.UpdateWindow();
    EXPECT_FALSE(::GetUpdateRect(box.m_hWnd, nullptr, FALSE));
}

TEST_F(ColorBox, LeavesTheRightClickToItsParent) {
    ASSERT_TRUE(Create());
    box.SendMessage(WM_RBUTTONUP, 0, MAKELPARAM(3, 3));
    EXPECT_TRUE(parent.wasAskedForAMenu);
}

TEST_F(ColorBox, LeaksNoGdiObject) {
    const int before = LivingGdiObjects();
    for (int i = 0; i < 20; ++i) {
        box.SetFillColor(kFill);
        box.SetFrameColor(kFrame);
    }
    EXPECT_EQ(LivingGdiObjects(), before);
}

}  // namespace
}  // namespace plotvane::test

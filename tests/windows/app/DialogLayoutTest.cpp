#include "app/DialogLayout.h"

#include "tests/windows/app/MainDialogFixture.h"

namespace plotvane::test {
namespace {

using DialogLayoutTest = MainDialogFixture;

TEST_F(DialogLayoutTest, AControlsPlaceIsInTheDialogsClientPixels) {
    CRect onScreen;
    ::GetWindowRect(dialog.GetDlgItem(IDC_STOP), &onScreen);
    POINT corner{0, 0};
    ::ClientToScreen(dialog.m_hWnd, &corner);
    const CRect place = PlaceOfControl(dialog, IDC_STOP);
    EXPECT_EQ(place.left, onScreen.left - corner.x);
    EXPECT_EQ(place.top, onScreen.top - corner.y);
    EXPECT_EQ(place.Width(), onScreen.Width());
    EXPECT_EQ(place.Height(), onScreen.Height());
}

TEST_F(DialogLayoutTest, MovesEveryControlOfTheRunDownAndNoOther) {
    const Edges first = EdgesOf(IDC_SHOW_FIRST);
    const Edges last = EdgesOf(IDC_SHOW_LAST);
    const Edges other = EdgesOf(IDC_STOP);
    MoveControlsDown(dialog, IDC_SHOW_FIRST, IDC_SHOW_LAST, 17);
    EXPECT_EQ(EdgesOf(IDC_SHOW_FIRST), (Edges{first[0], first[1] + 17, first[2], first[3] + 17}));
    EXPECT_EQ(EdgesOf(IDC_SHOW_LAST), (Edges{last[0], last[1] + 17, last[2], last[3] + 17}));
    EXPECT_EQ(EdgesOf(IDC_STOP), other);
    MoveControlsDown(dialog, IDC_SHOW_FIRST, IDC_SHOW_LAST, -17);
    EXPECT_EQ(EdgesOf(IDC_SHOW_FIRST), first);
}

TEST_F(DialogLayoutTest, LeavesOutIdsWithoutAControl) {
    const Edges before = EdgesOf(IDC_STOP);
    MoveControlsDown(dialog, IDC_STOP, IDC_STOP, 5);
    MoveControlsDown(dialog, 30'000, 30'010, 5);
    EXPECT_EQ(EdgesOf(IDC_STOP), (Edges{before[0], before[1] + 5, before[2], before[3] + 5}));
}

TEST_F(DialogLayoutTest, GrowsAControlToTheRightAndDown) {
    const Edges before = EdgesOf(IDC_STOP);
    GrowControl(dialog, IDC_STOP, 7, -2);
    EXPECT_EQ(EdgesOf(IDC_STOP), (Edges{before[0], before[1], before[2] + 7, before[3] - 2}));
}

TEST_F(DialogLayoutTest, GivesTheWindowASizeBetweenTheLeastAndTheScreens) {
    ResizeOnTop(dialog, 500, 400);
    EXPECT_EQ(dialog.GetWindowRect().Width(), 500);
    EXPECT_EQ(dialog.GetWindowRect().Height(), 400);
    ResizeOnTop(dialog, 500, 20);
    EXPECT_EQ(dialog.GetWindowRect().Height(), 200);
    ResizeOnTop(dialog, 1'000'000, 1'000'000);
    EXPECT_EQ(dialog.GetWindowRect().Width(), ::GetSystemMetrics(SM_CXVIRTUALSCREEN));
    EXPECT_EQ(dialog.GetWindowRect().Height(), ::GetSystemMetrics(SM_CYVIRTUALSCREEN));
}

}  // namespace
}  // namespace plotvane::test

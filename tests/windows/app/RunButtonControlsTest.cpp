#include "app/RunButtonControls.h"

#include "tests/windows/app/MainDialogFixture.h"

namespace plotvane::test {
namespace {

class RunButtonControlsTest : public MainDialogFixture {
protected:
    RunButtonControlsTest() { buttons.SetUp(); }

    HANDLE ImageOf(int button) const {
        return reinterpret_cast<HANDLE>(dialog.SendDlgItemMessage(button, BM_GETIMAGE, IMAGE_ICON));
    }
    // A shared icon of one size is one handle for the whole process.
    static HANDLE Icon(int id) {
        return ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON, 16, 16, LR_SHARED);
    }

    RunButtonControls buttons{dialog};
};

TEST_F(RunButtonControlsTest, AtFirstThereIsNothingToStopOrToHold) {
    EXPECT_FALSE(IsEnabled(IDC_STOP));
    EXPECT_FALSE(IsEnabled(IDC_PAUSE));
    EXPECT_TRUE(IsEnabled(IDC_LOAD_LOG));
}

TEST_F(RunButtonControlsTest, EveryPushButtonWithAnIconHasOne) {
    for (const int id : {IDC_STOP, IDC_PAUSE, IDC_LOAD_LOG, IDC_SCALE_NEXT, IDC_SCALE_PREVIOUS,
                         IDC_SHIFT_DOWN, IDC_SHIFT_UP, IDC_REPLAY_FASTER, IDC_REPLAY_SLOWER})
        EXPECT_NE(ImageOf(id), nullptr) << id;
}

TEST_F(RunButtonControlsTest, PlusAndMinusAreTheRightWayRound) {
    for (const int id : {IDC_SCALE_NEXT, IDC_SHIFT_UP, IDC_REPLAY_FASTER})
        EXPECT_EQ(ImageOf(id), Icon(IDI_PLUS));
    for (const int id : {IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN, IDC_REPLAY_SLOWER})
        EXPECT_EQ(ImageOf(id), Icon(IDI_MINUS));
}

TEST_F(RunButtonControlsTest, StopAndLoadWearAnImageForWorkAndOneForRest) {
    EXPECT_EQ(ImageOf(IDC_STOP), Icon(IDI_STOP_IDLE));
    buttons.ShowStop(true);
    EXPECT_EQ(ImageOf(IDC_STOP), Icon(IDI_STOP_ACTIVE));
    buttons.ShowStop(false);
    EXPECT_EQ(ImageOf(IDC_STOP), Icon(IDI_STOP_IDLE));

    EXPECT_EQ(ImageOf(IDC_LOAD_LOG), Icon(IDI_LOAD_IDLE));
    buttons.ShowLoad(true);
    EXPECT_EQ(ImageOf(IDC_LOAD_LOG), Icon(IDI_LOAD_ACTIVE));
    buttons.ShowLoad(false);
    EXPECT_EQ(ImageOf(IDC_LOAD_LOG), Icon(IDI_LOAD_IDLE));
}

TEST_F(RunButtonControlsTest, PauseTellsWhatItOffersByItsImage) {
    EXPECT_EQ(ImageOf(IDC_PAUSE), Icon(IDI_PAUSE_IDLE));
    std::set<HANDLE> images;
    for (const PauseImage image :
         {PauseImage::Idle, PauseImage::Pause, PauseImage::Resume, PauseImage::StartOver}) {
        buttons.ShowPause(image);
        images.insert(ImageOf(IDC_PAUSE));
    }
    EXPECT_EQ(images, (std::set<HANDLE>{Icon(IDI_PAUSE_IDLE), Icon(IDI_PAUSE_ACTIVE), Icon(IDI_PLAY_ACTIVE),
                                        Icon(IDI_PLAY_IDLE)}));
}

// Counts the images that a button is given, in place of its window procedure.
class ImagesGiven {
public:
    explicit ImagesGiven(HWND button) : m_button(button) {
        s_count = 0;
        s_inner = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(button, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    }
    ~ImagesGiven() { ::SetWindowLongPtrW(m_button, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(s_inner)); }
    ImagesGiven(const ImagesGiven&) = delete;
    ImagesGiven& operator=(const ImagesGiven&) = delete;

    int Count() const { return s_count; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == BM_SETIMAGE) ++s_count;
        return ::CallWindowProcW(s_inner, window, message, wParam, lParam);
    }

    HWND m_button;
    static inline WNDPROC s_inner = nullptr;
    static inline int s_count = 0;
};

TEST_F(RunButtonControlsTest, AnImageThatIsShownIsNotSetAgain) {
    const ImagesGiven given(dialog.GetDlgItem(IDC_PAUSE));
    buttons.ShowPause(PauseImage::StartOver);
    EXPECT_EQ(given.Count(), 1);
    buttons.ShowPause(PauseImage::StartOver);
    EXPECT_EQ(given.Count(), 1);
    buttons.ShowPause(PauseImage::Pause);
    EXPECT_EQ(given.Count(), 2);
}

TEST_F(RunButtonControlsTest, ADisabledButtonPassesTheFocusOn) {
    dialog.ShowDlgItem(IDC_STOP, true);
    buttons.EnablePause(true);
    buttons.EnableStop(true);
    ::SetFocus(dialog.GetDlgItem(IDC_STOP));
    ASSERT_EQ(::GetDlgCtrlID(::GetFocus()), IDC_STOP);
    buttons.EnableLoad(false);
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDC_STOP);
    buttons.EnableStop(false);
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDC_PAUSE);
}

TEST_F(RunButtonControlsTest, EachButtonIsEnabledByItself) {
    buttons.EnableStop(true);
    EXPECT_TRUE(IsEnabled(IDC_STOP));
    EXPECT_FALSE(IsEnabled(IDC_PAUSE));
    buttons.EnablePause(true);
    EXPECT_TRUE(IsEnabled(IDC_PAUSE));
    buttons.EnableLoad(false);
    EXPECT_FALSE(IsEnabled(IDC_LOAD_LOG));
    buttons.EnableStop(false);
    EXPECT_FALSE(IsEnabled(IDC_STOP));
    EXPECT_TRUE(IsEnabled(IDC_PAUSE));
}

}  // namespace
}  // namespace plotvane::test

#include "app/RunButtonControls.h"

#include <cstdint>
#include <vector>

#include "tests/windows/app/MainDialogFixture.h"

namespace plotvane::test {
namespace {

class RunButtonControlsTest : public MainDialogFixture {
protected:
    RunButtonControlsTest() { buttons.SetUp(); }

    // What is on a button, to be compared with what an icon of the program is in that size. Empty if there is
    // none.
    std::vector<std::uint32_t> ImageOf(int button) const {
        return PixelsOf(reinterpret_cast<HICON>(dialog.SendDlgItemMessage(button, BM_GETIMAGE, IMAGE_ICON)));
    }
    static std::vector<std::uint32_t> Icon(int id) { return PixelsOf(LoadIconOf(id, 16, 16).Get()); }
    static std::vector<std::uint32_t> PixelsOf(HICON icon) {
        if (!icon) return {};
        const Picture picture(16, 16);
        ::DrawIconEx(picture.Dc(), 0, 0, icon, 16, 16, 0, nullptr, DI_NORMAL);
        const auto pixels = picture.Pixels();
        return {pixels.begin(), pixels.end()};
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
        EXPECT_FALSE(ImageOf(id).empty()) << id;
}

TEST_F(RunButtonControlsTest, PlusAndMinusAreTheRightWayRound) {
    for (const int id : {IDC_SCALE_NEXT, IDC_SHIFT_UP, IDC_REPLAY_FASTER})
        EXPECT_EQ(ImageOf(id), Icon(IDI_PLUS));
    for (const int id : {IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN, IDC_REPLAY_SLOWER})
        EXPECT_EQ(ImageOf(id), Icon(IDI_MINUS));
}

TEST_F(RunButtonControlsTest, StopAndLoadHaveAnImageForWorkAndOneForRest) {
    EXPECT_EQ(ImageOf(IDC_STOP), Icon(IDI_STOP_IDLE));
    EXPECT_EQ(ImageOf(IDC_LOAD_LOG), Icon(IDI_LOAD_IDLE));
    buttons.Show({.stopActive = true});
    EXPECT_EQ(ImageOf(IDC_STOP), Icon(IDI_STOP_ACTIVE));
    EXPECT_EQ(ImageOf(IDC_LOAD_LOG), Icon(IDI_LOAD_IDLE));
    buttons.Show({.loadActive = true});
    EXPECT_EQ(ImageOf(IDC_STOP), Icon(IDI_STOP_IDLE));
    EXPECT_EQ(ImageOf(IDC_LOAD_LOG), Icon(IDI_LOAD_ACTIVE));
    buttons.Show({});
    EXPECT_EQ(ImageOf(IDC_LOAD_LOG), Icon(IDI_LOAD_IDLE));
}

TEST_F(RunButtonControlsTest, PauseTellsWhatItOffersByItsImage) {
    const std::pair<PauseImage, int> icons[] = {{PauseImage::Idle, IDI_PAUSE_IDLE},
                                                {PauseImage::Pause, IDI_PAUSE_ACTIVE},
                                                {PauseImage::Resume, IDI_PLAY_ACTIVE},
                                                {PauseImage::StartOver, IDI_PLAY_IDLE}};
    for (const auto& [image, icon] : icons) {
        buttons.Show({.pause = image});
        EXPECT_EQ(ImageOf(IDC_PAUSE), Icon(icon)) << icon;
    }
}

// Takes the place of a button's window procedure, and counts the images that the button gets.
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
    buttons.Show({.pause = PauseImage::StartOver});
    EXPECT_EQ(given.Count(), 1);
    buttons.Show({.pause = PauseImage::StartOver});
    EXPECT_EQ(given.Count(), 1);
    buttons.Show({.pause = PauseImage::Pause});
    EXPECT_EQ(given.Count(), 2);
}

TEST_F(RunButtonControlsTest, ADisabledButtonPassesTheFocusOn) {
    dialog.ShowDlgItem(IDC_STOP, true);
    buttons.Show({.stopEnabled = true, .pauseEnabled = true});
    ::SetFocus(dialog.GetDlgItem(IDC_STOP));
    ASSERT_EQ(::GetDlgCtrlID(::GetFocus()), IDC_STOP);
    buttons.Show({.stopEnabled = true});
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDC_STOP);
    buttons.Show({.pauseEnabled = true});
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDC_PAUSE);
}

TEST_F(RunButtonControlsTest, EachButtonIsEnabledByItself) {
    buttons.Show({.stopEnabled = true});
    EXPECT_TRUE(IsEnabled(IDC_STOP));
    EXPECT_FALSE(IsEnabled(IDC_PAUSE));
    buttons.Show({.stopEnabled = true, .pauseEnabled = true});
    EXPECT_TRUE(IsEnabled(IDC_STOP));
    EXPECT_TRUE(IsEnabled(IDC_PAUSE));
    buttons.Show({.pauseEnabled = true});
    EXPECT_FALSE(IsEnabled(IDC_STOP));
    EXPECT_TRUE(IsEnabled(IDC_PAUSE));
    EXPECT_TRUE(IsEnabled(IDC_LOAD_LOG));
}

}  // namespace
}  // namespace plotvane::test

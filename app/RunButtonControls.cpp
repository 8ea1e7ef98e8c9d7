#include "app/RunButtonControls.h"

#include "res/resource.h"

namespace plotvane {
namespace {

constexpr int kImageSize = 16;

int PauseIcon(PauseImage image) {
    switch (image) {
        case PauseImage::Idle:
            return IDI_PAUSE_IDLE;
        case PauseImage::Pause:
            return IDI_PAUSE_ACTIVE;
        case PauseImage::Resume:
            return IDI_PLAY_ACTIVE;
        case PauseImage::StartOver:
            break;
    }
    return IDI_PLAY_IDLE;
}

}  // namespace

void RunButtonControls::SetUp() {
    for (const int plus : {IDC_SCALE_NEXT, IDC_SHIFT_UP, IDC_REPLAY_FASTER}) SetImage(plus, IDI_PLUS);
    for (const int minus : {IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN, IDC_REPLAY_SLOWER})
        SetImage(minus, IDI_MINUS);
    Show({});
}

// Pause before Stop: when Stop is disabled, it passes the focus on to Pause, which must be enabled by then.
void RunButtonControls::Show(const RunButtonsLook& look) {
    SetImage(IDC_STOP, look.stopActive ? IDI_STOP_ACTIVE : IDI_STOP_IDLE);
    SetImage(IDC_PAUSE, PauseIcon(look.pause));
    SetImage(IDC_LOAD_LOG, look.loadActive ? IDI_LOAD_ACTIVE : IDI_LOAD_IDLE);
    Enable(IDC_PAUSE, look.pauseEnabled);
    Enable(IDC_STOP, look.stopEnabled);
}

// A disabled button passes the focus on, because no key would do anything there.
void RunButtonControls::Enable(int button, bool enabled) {
    const HWND window = m_dialog.GetDlgItem(button);
    if (!enabled && ::GetFocus() == window) {
        const HWND previous = ::GetNextDlgTabItem(m_dialog.m_hWnd, window, TRUE);
        m_dialog.SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(previous), TRUE);
    }
    ::EnableWindow(window, enabled);
}

// An image that the button has already is not set again, because Wine's buttons keep three bitmaps of each
// image for ever.
void RunButtonControls::SetImage(int button, int icon) {
    CIcon& owner = m_icons[icon];
    if (!owner) owner = LoadIconOf(icon, kImageSize, kImageSize);
    const auto image = reinterpret_cast<LPARAM>(owner.Get());
    if (m_dialog.SendDlgItemMessage(button, BM_GETIMAGE, IMAGE_ICON) == image) return;
    m_dialog.SendDlgItemMessage(button, BM_SETIMAGE, IMAGE_ICON, image);
}

}  // namespace plotvane

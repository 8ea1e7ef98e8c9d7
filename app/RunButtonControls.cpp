#include "app/RunButtonControls.h"

#include "res/resource.h"

namespace plotvane {
namespace {

constexpr int kImageSize = 16;

}  // namespace

void RunButtonControls::SetUp() {
    ShowStop(false);
    ShowPause(PauseImage::Idle);
    ShowLoad(false);
    for (const int plus : {IDC_SCALE_NEXT, IDC_SHIFT_UP, IDC_REPLAY_FASTER}) SetImage(plus, IDI_PLUS);
    for (const int minus : {IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN, IDC_REPLAY_SLOWER})
        SetImage(minus, IDI_MINUS);
    EnableStop(false);
    EnablePause(false);
}

void RunButtonControls::ShowStop(bool active) {
    SetImage(IDC_STOP, active ? IDI_STOP_ACTIVE : IDI_STOP_IDLE);
}

void RunButtonControls::ShowPause(PauseImage image) {
    switch (image) {
        case PauseImage::Idle:
            SetImage(IDC_PAUSE, IDI_PAUSE_IDLE);
            break;
        case PauseImage::Pause:
            SetImage(IDC_PAUSE, IDI_PAUSE_ACTIVE);
            break;
        case PauseImage::Resume:
            SetImage(IDC_PAUSE, IDI_PLAY_ACTIVE);
            break;
        case PauseImage::StartOver:
            SetImage(IDC_PAUSE, IDI_PLAY_IDLE);
            break;
    }
}

void RunButtonControls::ShowLoad(bool active) {
    SetImage(IDC_LOAD_LOG, active ? IDI_LOAD_ACTIVE : IDI_LOAD_IDLE);
}

void RunButtonControls::EnableStop(bool enabled) {
    Enable(IDC_STOP, enabled);
}

void RunButtonControls::EnablePause(bool enabled) {
    Enable(IDC_PAUSE, enabled);
}

void RunButtonControls::EnableLoad(bool enabled) {
    Enable(IDC_LOAD_LOG, enabled);
}

// The focus does not stay with a disabled button, where no key would do anything.
void RunButtonControls::Enable(int button, bool enabled) {
    const HWND window = m_dialog.GetDlgItem(button);
    if (!enabled && ::GetFocus() == window) {
        const HWND previous = ::GetNextDlgTabItem(m_dialog.m_hWnd, window, TRUE);
        m_dialog.SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(previous), TRUE);
    }
    ::EnableWindow(window, enabled);
}

// Shared icons are the system's to free. An image that is shown already is left alone: Wine's buttons keep
// three bitmaps of each that they are given, for ever.
void RunButtonControls::SetImage(int button, int icon) {
    const auto image = reinterpret_cast<LPARAM>(::LoadImageW(
        ::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(icon), IMAGE_ICON, kImageSize, kImageSize, LR_SHARED));
    if (m_dialog.SendDlgItemMessage(button, BM_GETIMAGE, IMAGE_ICON) == image) return;
    m_dialog.SendDlgItemMessage(button, BM_SETIMAGE, IMAGE_ICON, image);
}

}  // namespace plotvane

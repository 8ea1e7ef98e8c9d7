#include "history/HistoryWnd.h"

#include <algorithm>
#include <string>

#include "history/TextFont.h"

namespace plotvane {
namespace {

constexpr UINT_PTR kRefreshTimer = 1;
constexpr UINT_PTR kSaveTimer = 2;  // while samples are saved
constexpr UINT kRefreshMs = 100;
constexpr UINT kSaveMs = 20;  // the data that flows has most of them
constexpr int kWidth = 1000;
constexpr int kHeight = 690;  // three lines for each of twelve traces
constexpr int kFromOwnerPx = 40;

const wchar_t* WindowClass() {
    constexpr const wchar_t* kName = L"PlotvaneHistory";
    RegisterWindowClass(kName, 0, ::LoadCursorW(nullptr, IDC_CROSS));
    return kName;
}

// A little aside of the owner, on its screen.
CRect PlaceBeside(HWND owner) {
    CRect beside;
    ::GetWindowRect(owner, &beside);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &monitor);
    const CRect screen = monitor.rcWork;
    const int width = std::min(kWidth, screen.Width());
    const int height = std::min(kHeight, screen.Height());
    const int left = std::clamp<int>(beside.left + kFromOwnerPx, screen.left, screen.right - width);
    const int top = std::clamp<int>(beside.top + kFromOwnerPx, screen.top, screen.bottom - height);
    return {left, top, left + width, top + height};
}

}  // namespace

BEGIN_MESSAGE_MAP(CHistoryWnd, CWnd)
    // The window itself.
    ON_WM_DESTROY()
    ON_WM_PAINT()
    ON_WM_SIZE()
    ON_WM_TIMER()
    ON_MESSAGE(WM_ERASEBKGND, OnErase)
    ON_MESSAGE(WM_MOVE, OnPlaceChange)
    ON_MESSAGE(WM_DISPLAYCHANGE, OnPlaceChange)
    // Keys and mouse.
    ON_MESSAGE(WM_KEYDOWN, OnKey)
    ON_MESSAGE(WM_LBUTTONDOWN, OnButtonDown)
    ON_MESSAGE(WM_LBUTTONUP, OnButtonUp)
    ON_MESSAGE(WM_MOUSEMOVE, OnMouseMove)
    ON_MESSAGE(WM_MOUSELEAVE, OnMouseLeave)
    ON_MESSAGE(WM_CAPTURECHANGED, OnCaptureLost)
    ON_MESSAGE(WM_MOUSEWHEEL, OnWheel)
END_MESSAGE_MAP()

bool CHistoryWnd::Open(HWND owner, int trace) {
    if (m_hWnd) {
        m_state->PreferScaleOf(trace);
        Invalidate(false);
        ShowWindow(IsIconic() ? SW_RESTORE : SW_SHOW);
        ::SetForegroundWindow(m_hWnd);
        return true;
    }
    m_saves.Forget();
    m_state.emplace(m_recording);
    m_state->PreferScaleOf(trace);
    m_font = CreateTextFont();
    {
        CClientDC screen(nullptr);
        const Selected fontInDc(screen, m_font);
        m_lineHeight = std::max<int>(screen.GetTextMetrics().tmHeight, 1);
    }
    if (!CreateEx(0, WindowClass(), "", WS_OVERLAPPEDWINDOW, PlaceBeside(owner), owner, 0)) return false;
    for (const WPARAM size : {ICON_SMALL, ICON_BIG})
        SendMessage(WM_SETICON, size, ::SendMessageW(owner, WM_GETICON, size, 0));
    ShowTitle();
    SetTimer(kRefreshTimer, kRefreshMs);
    ShowWindow(SW_SHOW);
    return true;
}

void CHistoryWnd::OnDestroy() {
    KillTimer(kRefreshTimer);
    KillTimer(kSaveTimer);
    m_saves.Cancel();
    m_drag.reset();
    m_windowDc.reset();
    m_canvas.reset();
    m_layout.reset();
    m_state.reset();
    m_font.Reset();
}

void CHistoryWnd::ShowTitle() {
    std::string title = "Plotvane - looking back";
    if (!m_recording.Title().empty()) title += " - " + m_recording.Title();
    SetWindowText(title);
    m_titledRun = m_recording.Run();
}

void CHistoryWnd::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    m_windowDc.reset();
    if (type == SIZE_MINIMIZED) return;
    m_canvas.emplace(width, height, m_font);
    m_layout.emplace(width, height, m_lineHeight, static_cast<int>(m_list.size()));
    m_state->SetPlotWidth(m_layout->Plot().Width());
    Invalidate(false);
}

LRESULT CHistoryWnd::OnPlaceChange(WPARAM, LPARAM) {
    m_windowDc.reset();
    return Default();
}

void CHistoryWnd::OnTimer(UINT_PTR timer) {
    if (timer == kSaveTimer) {
        const std::string before = m_saves.Note();
        m_saves.GoOn();
        if (!m_saves.IsGoing()) KillTimer(kSaveTimer);
        if (m_saves.Note() != before) Invalidate(false);
        return;
    }
    ShowWhatIsNew();
    if (m_recording.Run() != m_titledRun) ShowTitle();
}

// Before anything is asked: samples that a cursor stands on may have gone.
void CHistoryWnd::TakeWhatIsNew() {
    if (m_state->Refresh()) Invalidate(false);
}

// Ten times a second while data flows, so it does without a paint message: that would copy the whole window.
void CHistoryWnd::ShowWhatIsNew() {
    if (!m_state->Refresh() && !m_isDrawDue) return;
    if (!m_canvas || !*m_canvas || IsIconic()) return Invalidate(false);
    CopyToWindow(Draw());
}

void CHistoryWnd::CopyToWindow(const std::vector<PixelRect>& parts) {
    if (!m_windowDc) m_windowDc.emplace(m_hWnd);
    for (const PixelRect& part : parts)
        m_windowDc->BitBlt(part.left, part.top, part.Width(), part.Height(), m_canvas->Shown().Dc(),
                           part.left, part.top, SRCCOPY);
}

void CHistoryWnd::OnPaint() {
    CPaintDC dc(m_hWnd);
    if (!m_canvas || !*m_canvas) return;
    m_state->Refresh();
    const std::vector<PixelRect> parts = Draw();
    const Picture& shown = m_canvas->Shown();
    dc.BitBlt(0, 0, shown.Width(), shown.Height(), shown.Dc(), 0, 0, SRCCOPY);
    // What has changed may lie outside of what is to be painted.
    const CRect painted = dc.Paint().rcPaint;
    if (painted.Width() < shown.Width() || painted.Height() < shown.Height()) CopyToWindow(parts);
}

std::vector<PixelRect> CHistoryWnd::Draw() {
    m_isDrawDue = true;  // until it is done
    const Picture& shown = m_canvas->Shown();
    m_list = ListOf(*m_state);
    m_layout.emplace(shown.Width(), shown.Height(), m_lineHeight, static_cast<int>(m_list.size()));
    std::string note = m_saves.Note();
    if (note.empty()) note = RecordedNote(*m_state);
    std::vector<PixelRect> parts = m_canvas->Draw(*m_state, LookOf(m_prefs), *m_layout, m_list, note);
    m_isDrawDue = false;
    return parts;
}

void CHistoryWnd::CopyPicture() {
    if (!m_canvas || !*m_canvas) return;
    Draw();
    m_saves.CopyPicture(m_hWnd, m_canvas->Shown());
}

// While a dialog is over the window, only a message that somebody posts can ask for another.
void CHistoryWnd::Save(bool samples) {
    if (!::IsWindowEnabled(m_hWnd) || !m_canvas || !*m_canvas) return;
    if (!samples) {
        Draw();
        Invalidate(false);  // it may be drawn further than it is shown
        return m_saves.SavePicture(m_hWnd, m_canvas->Shown(), m_recording);
    }
    m_saves.SaveSamples(m_hWnd, *m_state);
    if (m_hWnd && m_saves.IsGoing()) SetTimer(kSaveTimer, kSaveMs);
}

}  // namespace plotvane

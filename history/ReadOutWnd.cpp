#include "history/ReadOutWnd.h"

#include <algorithm>

#include "framework/Dc.h"
#include "history/TextFont.h"

namespace plotvane {
namespace {

constexpr int kMarginPx = 6;
constexpr int kSwatchPx = 9;
constexpr int kBetweenPx = 14;  // name and value
constexpr int kFromPointerPx = 18;

const wchar_t* WindowClass() {
    constexpr const wchar_t* kName = L"PlotvaneReadOut";
    RegisterWindowClass(kName, 0);
    return kName;
}

// Below the pointer at its right, or at the other side where there is no room.
CRect PlaceBeside(POINT pointer, const SIZE& size) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromPoint(pointer, MONITOR_DEFAULTTONEAREST), &monitor);
    const CRect screen = monitor.rcWork;
    int left = pointer.x + kFromPointerPx;
    int top = pointer.y + kFromPointerPx;
    if (left + size.cx > screen.right) left = pointer.x - kFromPointerPx - size.cx;
    if (top + size.cy > screen.bottom) top = pointer.y - kFromPointerPx - size.cy;
    return {left, top, left + size.cx, top + size.cy};
}

}  // namespace

BEGIN_MESSAGE_MAP(CReadOutWnd, CWnd)
    ON_WM_PAINT()
    ON_MESSAGE(WM_ERASEBKGND, OnErase)
    ON_MESSAGE(WM_NCHITTEST, OnHitTest)
END_MESSAGE_MAP()

void CReadOutWnd::Show(HWND owner, POINT pointer, const ReadOut& readOut, const HistoryLook& look) {
    if (m_hWnd && readOut == m_readOut) return;
    m_readOut = readOut;
    m_look = look;
    const CRect place = PlaceBeside(pointer, Measure());
    if (m_hWnd) {
        SetWindowText(m_readOut.Text());
        ::SetWindowPos(m_hWnd, nullptr, place.left, place.top, place.Width(), place.Height(),
                       SWP_NOZORDER | SWP_NOACTIVATE);
        return Invalidate(false);
    }
    constexpr DWORD kStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE | WS_EX_TRANSPARENT;
    if (CreateEx(kStyle, WindowClass(), m_readOut.Text(), WS_POPUP, place, owner, 0))
        ShowWindow(SW_SHOWNOACTIVATE);
}

SIZE CReadOutWnd::Measure() {
    if (!m_font) m_font = CreateTextFont();
    CClientDC screen(nullptr);
    const Selected fontInDc(screen, m_font);
    m_lineHeight = std::max<int>(screen.GetTextMetrics().tmHeight, 1);
    m_nameWidth = 0;
    int valueWidth = 0;
    for (const ReadOut::Line& line : m_readOut.lines) {
        m_nameWidth = std::max<int>(m_nameWidth, screen.GetTextExtent(line.name).cx);
        valueWidth = std::max<int>(valueWidth, screen.GetTextExtent(line.value).cx);
    }
    const int lines = static_cast<int>(m_readOut.lines.size()) + 1;
    const int lineWidth = kSwatchPx + kMarginPx + m_nameWidth + kBetweenPx + valueWidth;
    const int width = std::max<int>(lineWidth, screen.GetTextExtent(m_readOut.age).cx);
    return {width + 2 * kMarginPx, lines * m_lineHeight + 2 * kMarginPx};
}

void CReadOutWnd::OnPaint() {
    CPaintDC dc(m_hWnd);
    const CRect client = GetClientRect();
    const Selected fontInDc(dc, m_font);
    dc.FillSolidRect(client, m_look.foreground);
    dc.FillSolidRect({1, 1, client.right - 1, client.bottom - 1}, m_look.background);
    dc.SetTextColor(m_look.foreground);
    dc.SetBkMode(TRANSPARENT);
    int top = kMarginPx;
    dc.TextOut(kMarginPx, top, m_readOut.age);
    for (const ReadOut::Line& line : m_readOut.lines) {
        top += m_lineHeight;
        const int swatchTop = top + (m_lineHeight - kSwatchPx) / 2;
        dc.FillSolidRect({kMarginPx, swatchTop, kMarginPx + kSwatchPx, swatchTop + kSwatchPx},
                         m_look.traces[static_cast<std::size_t>(line.trace)]);
        dc.SetTextAlign(TA_LEFT | TA_TOP);
        dc.TextOut(kMarginPx + kSwatchPx + kMarginPx, top, line.name);
        dc.SetTextAlign(TA_RIGHT | TA_TOP);
        dc.TextOut(client.right - kMarginPx, top, line.value);
        dc.SetTextAlign(TA_LEFT | TA_TOP);
    }
}

}  // namespace plotvane

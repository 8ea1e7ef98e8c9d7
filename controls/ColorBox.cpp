#include "controls/ColorBox.h"

#include "controls/PlotWindowClass.h"
#include "framework/Dc.h"

namespace plotvane {
namespace {

CBrush SolidBrush(Colour colour) {
    return CBrush{::CreateSolidBrush(DrawableColour(colour))};
}

}  // namespace

BEGIN_MESSAGE_MAP(CColorBox, CNamedControl)
    ON_WM_PAINT()
    ON_WM_SIZE()
END_MESSAGE_MAP()

CColorBox::CColorBox() : m_fillBrush(SolidBrush(m_fillColour)), m_frameBrush(SolidBrush(m_frameColour)) {}

bool CColorBox::Create(DWORD style, const RECT& rect, HWND parent, UINT id) {
    if (!RegisterPlotWindowClass()) return false;
    if (!CreateEx(WS_EX_STATICEDGE, kPlotWindowClass, "", style, rect, parent, id)) return false;
    Invalidate();
    return true;
}

void CColorBox::SetFillColor(Colour colour) {
    m_fillColour = colour;
    m_fillBrush = SolidBrush(colour);
    if (m_hWnd) Invalidate();
}

void CColorBox::SetFrameColor(Colour colour) {
    m_frameColour = colour;
    m_frameBrush = SolidBrush(colour);
    if (m_hWnd) Invalidate();
}

void CColorBox::OnPaint() {
    CPaintDC dc(m_hWnd);
    dc.FillRect(m_client, m_fillBrush.Get());
    dc.FrameRect(m_client, m_frameBrush.Get());
}

void CColorBox::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    m_client = GetClientRect();
}

}  // namespace plotvane

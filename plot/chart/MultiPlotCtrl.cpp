#include "plot/chart/MultiPlotCtrl.h"

#include <algorithm>

#include "controls/PlotWindowClass.h"
#include "plot/chart/ChartLabels.h"
#include "scaling/PresetColours.h"

namespace plotvane {
namespace {

constexpr int kWidestPenPx = 10;

RECT ToRect(const PixelRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

}  // namespace

BEGIN_MESSAGE_MAP(CMultiPlotCtrl, CNamedControl)
    ON_WM_DESTROY()
    ON_WM_PAINT()
    ON_WM_SIZE()
END_MESSAGE_MAP()

CMultiPlotCtrl::CMultiPlotCtrl(const Prefs& prefs, const RunState& state, const SlotTable& slots)
    : m_prefs(prefs), m_state(state), m_slots(slots), m_backgroundBrush(::CreateSolidBrush(kBlack)) {
    const auto colours = DefaultTraceColours();
    for (int trace = 0; trace < kTraceCount; ++trace) {
        m_traces[trace].colour = colours[trace];
        m_pens[trace].pen = CPen{::CreatePen(PS_SOLID, 0, colours[trace])};
    }
}

bool CMultiPlotCtrl::Create(DWORD style, const RECT& rect, HWND parent, UINT id) {
    constexpr DWORD kEdges = WS_EX_STATICEDGE | WS_EX_CLIENTEDGE;
    if (!RegisterPlotWindowClass()) return false;
    if (!CreateEx(kEdges, kPlotWindowClass, "", style, rect, parent, id)) return false;
    InvalidateCtrl();
    return true;
}

void CMultiPlotCtrl::ReleasePictures() {
    m_picture.Release();
}

void CMultiPlotCtrl::SetRange(double lower, double upper, int trace) {
    m_traces[trace].SetRange(lower, upper, m_geometry.Plot().Height());
    InvalidateCtrl();
}

void CMultiPlotCtrl::SetXUnits(std::string_view label, std::string_view text1, std::string_view text2) {
    m_xTexts = {std::string(label), std::string(text1), std::string(text2)};
    InvalidateCtrl();
}

void CMultiPlotCtrl::SetYUnits(std::string_view label, std::string_view minimumText,
                               std::string_view maximumText) {
    m_yTexts = {std::string(label), std::string(minimumText), std::string(maximumText)};
    InvalidateCtrl();
}

void CMultiPlotCtrl::SetBackgroundColor(Colour colour) {
    m_backgroundBrush = CBrush{::CreateSolidBrush(DrawableColour(colour))};
    InvalidateCtrl();
}

void CMultiPlotCtrl::SetGridColor(Colour colour) {
    m_gridColour = colour;
    InvalidateCtrl();
}

void CMultiPlotCtrl::SetTraceColor(Colour colour, int trace) {
    m_traces[trace].colour = colour;
    // The preferences file may contain any number.
    const int width = std::clamp(m_prefs.thickness, 0, kWidestPenPx);
    m_pens[trace] = {CPen{::CreatePen(PS_SOLID, width, DrawableColour(colour))}, width};
}

Colour CMultiPlotCtrl::GetTraceColor(int trace) const {
    return m_traces[trace].colour;
}

void CMultiPlotCtrl::AppendPoints(const TraceValues& values) {
    RedrawIfDue();
    TakeValues(values);
    const int shift = ShiftFor(m_state.pixelShift);
    if (m_picture) {
        m_picture.LiftGrid();
        ScrollTraces(shift);
        CDC dc(m_picture.Dc());
        for (int trace = 0; trace < kTraceCount; ++trace) {
            DrawSegment(dc, m_traces[trace].TakeSegment(m_geometry, shift), m_pens[trace]);
        }
        m_picture.LayGrid();
    }
    ShowSample();
}

void CMultiPlotCtrl::AppendGap(const TraceValues& values) {
    RedrawIfDue();
    TakeValues(values);
    const int shift = ShiftFor(kGapPx);
    if (m_picture) {
        m_picture.LiftGrid();
        ScrollTraces(shift);
        for (PlotTrace& trace : m_traces) trace.TakeGap(m_geometry);
        m_picture.LayGrid();
    }
    ShowSample();
}

void CMultiPlotCtrl::InvalidateCtrl() {
    m_isRedrawDue = true;
    Changed();
    if (m_isRedrawOn) RedrawIfDue();
}

void CMultiPlotCtrl::SetRedraw(bool on) noexcept {
    m_isRedrawOn = on;
    if (on && m_hasChangedUnseen) Changed();
}

void CMultiPlotCtrl::RedrawIfDue() {
    if (!m_isRedrawDue) return;
    if (m_hWnd) RedrawPicture();
    m_isRedrawDue = false;
}

void CMultiPlotCtrl::RedrawPicture() {
    const PixelRect client = m_geometry.Client();
    if (m_picture.Create(client.Width(), client.Height())) {
        // Only the first trace's limits decide the width that all labels get.
        m_geometry.SetLabelMargin({.lower = m_traces[0].lower,
                                   .upper = m_traces[0].upper,
                                   .withUnits = m_prefs.showUnits,
                                   .extraCharacters = m_labelMargin});
        const LabelRules rules{.showUnits = m_prefs.showUnits,
                               .showZeros = m_prefs.showZeros,
                               .tenChannels = m_state.tenChannels,
                               .customMinimum = m_yTexts.first,
                               .customMaximum = m_yTexts.second,
                               .scaleColour = m_gridColour};
        const auto labels = ChartLabels(m_slots, m_traces.all, rules, m_geometry.Plot());
        FillWithBackground(client);
        DrawChartGrid(m_picture, m_geometry, m_gridCounts, m_gridColour, labels);
        m_picture.TakeGrid();
        FillWithBackground(client);  // traces without a line
        m_picture.LayGrid();
    }
}

void CMultiPlotCtrl::Changed() noexcept {
    m_hasChangedUnseen = !m_isRedrawOn;
    if (!m_isRedrawOn || !m_hWnd) return;
    m_isPaintDue = true;
    Invalidate();
}

// Draws at once, because invalidating the window and being asked to paint it would cost more than composing
// and copying the picture. If a repaint is pending, the window is left alone until WM_PAINT.
void CMultiPlotCtrl::ShowSample() {
    if (!m_isRedrawOn || !m_hWnd || m_isPaintDue) return Changed();
    CClientDC dc(m_hWnd);
    Draw(dc);
}

int CMultiPlotCtrl::ShiftFor(int shift) {
    return std::max(m_spread.Take(shift, m_geometry.Plot().Width()), 0);
}

void CMultiPlotCtrl::TakeValues(const TraceValues& values) {
    for (int trace = 0; trace < kTraceCount; ++trace) m_traces[trace].current = values[trace];
}

void CMultiPlotCtrl::ScrollTraces(int shift) {
    if (shift <= 0) return;
    m_picture.ScrollLeft(m_geometry.ScrolledArea(), shift);
    FillWithBackground(m_geometry.BaredStrip(shift));
}

void CMultiPlotCtrl::DrawSegment(CDC& dc, const TraceSegment& segment, const TracePen& pen) {
    // Wide lines are filled polygons and cost time for every row that they cross, visible or not. One that
    // runs a million rows away takes 30 ms under Wine.
    std::optional<PixelLine> line = segment.line;
    if (pen.width > 1) {
        line = ShortenFarLine(segment.line, -kWidestPenPx, m_picture.Height() + kWidestPenPx);
    }
    if (line) {
        const Selected penInDc(dc, pen.pen);
        dc.MoveTo(line->from.x, line->from.y);
        dc.LineTo(line->to.x, line->to.y);
    }
    // Clipping by erasing costs less than a clip region. It is also part of how the chart looks.
    if (segment.wipedAbove) FillWithBackground(*segment.wipedAbove);
    if (segment.wipedBelow) FillWithBackground(*segment.wipedBelow);
}

void CMultiPlotCtrl::FillWithBackground(const PixelRect& area) {
    CDC(m_picture.Dc()).FillRect(ToRect(area), m_backgroundBrush.Get());
}

void CMultiPlotCtrl::Draw(CDC& dc) {
    RedrawIfDue();
    const PixelRect client = m_geometry.Client();
    if (!m_picture) {
        dc.FillRect(ToRect(client), static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
        return;
    }
    if (m_picture.Width() != client.Width() || m_picture.Height() != client.Height()) {
        dc.FillRect(ToRect(client), static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
    }
    dc.BitBlt(0, 0, m_picture.Width(), m_picture.Height(), m_picture.Dc(), 0, 0, SRCCOPY);
}

void CMultiPlotCtrl::OnDestroy() {
    m_isPaintDue = false;
    CWnd::OnDestroy();
}

void CMultiPlotCtrl::OnPaint() {
    m_isPaintDue = false;
    CPaintDC dc(m_hWnd);
    if (m_isRedrawOn) {
        Draw(dc);
    } else {
        m_hasChangedUnseen = true;
    }
}

void CMultiPlotCtrl::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    const CRect client = GetClientRect();
    m_geometry = ChartGeometry(client.Width(), client.Height());
    for (PlotTrace& trace : m_traces) trace.FitTo(m_geometry.Plot().Height());
}

}  // namespace plotvane

#include "meter/DialPicture.h"

#include <string>

#include "meter/GdiPoints.h"

namespace plotvane {
namespace {

DialRect ToDial(const CRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

CFont CreateMeterFont(int height) {
    return CFont{::CreateFontW(height, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, ANSI_CHARSET,
                               OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                               DEFAULT_PITCH | FF_SWISS, L"Arial")};
}

void DrawBackground(CDC& dc, const CRect& client, Colour colour) {
    const CBrush brush{::CreateSolidBrush(colour)};
    const Selected brushInDc{dc, brush};
    dc.Rectangle(client);  // the default black pen of a new device context draws the outline
}

void DrawBevel(CDC& dc, const FacePoints& face) {
    const FacePoints bevel = BevelOf(face);
    const CPen shadow{::CreatePen(PS_SOLID, 1, ::GetSysColor(COLOR_BTNSHADOW))};
    const CPen highlight{::CreatePen(PS_SOLID, 1, ::GetSysColor(COLOR_BTNHIGHLIGHT))};
    {
        const Selected penInDc{dc, shadow};
        dc.MoveTo(bevel.front().x, bevel.front().y);
        for (std::size_t i = 1; i <= kArcPoints; ++i) dc.LineTo(bevel[i].x, bevel[i].y);
    }
    const Selected penInDc{dc, highlight};
    for (std::size_t i = kArcPoints; i < bevel.size(); ++i) dc.LineTo(bevel[i].x, bevel[i].y);
    dc.LineTo(bevel.front().x, bevel.front().y);
}

}  // namespace

DialPicture::DialPicture(HDC like, const CRect& client, const Gauge& gauge)
    : m_geometry(ToDial(client)),
      m_dc(::CreateCompatibleDC(like)),
      m_bitmap(::CreateCompatibleBitmap(like, client.Width(), client.Height())),
      m_bitmapInDc(m_dc.Get(), m_bitmap) {
    CDC dc{m_dc.Get()};
    DrawBackground(dc, client, gauge.BackgroundColor());
    if (!m_geometry.HasDial()) return;
    DrawFace(dc, gauge);
    m_font = CreateMeterFont(m_geometry.FontHeight());
    DrawLabels(dc, gauge);
}

void DialPicture::DrawFace(CDC& dc, const Gauge& gauge) {
    const FacePoints face = m_geometry.Face();
    const auto outline = ToGdi(face);
    m_faceRegion = CRgn{::CreatePolygonRgn(outline.data(), static_cast<int>(outline.size()), ALTERNATE)};
    DrawBevel(dc, face);

    const CPen pen{::CreatePen(PS_SOLID, 1, gauge.TicksColor())};
    const CBrush brush{::CreateSolidBrush(gauge.FaceColor())};
    const Selected penInDc{dc, pen};
    const Selected brushInDc{dc, brush};
    dc.Polygon(outline);
    DrawTicks(dc);
}

void DialPicture::DrawTicks(CDC& dc) {
    for (const auto& [from, to] : m_geometry.Ticks()) {
        dc.MoveTo(from.x, from.y);
        dc.LineTo(to.x, to.y);
    }
}

void DialPicture::DrawLabels(CDC& dc, const Gauge& gauge) {
    const Selected fontInDc{dc, m_font};
    m_textPlaces = m_geometry.TextPlaces(dc.GetTextMetrics().tmHeight);
    dc.SetTextColor(gauge.TextColor());
    dc.SetBkColor(gauge.BackgroundColor());
    dc.SetTextAlign(TA_CENTER | TA_BASELINE);
    std::string text;
    gauge.AppendMinLabel(text);
    dc.TextOut(m_textPlaces.minLabel.x, m_textPlaces.minLabel.y, text);
    text.clear();
    gauge.AppendMaxLabel(text);
    dc.TextOut(m_textPlaces.maxLabel.x, m_textPlaces.maxLabel.y, text);
}

}  // namespace plotvane

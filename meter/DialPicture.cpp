#include "meter/DialPicture.h"

#include <string>

#include "meter/GdiPoints.h"

namespace plotvane {
namespace {

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

DialPicture::DialPicture(const CRect& client, const Gauge& gauge)
    : m_geometry(ToDial(client)), m_picture(client.Width(), client.Height()) {
    if (!m_picture) return;
    CDC dc{m_picture.Dc()};
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

DialRect DialPicture::TextBounds(DialPoint place, int width) const {
    // A letter may reach beyond its cell, and the middle of an odd width may be rounded to either side.
    constexpr int kAboveAndBelow = 1;
    const int beside = 2 + m_geometry.FontHeight() / 8;
    return {place.x - width / 2 - beside, place.y - m_ascent - kAboveAndBelow, place.x + width / 2 + beside,
            place.y + m_descent + kAboveAndBelow};
}

void DialPicture::DrawLabels(CDC& dc, const Gauge& gauge) {
    const Selected fontInDc{dc, m_font};
    const TEXTMETRICW metrics = dc.GetTextMetrics();
    m_textPlaces = m_geometry.TextPlaces(metrics.tmHeight);
    m_ascent = metrics.tmAscent;
    m_descent = metrics.tmDescent;
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

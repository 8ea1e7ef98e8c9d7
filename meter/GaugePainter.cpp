#include "meter/GaugePainter.h"

#include "meter/GdiPoints.h"

namespace plotvane {
namespace {

// Needle and markers end where the face does.
class FaceClip {
public:
    FaceClip(CDC& dc, HRGN face) : m_dc(dc) { m_dc.SelectClipRgn(face); }
    ~FaceClip() { m_dc.SelectClipRgn(nullptr); }
    FaceClip(const FaceClip&) = delete;
    FaceClip& operator=(const FaceClip&) = delete;

private:
    CDC& m_dc;
};

// With the device context's own pen and brush, which are selected.
void FillTriangle(CDC& dc, const DialTriangle& triangle, Colour colour) {
    ::SetDCPenColor(dc, colour);
    ::SetDCBrushColor(dc, colour);
    dc.Polygon(ToGdi(triangle));
}

}  // namespace

void GaugePainter::DiscardDial() {
    m_surface.Release();
    m_dial.reset();
}

void GaugePainter::Paint(CDC& target, const CRect& client, const Gauge& gauge) {
    if (client.Width() <= 0 || client.Height() <= 0) return;
    if (!m_dial || !*m_dial) {
        DiscardDial();
        m_dial = std::make_unique<DialPicture>(target, client, gauge);
    }
    CMemoryDC dc{target, client, m_surface};
    dc.BitBlt(0, 0, client.Width(), client.Height(), m_dial->Dc(), 0, 0, SRCCOPY);
    if (!m_dial->Geometry().HasDial()) return;
    if (m_dial->FaceRegion()) {
        const FaceClip clip{dc, m_dial->FaceRegion()};
        // The device context's own, which cost no making and freeing.
        const Selected penInDc{dc, ::GetStockObject(DC_PEN)};
        const Selected brushInDc{dc, ::GetStockObject(DC_BRUSH)};
        DrawMarkers(dc, gauge);
        DrawNeedle(dc, gauge);
    }
    DrawTexts(dc, gauge);
}

void GaugePainter::DrawMarkers(CDC& dc, const Gauge& gauge) const {
    const DialGeometry& dial = m_dial->Geometry();
    if (gauge.ShowsMinMarker()) {
        const double angle = AngleOfValue(gauge.MinSeen(), gauge.MinValue(), gauge.MaxValue());
        FillTriangle(dc, dial.MinMarker(angle), gauge.MarkerColor());
    }
    if (gauge.ShowsMaxMarker()) {
        const double angle = AngleOfValue(gauge.MaxSeen(), gauge.MinValue(), gauge.MaxValue());
        FillTriangle(dc, dial.MaxMarker(angle), gauge.MarkerColor());
    }
}

void GaugePainter::DrawNeedle(CDC& dc, const Gauge& gauge) const {
    const double angle = AngleOfValue(gauge.Value(), gauge.MinValue(), gauge.MaxValue());
    const DialNeedle needle = m_dial->Geometry().Needle(angle);
    FillTriangle(dc, needle.lit, gauge.NeedleColor());
    FillTriangle(dc, needle.shaded, gauge.NeedleShadeColor());
}

void GaugePainter::DrawTexts(CDC& dc, const Gauge& gauge) {
    const DialTextPlaces& places = m_dial->TextPlaces();
    m_surface.KeepFont(m_dial->Font());
    dc.SetTextColor(gauge.TextColor());
    dc.SetBkColor(gauge.BackgroundColor());
    dc.SetTextAlign(TA_CENTER | TA_BASELINE);

    m_text.clear();
    gauge.AppendValueText(m_text);
    dc.TextOut(places.value.x, places.value.y, m_text);
    if (gauge.ShowsPeak()) {
        m_text.clear();
        gauge.AppendPeakText(m_text, m_peakLabel);
        dc.TextOut(places.peak.x, places.peak.y, m_text);
    }
}

}  // namespace plotvane

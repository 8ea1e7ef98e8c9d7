#include "meter/GaugePainter.h"

#include "meter/DialPicture.h"
#include "meter/GdiPoints.h"
#include "meter/MemoryDc.h"

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
void Fill(CDC& dc, const FilledTriangle& triangle) {
    ::SetDCPenColor(dc, triangle.colour);
    ::SetDCBrushColor(dc, triangle.colour);
    dc.Polygon(ToGdi(triangle.corners));
}

}  // namespace

// What is made again together: the dial, and the picture with what its drawing needs, selected once.
struct GaugePainter::Sheet {
    Sheet(const CRect& client, const Gauge& gauge)
        : dial(client, gauge),
          picture(client.Width(), client.Height()),
          fontInDc(picture.Dc(), dial.Font()),
          penInDc(picture.Dc(), ::GetStockObject(DC_PEN)),
          brushInDc(picture.Dc(), ::GetStockObject(DC_BRUSH)) {
        CDC dc{picture.Dc()};
        dc.SetTextColor(gauge.TextColor());
        dc.SetBkColor(gauge.BackgroundColor());
        dc.SetTextAlign(TA_CENTER | TA_BASELINE);
    }

    explicit operator bool() const { return dial && picture; }

    const DialPicture dial;
    const Picture picture;
    const Selected fontInDc;
    const Selected penInDc;
    const Selected brushInDc;
};

GaugePainter::GaugePainter(std::string peakLabel) : m_peakLabel(std::move(peakLabel)) {}

GaugePainter::~GaugePainter() = default;

void GaugePainter::DiscardDial() {
    m_sheet.reset();
    m_perhapsUnseen = {};
    for (MovingPart& part : m_drawn) part.Hide();
}

void GaugePainter::Paint(CDC& target, const CRect& client, const Gauge& gauge) {
    if (client.Width() <= 0 || client.Height() <= 0) return;
    const bool isNew = !m_sheet;
    if (isNew) m_sheet = std::make_unique<Sheet>(client, gauge);
    if (!*m_sheet) return DiscardDial();
    PlaceNext(gauge);
    if (isNew) {
        m_plan.TakeAll(ToDial(client));
    } else {
        m_plan.TakeDifference(m_drawn, m_next);
    }
    for (const DialRect& rect : m_plan.changed) m_perhapsUnseen = Union(m_perhapsUnseen, rect);
    CMemoryDC dc{target, m_sheet->picture, {&client, 1}};
    DrawNext(dc);
}

bool GaugePainter::LooksDifferent(const Gauge& gauge) {
    PlaceNext(gauge);
    m_plan.TakeDifference(m_drawn, m_next);
    return !m_plan.changed.empty() || !m_perhapsUnseen.IsEmpty();
}

void GaugePainter::PaintDifference(CDC& target) {
    m_shown.clear();
    for (const DialRect& rect : m_plan.changed) m_shown.push_back(ToGdi(rect));
    if (!m_perhapsUnseen.IsEmpty()) m_shown.push_back(ToGdi(m_perhapsUnseen));
    m_perhapsUnseen = {};
    CMemoryDC dc{target, m_sheet->picture, m_shown};
    DrawNext(dc);
}

void GaugePainter::PlaceNext(const Gauge& gauge) {
    const DialPicture& dial = m_sheet->dial;
    if (!dial.Geometry().HasDial()) {
        for (MovingPart& part : m_next) part.Hide();
        return;
    }
    PlaceParts(m_next, dial.Geometry(), dial.TextPlaces(), gauge, m_peakLabel);
    const CDC dc{m_sheet->picture.Dc()};
    for (std::size_t i = 0; i < kMovingParts; ++i) {
        MovingPart& part = m_next[i];
        if (part.text.empty()) continue;
        // Measuring a text takes half as long as drawing it.
        const bool isDrawn = part.text == m_drawn[i].text;
        part.bounds =
            isDrawn ? m_drawn[i].bounds : dial.TextBounds(part.textPlace, dc.GetTextExtent(part.text).cx);
    }
}

void GaugePainter::DrawNext(CDC& dc) {
    for (const DialRect& rect : m_plan.restored) {
        dc.BitBlt(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, m_sheet->dial.Dc(),
                  rect.left, rect.top, SRCCOPY);
    }
    for (std::size_t i = 0; i < kMovingParts; ++i) {
        if (m_plan.isDrawn[i]) DrawPart(dc, m_next[i]);
    }
    std::swap(m_drawn, m_next);
}

void GaugePainter::DrawPart(CDC& dc, const MovingPart& part) const {
    const HRGN face = m_sheet->dial.FaceRegion();
    if (face && !part.triangles.empty()) {
        const FaceClip clip{dc, face};
        for (const FilledTriangle& triangle : part.triangles) Fill(dc, triangle);
    }
    // Some font may have a letter that reaches further than anybody thought. Clipped, it is no wider when the
    // whole meter is painted than when only this text is.
    if (!part.text.empty())
        dc.TextOutClipped(part.textPlace.x, part.textPlace.y, ToGdi(part.bounds), part.text);
}

}  // namespace plotvane

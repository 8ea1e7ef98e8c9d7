#include "history/HistoryCanvas.h"

#include <new>
#include <utility>

#include "framework/Dc.h"
#include "framework/Text.h"

namespace plotvane {
namespace {

void DrawText(CDC& dc, const PlacedText& text, const PixelRect& part) {
    const PixelRect visible = Intersection(text.Reach(), part);
    if (visible.IsEmpty() || text.text.empty()) return;
    int x = text.place.left;
    UINT align = TA_LEFT;
    if (text.side == PlacedText::Side::Right) {
        x = text.place.right;
        align = TA_RIGHT;
    } else if (text.side == PlacedText::Side::Centre) {
        x = (text.place.left + text.place.right) / 2;
        align = TA_CENTER;
    }
    dc.SetTextAlign(align | TA_TOP);
    dc.SetTextColor(text.colour);
    const CRect clip(visible.left, visible.top, visible.right, visible.bottom);
    const WideText wide(text.text);
    ::ExtTextOutW(dc.GetSafeHdc(), x, text.place.top, ETO_CLIPPED, &clip, wide.c_str(),
                  static_cast<UINT>(wide.Length()), nullptr);
}

}  // namespace

std::vector<PixelRect> HistoryCanvas::Draw(const LookBack& state, const HistoryLook& look,
                                           const HistoryLayout& layout, const std::vector<ListedTrace>& list,
                                           const std::string& note) {
    try {
        return DrawPicture({state, look, layout, list, note, m_plotter});
    } catch (const std::bad_alloc&) {
        m_drawn.reset();
        m_plotter = {};
    }
    return DrawPicture({state, look, layout, list, note, m_plotter});
}

std::vector<PixelRect> HistoryCanvas::DrawPicture(HistoryPicture picture) {
    std::vector<PixelRect> parts{picture.Client()};
    if (m_drawn) parts = picture.ChangesSince(*m_drawn);
    m_drawn.reset();  // until all parts are drawn
    CDC dc(m_shown.Dc());
    dc.SetBkMode(TRANSPARENT);
    // Parts may overlap, and a letter drawn twice looks bolder: so each part is drawn to its end before the
    // next.
    for (const PixelRect& part : parts) {
        picture.Paint({m_shown.Pixels().data(), m_shown.Width(), m_shown.Height()}, part);
        for (const PlacedText& text : picture.Texts()) DrawText(dc, text, part);
    }
    m_drawn.emplace(std::move(picture));
    return parts;
}

}  // namespace plotvane

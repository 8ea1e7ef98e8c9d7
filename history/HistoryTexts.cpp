#include "history/HistoryTexts.h"

#include <algorithm>
#include <utility>

#include "history/SlotMarks.h"
#include "history/TimeTicks.h"
#include "history/TraceRuns.h"
#include "history/TraceTexts.h"

namespace plotvane {
namespace {

constexpr int kOverhangPx = 2;
constexpr int kHintPx = 380;  // the room that the hint takes, at least as much is left for what changes
constexpr const char* kHint = "wheel: zoom   drag: move   click: fix   Shift+click: compare";

using Side = PlacedText::Side;

class TextWriter {
public:
    TextWriter(const LookBack& state, const HistoryLook& look, const HistoryLayout& layout)
        : m_state(state), m_look(look), m_layout(layout) {}

    void AddScale();
    void AddTimes();
    void AddMarks();
    void AddList(const std::vector<ListedTrace>& list);
    void AddStatus(const std::string& note);

    std::vector<PlacedText> Texts() && { return std::move(m_texts); }

private:
    const LookBack& m_state;
    const HistoryLook& m_look;
    const HistoryLayout& m_layout;
    std::vector<PlacedText> m_texts;
};

// At the ends of the scale, and between them where they do not crowd.
void TextWriter::AddScale() {
    const auto trace = m_state.ScaleTrace();
    const auto sample = m_state.ToldSample();
    if (!trace || !sample) return;
    const RecordedTrace& shown = *ShownAt(m_state.Samples(), *trace, *sample);
    const PixelRect& plot = m_layout.Plot();
    const int height = m_layout.LineHeight();
    constexpr int kEnd = HistoryLayout::kGridRows + 1;
    const bool isRoomy = plot.Height() / kEnd >= height + height / 2;
    for (int i = 0; i <= kEnd; i += isRoomy ? 1 : kEnd) {
        const double value = shown.upper + (shown.lower - shown.upper) * i / kEnd;
        const int middle = plot.top + m_layout.GridRow(i);
        const int top = std::clamp(middle - height / 2, plot.top - height / 2, plot.bottom - height / 2);
        m_texts.push_back({ValueText(shown, value),
                           {0, top, plot.left - 5, top + height},
                           Side::Right,
                           m_look.traces[static_cast<std::size_t>(*trace)]});
    }
}

void TextWriter::AddTimes() {
    const PixelRect& times = m_layout.Times();
    for (const TimeTick& tick : TimeTicks(m_state.View(), HistoryLayout::kTickDistancePx)) {
        const int x = m_layout.Plot().left + static_cast<int>(m_state.View().ColumnOf(tick.seconds));
        const PixelRect place{x - HistoryLayout::kTickDistancePx / 2, times.top,
                              x + HistoryLayout::kTickDistancePx / 2, times.bottom};
        m_texts.push_back({tick.text, place, Side::Centre, m_look.foreground});
    }
}

void TextWriter::AddMarks() {
    const PixelRect& plot = m_layout.Plot();
    for (const SlotMark& mark : SlotMarksOf(m_state)) {
        const int left = plot.left + mark.column + 4;
        m_texts.push_back({mark.text,
                           {left, plot.top, plot.right, plot.top + m_layout.LineHeight()},
                           Side::Left,
                           m_look.foreground});
    }
}

void TextWriter::AddList(const std::vector<ListedTrace>& list) {
    for (int entry = 0; entry < static_cast<int>(list.size()); ++entry) {
        const ListedTrace& listed = list[static_cast<std::size_t>(entry)];
        const bool isBehind = listed.isHidden || (m_state.Front() && !listed.isInFront);
        const Colour colour = isBehind ? m_look.Faded(m_look.foreground) : m_look.foreground;
        const auto add = [&](const std::string& text, int line, Side side) {
            m_texts.push_back({text, m_layout.LineOf(entry, line), side, colour});
        };
        if (m_layout.LinesOfTrace() > 1) {
            add(listed.name, 0, Side::Left);
            add(listed.difference, 1, Side::Left);
        }
        add(listed.value, 1, Side::Right);
        if (m_layout.LinesOfTrace() > 2) add(listed.extent, 2, Side::Right);
    }
}

void TextWriter::AddStatus(const std::string& note) {
    const CursorTexts cursors = TimesOfCursors(m_state);
    std::string text = cursors.time;
    for (const std::string& part : {cursors.distance.empty() ? "" : "diff " + cursors.distance, note}) {
        if (part.empty()) continue;
        if (!text.empty()) text += "     ";
        text += part;
    }
    PixelRect place = m_layout.Status();
    if (place.Width() >= 2 * kHintPx) {
        m_texts.push_back({kHint, place, Side::Right, m_look.Faded(m_look.foreground)});
        place.right -= kHintPx;
    }
    m_texts.push_back({std::move(text), place, Side::Left, m_look.foreground});
}

}  // namespace

PixelRect PlacedText::Reach() const {
    PixelRect reach{place.left, place.top, place.right + kOverhangPx, place.bottom};
    // No letter is wider than a line is high.
    const int widest = static_cast<int>(text.size()) * place.Height() + kOverhangPx;
    if (side == Side::Left) reach.right = std::min(reach.right, place.left + widest);
    if (side == Side::Right) reach.left = std::max(reach.left, place.right - widest);
    return reach;
}

std::vector<PlacedText> TextsOf(const LookBack& state, const HistoryLook& look, const HistoryLayout& layout,
                                const std::vector<ListedTrace>& list, const std::string& note) {
    TextWriter writer(state, look, layout);
    if (!layout.Plot().IsEmpty()) {
        writer.AddScale();
        writer.AddTimes();
        writer.AddMarks();
    }
    writer.AddList(list);
    writer.AddStatus(note);
    return std::move(writer).Texts();
}

}  // namespace plotvane

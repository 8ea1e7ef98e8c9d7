#include "history/HistoryPicture.h"

#include <algorithm>

#include "history/SlotMarks.h"
#include "history/TimeTicks.h"

namespace plotvane {
namespace {

void Fill(const ChartPixels& pixels, const PixelRect& part, const PixelRect& rect, Colour colour) {
    const PixelRect filled = Intersection(rect, part);
    for (int y = filled.top; y < filled.bottom && filled.left < filled.right; ++y)
        std::fill(pixels.Row(y) + filled.left, pixels.Row(y) + filled.right, PixelOf(colour));
}

// One pixel wide, just outside of what it frames.
void Frame(const ChartPixels& pixels, const PixelRect& part, const PixelRect& inside, Colour colour) {
    const PixelRect rect{inside.left - 1, inside.top - 1, inside.right + 1, inside.bottom + 1};
    Fill(pixels, part, {rect.left, rect.top, rect.right, rect.top + 1}, colour);
    Fill(pixels, part, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, colour);
    Fill(pixels, part, {rect.left, rect.top, rect.left + 1, rect.bottom}, colour);
    Fill(pixels, part, {rect.right - 1, rect.top, rect.right, rect.bottom}, colour);
}

PlotGround GroundOf(const Viewport& view, const HistoryLook& look, const HistoryLayout& layout) {
    PlotGround ground{look.background, look.foreground, {}, {}};
    for (int i = 1; i <= HistoryLayout::kGridRows; ++i) ground.gridRows.push_back(layout.GridRow(i));
    for (const TimeTick& tick : TimeTicks(view, HistoryLayout::kTickDistancePx))
        ground.gridColumns.push_back(static_cast<int>(view.ColumnOf(tick.seconds)));
    return ground;
}

// Adds a part. One that meets the last one from below, and begins or ends in the same column, is joined to
// it: a text that has grown or shrunk, and lines of texts below one another.
void Add(std::vector<PixelRect>& parts, const PixelRect& part) {
    if (!parts.empty()) {
        PixelRect& last = parts.back();
        const bool isAligned = part.left == last.left || part.right == last.right;
        if (isAligned && part.top >= last.top && part.top <= last.bottom) {
            last = {std::min(last.left, part.left), last.top, std::max(last.right, part.right),
                    std::max(last.bottom, part.bottom)};
            return;
        }
    }
    parts.push_back(part);
}

// Where one of two sequences has what the other has not at the same place in it. `placeOf` tells where that
// is seen.
template <typename Item, typename PlaceOf>
void AddChanges(std::vector<PixelRect>& parts, const std::vector<Item>& items,
                const std::vector<Item>& before, const PlaceOf& placeOf) {
    for (std::size_t i = 0; i < std::max(items.size(), before.size()); ++i) {
        if (i < items.size() && i < before.size() && items[i] == before[i]) continue;
        if (i < before.size()) Add(parts, placeOf(before[i]));
        if (i < items.size()) Add(parts, placeOf(items[i]));
    }
}

}  // namespace

HistoryPicture::HistoryPicture(const LookBack& state, const HistoryLook& look, const HistoryLayout& layout,
                               const std::vector<ListedTrace>& list, const std::string& note,
                               TracePlotter& plotter)
    : m_look(look),
      m_layout(layout),
      m_plot{layout.Plot(), GroundOf(state.View(), look, layout), {}, look.thickness},
      m_texts(TextsOf(state, look, layout, list, note)) {
    if (!layout.Plot().IsEmpty()) {
        plotter.Plot(state, look, m_plot);
        AddLines(state);
    }
    for (const ListedTrace& listed : list)
        m_list.push_back({listed.isHidden, look.ColourOf(listed.trace, state.Front())});
}

// The cursors, and where slots got something else to show.
void HistoryPicture::AddLines(const LookBack& state) {
    const auto add = [&](double column, Colour colour) {
        if (column < 0.0 || column >= m_layout.Plot().Width()) return;
        m_lines.push_back({static_cast<int>(column), colour});
    };
    for (const SlotMark& mark : SlotMarksOf(state)) add(mark.column, m_look.Faded(m_look.foreground));
    if (const auto column = state.CursorColumn()) add(*column, m_look.foreground);
    if (const auto second = state.Second())
        add(state.View().ColumnOf(state.Samples().Seconds(*second)), m_look.foreground);
}

PixelRect HistoryPicture::PlaceOf(const VerticalLine& line) const {
    const PixelRect& plot = m_layout.Plot();
    return {plot.left + line.column, plot.top, plot.left + line.column + 1, plot.bottom};
}

std::vector<PixelRect> HistoryPicture::ChangesSince(const HistoryPicture& earlier) const {
    if (m_look != earlier.m_look || m_layout != earlier.m_layout) return {Client()};
    std::vector<PixelRect> parts;
    const ColumnRange columns = ChangedColumns(m_plot, earlier.m_plot);
    const PixelRect& plot = m_layout.Plot();
    if (!columns.IsEmpty())
        parts.push_back({plot.left + columns.begin, plot.top, plot.left + columns.end, plot.bottom});
    AddChanges(parts, m_lines, earlier.m_lines, [this](const VerticalLine& line) { return PlaceOf(line); });
    // A list too long for the window goes on below its place.
    const PixelRect& list = m_layout.List();
    if (m_list != earlier.m_list) parts.push_back({list.left, list.top, Client().right, Client().bottom});
    AddChanges(parts, m_texts, earlier.m_texts, [](const PlacedText& text) { return text.Reach(); });
    return parts;
}

void HistoryPicture::Paint(const ChartPixels& pixels, const PixelRect& part) const {
    const PixelRect inside = Intersection(part, {0, 0, pixels.width, pixels.height});
    const PixelRect& client = m_layout.Client();
    const PixelRect& plot = m_layout.Plot();
    // What the plot covers is painted once.
    Fill(pixels, inside, {0, 0, client.right, plot.top}, m_look.background);
    Fill(pixels, inside, {0, plot.bottom, client.right, client.bottom}, m_look.background);
    Fill(pixels, inside, {0, plot.top, plot.left, plot.bottom}, m_look.background);
    Fill(pixels, inside, {plot.right, plot.top, client.right, plot.bottom}, m_look.background);
    PaintList(pixels, inside);
    if (plot.IsEmpty()) return;
    PaintPlot(pixels, m_plot, inside);
    Frame(pixels, inside, plot, m_look.foreground);
    PaintLines(pixels, inside);
}

void HistoryPicture::PaintLines(const ChartPixels& pixels, const PixelRect& part) const {
    for (const VerticalLine& line : m_lines) Fill(pixels, part, PlaceOf(line), line.colour);
}

void HistoryPicture::PaintList(const ChartPixels& pixels, const PixelRect& part) const {
    for (int i = 0; i < static_cast<int>(m_list.size()); ++i) {
        const Entry& entry = m_list[static_cast<std::size_t>(i)];
        const PixelRect mark = m_layout.MarkOf(i);
        const PixelRect inside{mark.left + 1, mark.top + 1, mark.right - 1, mark.bottom - 1};
        Frame(pixels, part, inside, m_look.foreground);
        const PixelRect filling{mark.left + 3, mark.top + 3, mark.right - 3, mark.bottom - 3};
        if (!entry.isHidden) Fill(pixels, part, filling, m_look.foreground);
        Fill(pixels, part, m_layout.SwatchOf(i), entry.colour);
    }
}

}  // namespace plotvane

#include "history/HistoryPicture.h"

#include <algorithm>
#include <utility>

#include "history/SlotMarks.h"
#include "history/TimeTicks.h"
#include "history/TraceRuns.h"
#include "history/TraceTexts.h"

namespace plotvane {
namespace {

constexpr int kGridRows = 9;  // as the chart has it
constexpr int kTickDistancePx = 90;
constexpr int kMostThickness = 10;
constexpr int kHintPx = 380;  // the room that the hint takes, at least as much is left for what changes
constexpr const char* kHint = "wheel: zoom   drag: move   click: fix   Shift+click: compare";
constexpr int kShareOfFaded = 35;  // percent of the colour; the rest is the background's

using Side = PlacedText::Side;

Colour Mixed(Colour one, Colour other, int percentOfOne) {
    const auto mix = [&](int a, int b) {
        return static_cast<std::uint8_t>((a * percentOfOne + b * (100 - percentOfOne)) / 100);
    };
    return MakeColour(mix(RedOf(one), RedOf(other)), mix(GreenOf(one), GreenOf(other)),
                      mix(BlueOf(one), BlueOf(other)));
}

void Fill(const ChartPixels& picture, const PixelRect& rect, Colour colour) {
    const int left = std::max(rect.left, 0);
    const int right = std::min(rect.right, picture.width);
    for (int y = std::max(rect.top, 0); y < std::min(rect.bottom, picture.height) && left < right; ++y) {
        std::uint32_t* const row = picture.pixels + static_cast<std::ptrdiff_t>(y) * picture.width;
        std::fill(row + left, row + right, PixelOf(colour));
    }
}

// One pixel wide, just outside of what it frames.
void Frame(const ChartPixels& picture, const PixelRect& inside, Colour colour) {
    const PixelRect rect{inside.left - 1, inside.top - 1, inside.right + 1, inside.bottom + 1};
    Fill(picture, {rect.left, rect.top, rect.right, rect.top + 1}, colour);
    Fill(picture, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, colour);
    Fill(picture, {rect.left, rect.top, rect.left + 1, rect.bottom}, colour);
    Fill(picture, {rect.right - 1, rect.top, rect.right, rect.bottom}, colour);
}

int GridRow(int i, int rows) {
    return rows * i / (kGridRows + 1);
}

}  // namespace

HistoryLook LookOf(const Prefs& prefs) {
    HistoryLook look{DrawableColour(prefs.backColor), DrawableColour(prefs.gridColor), {}, 1};
    std::ranges::transform(prefs.lineColor, look.traces.begin(), DrawableColour);
    look.thickness = std::clamp(prefs.thickness, 1, kMostThickness);
    return look;
}

HistoryPicture::HistoryPicture(const LookBack& state, const HistoryLook& look, const HistoryLayout& layout,
                               std::vector<ListedTrace> list, std::string note)
    : m_state(state), m_look(look), m_layout(layout), m_list(std::move(list)), m_note(std::move(note)) {
    if (!layout.Plot().IsEmpty() && !state.Samples().IsEmpty()) PlotTraces();
}

// The one in front comes last, over the others.
void HistoryPicture::PlotTraces() {
    const TraceColumns columns(m_state.Samples(), m_state.View());
    for (int trace = 0; trace < kSlotCount; ++trace) {
        if (!m_state.IsHidden(trace) && trace != m_state.Front()) m_traces.push_back(Plotted(trace, columns));
    }
    if (const auto front = m_state.Front()) m_traces.push_back(Plotted(*front, columns));
}

PlottedTrace HistoryPicture::Plotted(int trace, const TraceColumns& columns) const {
    const Recording& recording = m_state.Samples();
    const auto width = static_cast<std::size_t>(m_state.View().Width());
    // The lines that lead out of the view at both sides are seen too.
    const LookBack::SampleRange view = m_state.InView();
    const auto runs = RunsOf(recording, trace, std::max(view.begin - 1, recording.Begin()),
                             std::min(view.end + 1, recording.End()));
    PlottedTrace plotted{ColourOf(trace), std::vector<RowSpan>(width)};
    std::vector<ColumnSpan> spans;
    for (const TraceRun& run : runs) {
        const int first = columns.LineThrough(trace, run.begin, run.end, spans);
        const RowScale scale(run.shown->lower, run.shown->upper, m_layout.Plot().Height());
        auto column = plotted.columns.begin() + first;
        for (const ColumnSpan& span : spans) (column++)->Include(scale.RowsOf(span));
    }
    return plotted;
}

Colour HistoryPicture::Faded(Colour colour) const {
    return Mixed(colour, m_look.background, kShareOfFaded);
}

Colour HistoryPicture::ColourOf(int trace) const {
    const Colour colour = m_look.traces[static_cast<std::size_t>(trace)];
    return m_state.Front() && m_state.Front() != trace ? Faded(colour) : colour;
}

PlotGround HistoryPicture::Ground() const {
    PlotGround ground{m_look.background, m_look.foreground, {}, {}};
    for (int i = 1; i <= kGridRows; ++i) ground.gridRows.push_back(GridRow(i, m_layout.Plot().Height()));
    for (const TimeTick& tick : TimeTicks(m_state.View(), kTickDistancePx))
        ground.gridColumns.push_back(static_cast<int>(m_state.View().ColumnOf(tick.seconds)));
    return ground;
}

void HistoryPicture::Paint(const ChartPixels& picture) const {
    const PixelRect& client = m_layout.Client();
    const PixelRect& plot = m_layout.Plot();
    // What the plot covers is painted once.
    Fill(picture, {0, 0, client.right, plot.top}, m_look.background);
    Fill(picture, {0, plot.bottom, client.right, client.bottom}, m_look.background);
    Fill(picture, {0, plot.top, plot.left, plot.bottom}, m_look.background);
    Fill(picture, {plot.right, plot.top, client.right, plot.bottom}, m_look.background);
    PaintList(picture);
    if (plot.IsEmpty()) return;
    PaintPlot(picture, plot, Ground(), m_traces, m_look.thickness);
    Frame(picture, plot, m_look.foreground);
    PaintLines(picture);
}

// The cursors, and where slots got something else to show.
void HistoryPicture::PaintLines(const ChartPixels& picture) const {
    const PixelRect& plot = m_layout.Plot();
    const auto paint = [&](double column, Colour colour) {
        if (column < 0.0 || column >= plot.Width()) return;
        const int x = plot.left + static_cast<int>(column);
        Fill(picture, {x, plot.top, x + 1, plot.bottom}, colour);
    };
    for (const SlotMark& mark : SlotMarksOf(m_state)) paint(mark.column, Faded(m_look.foreground));
    if (const auto column = m_state.CursorColumn()) paint(*column, m_look.foreground);
    if (const auto second = m_state.Second())
        paint(m_state.View().ColumnOf(m_state.Samples().Seconds(*second)), m_look.foreground);
}

void HistoryPicture::PaintList(const ChartPixels& picture) const {
    for (int entry = 0; entry < static_cast<int>(m_list.size()); ++entry) {
        const ListedTrace& listed = m_list[static_cast<std::size_t>(entry)];
        const PixelRect mark = m_layout.MarkOf(entry);
        const PixelRect inside{mark.left + 1, mark.top + 1, mark.right - 1, mark.bottom - 1};
        Frame(picture, inside, m_look.foreground);
        const PixelRect filling{mark.left + 3, mark.top + 3, mark.right - 3, mark.bottom - 3};
        if (!listed.isHidden) Fill(picture, filling, m_look.foreground);
        Fill(picture, m_layout.SwatchOf(entry), ColourOf(listed.trace));
    }
}

std::vector<PlacedText> HistoryPicture::Texts() const {
    std::vector<PlacedText> texts;
    if (!m_layout.Plot().IsEmpty()) {
        AddScale(texts);
        AddTimes(texts);
        AddMarks(texts);
    }
    AddList(texts);
    AddStatus(texts);
    return texts;
}

// At the ends of the scale, and between them where they do not crowd.
void HistoryPicture::AddScale(std::vector<PlacedText>& texts) const {
    const auto trace = m_state.ScaleTrace();
    const auto sample = m_state.ToldSample();
    if (!trace || !sample) return;
    const RecordedTrace& shown = *ShownAt(m_state.Samples(), *trace, *sample);
    const PixelRect& plot = m_layout.Plot();
    const int height = m_layout.LineHeight();
    const bool isRoomy = plot.Height() / (kGridRows + 1) >= height + height / 2;
    for (int i = 0; i <= kGridRows + 1; i += isRoomy ? 1 : kGridRows + 1) {
        const double value = shown.upper + (shown.lower - shown.upper) * i / (kGridRows + 1);
        const int middle = plot.top + GridRow(i, plot.Height());
        const int top = std::clamp(middle - height / 2, plot.top - height / 2, plot.bottom - height / 2);
        texts.push_back({ValueText(shown, value),
                         {0, top, plot.left - 5, top + height},
                         Side::Right,
                         m_look.traces[static_cast<std::size_t>(*trace)]});
    }
}

void HistoryPicture::AddTimes(std::vector<PlacedText>& texts) const {
    const PixelRect& times = m_layout.Times();
    for (const TimeTick& tick : TimeTicks(m_state.View(), kTickDistancePx)) {
        const int x = m_layout.Plot().left + static_cast<int>(m_state.View().ColumnOf(tick.seconds));
        const PixelRect place{x - kTickDistancePx / 2, times.top, x + kTickDistancePx / 2, times.bottom};
        texts.push_back({tick.text, place, Side::Centre, m_look.foreground});
    }
}

void HistoryPicture::AddMarks(std::vector<PlacedText>& texts) const {
    const PixelRect& plot = m_layout.Plot();
    for (const SlotMark& mark : SlotMarksOf(m_state)) {
        const int left = plot.left + mark.column + 4;
        texts.push_back({mark.text,
                         {left, plot.top, plot.right, plot.top + m_layout.LineHeight()},
                         Side::Left,
                         m_look.foreground});
    }
}

void HistoryPicture::AddList(std::vector<PlacedText>& texts) const {
    for (int entry = 0; entry < static_cast<int>(m_list.size()); ++entry) {
        const ListedTrace& listed = m_list[static_cast<std::size_t>(entry)];
        const bool isBehind = listed.isHidden || (m_state.Front() && !listed.isInFront);
        const Colour colour = isBehind ? Faded(m_look.foreground) : m_look.foreground;
        const auto add = [&](const std::string& text, int line, Side side) {
            texts.push_back({text, m_layout.LineOf(entry, line), side, colour});
        };
        if (m_layout.LinesOfTrace() > 1) {
            add(listed.name, 0, Side::Left);
            add(listed.difference, 1, Side::Left);
        }
        add(listed.value, 1, Side::Right);
        if (m_layout.LinesOfTrace() > 2) add(listed.extent, 2, Side::Right);
    }
}

void HistoryPicture::AddStatus(std::vector<PlacedText>& texts) const {
    const CursorTexts cursors = TimesOfCursors(m_state);
    std::string text = cursors.time;
    for (const std::string& part : {cursors.distance.empty() ? "" : "diff " + cursors.distance, m_note}) {
        if (part.empty()) continue;
        if (!text.empty()) text += "     ";
        text += part;
    }
    PixelRect place = m_layout.Status();
    if (place.Width() >= 2 * kHintPx) {
        texts.push_back({kHint, place, Side::Right, Faded(m_look.foreground)});
        place.right -= kHintPx;
    }
    texts.push_back({std::move(text), place, Side::Left, m_look.foreground});
}

}  // namespace plotvane

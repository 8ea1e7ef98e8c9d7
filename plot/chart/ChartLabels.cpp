#include "plot/chart/ChartLabels.h"

#include "base/Numbers.h"

namespace plotvane {
namespace {

constexpr int kLineHeightPx = 11;
constexpr int kDistanceFromPlotPx = 4;

// Adds labels that all end at the same column.
class LabelColumn {
public:
    LabelColumn(std::vector<ChartLabel>& labels, const PixelRect& plot)
        : m_labels(labels), m_right(plot.left - kDistanceFromPlotPx) {}

    void Add(std::string_view text, Colour colour, int y, ChartLabel::Upright upright) {
        if (text.empty()) return;
        m_labels.push_back({std::string(text), colour, m_right, y, upright});
    }

private:
    std::vector<ChartLabel>& m_labels;
    int m_right;
};

std::string LimitText(double limit, const FieldSlot& slot, const LabelRules& rules) {
    std::string text;
    AppendNumber(text, limit);
    if (rules.showUnits) {
        text += ' ';
        text += slot.unit;
    }
    return text;
}

void AddMaxima(LabelColumn& column, const SlotTable& slots, std::span<const PlotTrace> traces,
               const LabelRules& rules, const PixelRect& plot) {
    int down = 0;
    auto trace = traces.begin();
    for (const FieldSlot& slot : slots.slots) {
        if (!slot.IsActive()) continue;
        std::string text(rules.customMaximum);
        if (text.empty()) {
            text = LimitText(trace->upper, slot, rules);
            down += kLineHeightPx;
        }
        column.Add(text, trace->colour, plot.top + down - 16, ChartLabel::Upright::Top);
        ++trace;
    }
}

void AddMinima(LabelColumn& column, const SlotTable& slots, std::span<const PlotTrace> traces,
               const LabelRules& rules, const PixelRect& plot) {
    int up = 0;
    auto trace = traces.begin();
    for (const FieldSlot& slot : slots.slots) {
        if (!slot.IsActive()) continue;
        std::string text(rules.customMinimum);
        if (text.empty() && (trace->lower != 0.0 || rules.showZeros)) {
            text = LimitText(trace->lower, slot, rules);
            up += kLineHeightPx;
        }
        column.Add(text, trace->colour, plot.bottom - up + 12, ChartLabel::Upright::Baseline);
        ++trace;
    }
}

}  // namespace

std::vector<ChartLabel> ChartLabels(const SlotTable& slots, std::span<const PlotTrace> traces,
                                    const LabelRules& rules, const PixelRect& plot) {
    std::vector<ChartLabel> labels;
    LabelColumn column(labels, plot);
    if (!rules.tenChannels) {
        AddMaxima(column, slots, traces, rules, plot);
        AddMinima(column, slots, traces, rules, plot);
    }
    if (slots[0].group == 0) {
        constexpr auto kBaseline = ChartLabel::Upright::Baseline;
        column.Add("0", rules.scaleColour, plot.bottom + 1, kBaseline);
        column.Add("255", rules.scaleColour, plot.top + 4, kBaseline);
        column.Add("128", rules.scaleColour, (plot.top + plot.bottom) / 2 + 2, kBaseline);
    }
    return labels;
}

}  // namespace plotvane

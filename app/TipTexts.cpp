#include "app/TipTexts.h"

#include <algorithm>
#include <array>

#include "base/Numbers.h"
#include "base/PlaceIn.h"
#include "plot/binding/TenChannels.h"
#include "res/resource.h"

namespace plotvane {
namespace {

struct ButtonTip {
    int control;
    unsigned text;
};
constexpr std::array kButtonTips = {
    ButtonTip{IDC_STOP, IDS_TIP_STOP},
    ButtonTip{IDC_PAUSE, IDS_TIP_PAUSE},
    ButtonTip{IDC_LOAD_LOG, IDS_TIP_LOAD_LOG},
    ButtonTip{IDC_REPLAY_SLOWER, IDS_TIP_REPLAY_SLOWER},
    ButtonTip{IDC_REPLAY_FASTER, IDS_TIP_REPLAY_FASTER},
    ButtonTip{IDC_SCALE_NEXT, IDS_TIP_SCALE_NEXT},
    ButtonTip{IDC_SCALE_PREVIOUS, IDS_TIP_SCALE_PREVIOUS},
    ButtonTip{IDC_SHIFT_DOWN, IDS_TIP_SHIFT_DOWN},
    ButtonTip{IDC_SHIFT_UP, IDS_TIP_SHIFT_UP},
    ButtonTip{IDC_MILEAGE, IDS_TIP_MILEAGE},
    ButtonTip{IDC_CONSUMPTION, IDS_TIP_CONSUMPTION},
};

void AppendLine(std::string& text, const std::string& line) {
    if (line.empty()) return;
    if (!text.empty()) text += '\n';
    text += line;
}

}  // namespace

std::string TipTexts::Of(int control) const {
    for (const int first : {IDC_VALUE_FIRST, IDC_SWATCH_WINDOW_FIRST}) {
        if (const auto slot = PlaceIn(first, kSlotCount, control)) return OfSlot(*slot);
    }
    for (const int first : {IDC_CHANNEL_VALUE_FIRST, IDC_CHANNEL_SWATCH_WINDOW_FIRST}) {
        if (const auto channel = PlaceIn(first, kChannelCount, control)) return OfChannel(*channel);
    }
    return OfButton(control);
}

std::string TipTexts::OfButton(int control) const {
    if (PlaceIn(IDC_AIR_FUEL_FIRST, kSlotCount, control)) return m_load(IDS_TIP_AIR_FUEL);
    if (control >= IDC_SHOW_FIRST && control <= IDC_CHANNEL_SHOW_LAST) return m_load(IDS_TIP_SHOW);
    const auto tip = std::ranges::find(kButtonTips, control, &ButtonTip::control);
    return tip == kButtonTips.end() ? std::string() : m_load(tip->text);
}

std::string TipTexts::OfSlot(int slot) const {
    const FieldSlot& field = m_data.slots[slot];
    if (!field.IsActive()) return {};
    const ScaleRange range = m_data.ranges.RangeOf(field.group, field.field);
    std::string text = NamesOf(field);
    AppendLine(text, NumbersOf(field));
    AppendLine(text, RangeText(range.min, range.max, field.unit));
    return text;
}

// A channel has the number that its meter has.
std::string TipTexts::OfChannel(int channel) const {
    std::string text = m_load(IDS_FIELD_NUMBER);
    AppendDecimal(text, channel + 1);
    AppendLine(text, RangeText(TenChannels::kLowest, TenChannels::kHighest, {}));
    return text;
}

// "Engine - Engine speed actual". Fields count from 0, their labels from 1.
std::string TipTexts::NamesOf(const FieldSlot& field) const {
    std::string name = m_labels.FieldName(field.group, field.field + 1);
    const std::string& second = m_labels.FieldSecondText(field.group, field.field + 1);
    if (!name.empty() && !second.empty()) name += ' ';
    name += second;
    const std::string& title = m_labels.GroupTitle(field.group);
    if (title.empty() || name.empty()) return title + name;
    return title + " - " + name;
}

// "Group 1, field 2": counted from 1, as in the label file; "PID 12" of generic OBD data.
std::string TipTexts::NumbersOf(const FieldSlot& field) const {
    std::string text = m_load(m_data.state.obdFile ? IDS_TIP_PID : IDS_TIP_GROUP);
    text += ' ';
    AppendDecimal(text, field.group);
    if (m_data.state.obdFile) return text;
    text += ", " + m_load(IDS_TIP_FIELD) + ' ';
    AppendDecimal(text, field.field + 1);
    return text;
}

std::string TipTexts::RangeText(int lowest, int highest, const std::string& unit) const {
    std::string text;
    AppendDecimal(text, lowest);
    text += ' ' + m_load(IDS_TIP_TO) + ' ';
    AppendDecimal(text, highest);
    if (!unit.empty()) text += ' ' + unit;
    return text;
}

}  // namespace plotvane

#include "app/ControlNames.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>
#include <utility>

#include "base/Numbers.h"
#include "base/PlaceIn.h"
#include "model/FieldSlot.h"
#include "plot/binding/AirFuelRule.h"
#include "res/resource.h"

namespace plotvane {
namespace {

constexpr std::array kSingle = {IDC_STOP,           IDC_PAUSE,        IDC_LOAD_LOG,  IDC_SCALE_NEXT,
                                IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN,   IDC_SHIFT_UP,  IDC_REPLAY_SLOWER,
                                IDC_REPLAY_FASTER,  IDC_REPLAY_SPEED, IDC_SCALE_MIN, IDC_SCALE_MAX};
constexpr int kBoxes = IDC_CHANNEL_SHOW_LAST - IDC_SHOW_FIRST + 1;

constexpr auto kNameless = [] {
    std::array<int, kSingle.size() + kBoxes + kSlotCount> controls{};
    const auto boxes = std::copy(kSingle.begin(), kSingle.end(), controls.begin());
    std::iota(boxes, boxes + kBoxes, IDC_SHOW_FIRST);
    std::iota(boxes + kBoxes, controls.end(), IDC_AIR_FUEL_FIRST);
    return controls;
}();

// A run of controls with the same purpose, and the text that says which.
struct Purpose {
    int first;
    int count;
    unsigned text;
};
constexpr std::array kPurposes = {
    Purpose{IDC_CHART, 1, IDS_NAME_CHART},
    Purpose{IDC_ELAPSED, 1, IDS_NAME_REPLAY_TIME},
    Purpose{IDC_REPLAY_SPEED, 1, IDS_NAME_REPLAY_SPEED},
    Purpose{IDC_CHANNEL_VALUE_FIRST, kChannelCount, IDS_NAME_VALUE},
    Purpose{IDC_SWATCH_WINDOW_FIRST, kSlotCount, IDS_NAME_COLOUR},
    Purpose{IDC_CHANNEL_SWATCH_WINDOW_FIRST, kChannelCount, IDS_NAME_COLOUR},
};

std::string UpTo(std::string text, std::string_view end) {
    text.resize(std::min(text.find(end), text.size()));
    return text;
}

// "B2": the rows have letters.
std::string PlaceOfSlot(int slot) {
    std::string place(1, static_cast<char>('A' + RowOf(slot)));
    AppendDecimal(place, ColumnOf(slot) + 1);
    return place;
}

}  // namespace

std::span<const int> NamelessControls() {
    return kNameless;
}

std::string ControlNames::Of(int control) const {
    std::string name = PurposeOf(control);
    if (const std::string place = PlaceOf(control); !place.empty()) name.append(", ").append(place);
    return name;
}

// A button is called by its tip without the key. The A/F buttons keep the text that they show, because users
// who command the program by voice say it.
std::string ControlNames::PurposeOf(int control) const {
    for (const Purpose& purpose : kPurposes) {
        if (PlaceIn(purpose.first, purpose.count, control)) return m_load(purpose.text);
    }
    if (PlaceIn(IDC_VALUE_FIRST, kSlotCount, control)) return ValueOf(control);
    if (PlaceIn(IDC_AIR_FUEL_FIRST, kSlotCount, control)) return m_textOf(control);
    if (control == IDC_SCALE_MIN) return UpTo(m_textOf(IDC_MIN_LABEL), ":");
    if (control == IDC_SCALE_MAX) return UpTo(m_textOf(IDC_MAX_LABEL), ":");
    return UpTo(m_tips.Of(control), " (");
}

// The first line of the tip names the field, or numbers it.
std::string ControlNames::ValueOf(int box) const {
    std::string tip = m_tips.Of(box);
    return tip.empty() ? m_load(IDS_NAME_VALUE) : UpTo(std::move(tip), "\n");
}

// Max and Min stand for the selected slot. The speed is a text like a label, which has no value for a screen
// reader, so what it shows is part of its name.
std::string ControlNames::PlaceOf(int control) const {
    if (control == IDC_SCALE_MIN || control == IDC_SCALE_MAX) return PlaceOfSlot(m_selection.Slot());
    if (control == IDC_REPLAY_SPEED) return m_textOf(control);
    if (const auto button = PlaceIn(IDC_AIR_FUEL_FIRST, kSlotCount, control))
        return PlaceOfSlot(AirFuelButtonOf(*button));  // also gives the slot of a button
    for (const int first : {IDC_VALUE_FIRST, IDC_SHOW_FIRST, IDC_SWATCH_WINDOW_FIRST}) {
        if (const auto slot = PlaceIn(first, kSlotCount, control)) return PlaceOfSlot(*slot);
    }
    std::string place;
    for (const int first :
         {IDC_CHANNEL_VALUE_FIRST, IDC_CHANNEL_SHOW_FIRST, IDC_CHANNEL_SWATCH_WINDOW_FIRST}) {
        if (const auto channel = PlaceIn(first, kChannelCount, control)) AppendDecimal(place, *channel + 1);
    }
    return place;
}

}  // namespace plotvane

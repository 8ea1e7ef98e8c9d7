#include "app/ControlNames.h"

#include <algorithm>
#include <array>

#include "base/Numbers.h"
#include "model/FieldSlot.h"
#include "res/resource.h"

namespace plotvane {
namespace {

constexpr std::array kButtons = {IDC_STOP,       IDC_PAUSE,          IDC_LOAD_LOG,
                                 IDC_SCALE_NEXT, IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN,
                                 IDC_SHIFT_UP,   IDC_REPLAY_SLOWER,  IDC_REPLAY_FASTER};
constexpr int kBoxes = IDC_CHANNEL_SHOW_LAST - IDC_SHOW_FIRST + 1;

constexpr auto kNameless = [] {
    std::array<int, kButtons.size() + kBoxes> controls{};
    for (std::size_t i = 0; i < kButtons.size(); ++i) controls[i] = kButtons[i];
    for (int box = 0; box < kBoxes; ++box)
        controls[kButtons.size() + static_cast<std::size_t>(box)] = IDC_SHOW_FIRST + box;
    return controls;
}();

// "B2" for a slot, as the rows are lettered; "3" for a channel.
std::string PlaceOf(int checkBox) {
    std::string place;
    if (checkBox > IDC_SHOW_LAST) {
        AppendDecimal(place, checkBox - IDC_CHANNEL_SHOW_FIRST + 1);
        return place;
    }
    const int slot = checkBox - IDC_SHOW_FIRST;
    place += static_cast<char>('A' + RowOf(slot));
    AppendDecimal(place, ColumnOf(slot) + 1);
    return place;
}

}  // namespace

std::span<const int> NamelessControls() {
    return kNameless;
}

std::string NameOfControl(int control, const TipTexts& tips) {
    std::string name = tips.Of(control);
    name.erase(std::min(name.find(" ("), name.size()));
    if (control >= IDC_SHOW_FIRST && control <= IDC_CHANNEL_SHOW_LAST) name += ", " + PlaceOf(control);
    return name;
}

}  // namespace plotvane

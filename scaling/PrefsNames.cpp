#include "scaling/PrefsNames.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "base/PlaceIn.h"
#include "res/resource.h"
#include "scaling/PrefsControls.h"

namespace plotvane {
namespace {

constexpr int kNumbers = kColourRowCount * kColourPartCount;
constexpr std::array kSingle = {IDC_PREFS_TRACE_LIST, IDC_PREFS_ROW_PREVIOUS, IDC_PREFS_ROW_NEXT};

constexpr auto kNameless = [] {
    std::array<int, kSingle.size() + kPresetLists.size() + kColourSliders.size() + kNumbers> controls{};
    auto next = std::copy(kSingle.begin(), kSingle.end(), controls.begin());
    next = std::copy(kPresetLists.begin(), kPresetLists.end(), next);
    next = std::copy(kColourSliders.begin(), kColourSliders.end(), next);
    std::iota(next, controls.end(), IDC_PREFS_BACK_RED_TEXT);
    return controls;
}();

// What a name is made of; 0 for a part that it has not.
struct Parts {
    unsigned text = 0;  // of the string table
    int heading = 0;    // the control that shows the heading of the column
    int row = 0;        // the control that shows the name of the row; in the third, the trace that is chosen
};

constexpr int kPresetHeading = IDC_PREFS_HEADING_FIRST + kColourPartCount;

constexpr int RowName(int row) {
    constexpr int kNames[] = {IDC_PREFS_BACK_NAME, IDC_PREFS_GRID_NAME, IDC_PREFS_TRACE_LIST};
    return kNames[row];
}

// Of a slider or its number, counted by row and part.
constexpr Parts PartsOfColour(unsigned text, int index) {
    return {text, IDC_PREFS_HEADING_FIRST + index % kColourPartCount, RowName(index / kColourPartCount)};
}

Parts PartsOf(int control) {
    const auto slider = std::ranges::find(kColourSliders, control);
    if (slider != kColourSliders.end())
        return PartsOfColour(0, static_cast<int>(slider - kColourSliders.begin()));
    if (const auto number = PlaceIn(IDC_PREFS_BACK_RED_TEXT, kNumbers, control))
        return PartsOfColour(IDS_NAME_VALUE, *number);
    if (const auto row = PlaceIn(IDC_PREFS_BACK_PRESET, kColourRowCount, control))
        return {0, kPresetHeading, RowName(*row)};
    if (const auto row = PlaceIn(IDC_PREFS_SWATCH_WINDOW_FIRST, kColourRowCount, control))
        return {IDS_NAME_COLOUR, 0, RowName(*row)};
    switch (control) {
        case IDC_PREFS_TRACE_LIST:
            return {IDS_LINE};
        case IDC_PREFS_ROW_PREVIOUS:
            return {IDS_NAME_PREVIOUS_UNIT};
        case IDC_PREFS_ROW_NEXT:
            return {IDS_NAME_NEXT_UNIT};
        default:
            return {};
    }
}

}  // namespace

std::span<const int> NamelessPrefsControls() {
    return kNameless;
}

std::string NameOfPrefsControl(int control, const std::function<std::string(int)>& textOf,
                               std::string (*load)(unsigned)) {
    const Parts parts = PartsOf(control);
    std::string name;
    if (parts.text != 0) name = load(parts.text);
    for (const int shown : {parts.heading, parts.row}) {
        if (shown == 0) continue;
        if (!name.empty()) name += ", ";
        name += textOf(shown);
    }
    std::erase(name, '&');  // the marks of access keys
    return name;
}

}  // namespace plotvane

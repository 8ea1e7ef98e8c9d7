#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "scaling/Prefs.h"

namespace plotvane {

// The numbers that the Preferences dialog edits as text, in the order of its edits.
enum class PrefsNumber { Thickness, MaxMileage, MaxConsumption, FuelHistoryDepth };

int NumberOf(const Prefs& prefs, PrefsNumber number);

// Why a text was not taken, and what stands in its place.
struct NumberRejection {
    unsigned messageId;     // a text of the string table that names the range
    std::string shownText;  // what the edit shows from now on
};

// Takes a text as the number, or answers why not. The thickness (0..10) is stored in any case, so that a
// rejected one stays in the record although the edit shows "0", and counts as 0 if the text holds no number.
// The others (1..1000, 1..1000, 1..20) keep their value when the text is rejected.
std::optional<NumberRejection> EnterNumber(Prefs& prefs, PrefsNumber number, std::string_view text);

}  // namespace plotvane

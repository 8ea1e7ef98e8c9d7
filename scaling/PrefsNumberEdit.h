#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "scaling/Prefs.h"

namespace plotvane {

// The numbers that the Preferences dialog edits as text, in the order of their edits.
enum class PrefsNumber { Thickness, MaxMileage, MaxConsumption, FuelHistoryDepth };

int NumberOf(const Prefs& prefs, PrefsNumber number);

// Why a text was rejected, and what replaces it.
struct NumberRejection {
    unsigned messageId;     // a text of the string table that names the range
    std::string shownText;  // what the edit shows now
};

// Takes a text as the number, or returns why not. The thickness (0..10) is stored in any case: a rejected one
// stays in the record although the edit shows "0", and a text without a number counts as 0. The others
// (1..1000, 1..1000, 1..20) keep their value if the text is rejected.
std::optional<NumberRejection> EnterNumber(Prefs& prefs, PrefsNumber number, std::string_view text);

}  // namespace plotvane

#include "scaling/PrefsNumberEdit.h"

#include <array>

#include "base/Numbers.h"
#include "res/resource.h"

namespace plotvane {
namespace {

struct NumberRule {
    int Prefs::*field;
    int min;
    int max;
    unsigned messageId;
};

constexpr std::array<NumberRule, 4> kRules = {{
    {&Prefs::thickness, 0, 10, IDS_INTEGER_0_TO_10},
    {&Prefs::maxMileage, 1, 1000, IDS_INTEGER_1_TO_1000},
    {&Prefs::maxConsumption, 1, 1000, IDS_INTEGER_1_TO_1000},
    {&Prefs::fuelHistoryDepth, 1, 20, IDS_INTEGER_1_TO_20},
}};

const NumberRule& RuleOf(PrefsNumber number) {
    return kRules[static_cast<std::size_t>(number)];
}

std::string Decimal(int value) {
    std::string text;
    AppendDecimal(text, value);
    return text;
}

}  // namespace

int NumberOf(const Prefs& prefs, PrefsNumber number) {
    return prefs.*RuleOf(number).field;
}

std::optional<NumberRejection> EnterNumber(Prefs& prefs, PrefsNumber number, std::string_view text) {
    const NumberRule& rule = RuleOf(number);
    int& field = prefs.*rule.field;
    // A text without a number counts as 0, which only the thickness accepts.
    const int value = ParseDecimal(text);
    const bool isAccepted = value >= rule.min && value <= rule.max;
    if (isAccepted || number == PrefsNumber::Thickness) field = value;
    if (isAccepted) return std::nullopt;
    return NumberRejection{rule.messageId, number == PrefsNumber::Thickness ? "0" : Decimal(field)};
}

}  // namespace plotvane

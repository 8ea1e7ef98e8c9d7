#include "history/TraceTexts.h"

#include "base/Numbers.h"

namespace plotvane {
namespace {

// What lambda becomes where the A/F button is pressed in: 0.6..1.3 times 14.7. Outside of that the value
// stays lambda, also then.
constexpr double kLeastRatio = 0.6 * 14.7;
constexpr double kGreatestRatio = 1.3 * 14.7;

}  // namespace

std::string NameOf(const RecordedTrace& trace) {
    if (!trace.name.empty()) return trace.name;
    std::string text;
    AppendDecimal(text, trace.group);
    text.insert(0, text.size() < 3 ? 3 - text.size() : 0, '0');
    text += '-';
    AppendDecimal(text, trace.field + 1);
    return text;
}

std::string ValueText(const RecordedTrace& trace, double value) {
    std::string text;
    if (trace.isRatio && value >= kLeastRatio && value <= kGreatestRatio) {
        AppendFixed(text, value, 1);
    } else {
        AppendNumber(text, value);
    }
    return text;
}

std::string ValueAndUnitText(const RecordedTrace& trace, double value) {
    std::string text = ValueText(trace, value);
    if (!trace.unit.empty()) text.append(" ").append(trace.unit);
    return text;
}

}  // namespace plotvane

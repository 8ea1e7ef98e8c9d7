#include "history/TimeTicks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "base/Numbers.h"

namespace plotvane {
namespace {

// Steps that people count time in, in seconds.
constexpr std::array kSteps = {0.001, 0.002, 0.005, 0.01,  0.02,  0.05,   0.1,    0.2,    0.5,
                               1.0,   2.0,   5.0,   10.0,  15.0,  30.0,   60.0,   120.0,  300.0,
                               600.0, 900.0, 1800., 3600., 7200., 10800., 21600., 43200., 86400.};

double StepFor(double leastSeconds) {
    const auto step = std::ranges::lower_bound(kSteps, leastSeconds);
    return step == kSteps.end() ? std::ceil(leastSeconds / kSteps.back()) * kSteps.back() : *step;
}

int DecimalsOf(double step) {
    if (step >= 1.0) return 0;
    if (step >= 0.1) return 1;
    return step >= 0.01 ? 2 : 3;
}

void AppendTwoDigits(std::string& text, int number) {
    if (number < 10) text += '0';
    AppendDecimal(text, number);
}

}  // namespace

std::string TimeText(double seconds, int decimals) {
    // Rounded first, so that 59.96 with one decimal becomes 1:00.0 and not 60.0.
    const double unit = std::pow(10.0, decimals);
    const double rounded = std::round(std::abs(seconds) * unit) / unit;
    const auto whole = static_cast<long long>(rounded);
    const auto hours = static_cast<int>(std::min(whole / 3600, 999'999LL));
    const auto minutes = static_cast<int>(whole / 60 % 60);
    const double rest = rounded - static_cast<double>(whole - whole % 60);

    std::string text(seconds < 0.0 && rounded > 0.0 ? "-" : "");
    if (hours > 0) {
        AppendDecimal(text, hours);
        text += ':';
        AppendTwoDigits(text, minutes);
        text += ':';
    } else if (minutes > 0) {
        AppendDecimal(text, minutes);
        text += ':';
    }
    if (whole >= 60 && rest < 10.0) text += '0';
    AppendFixed(text, rest, decimals);
    return text;
}

std::string DurationText(double seconds) {
    constexpr double kMost = 1e9;
    const auto whole = static_cast<int>(std::min(seconds, kMost));
    std::string text;
    const auto append = [&](int number, std::string_view unit) {
        if (!text.empty()) text += ' ';
        AppendDecimal(text, number);
        text += unit;
    };
    if (whole >= 3600) append(whole / 3600, " h");
    if (whole >= 60) append(whole / 60 % 60, " min");
    if (whole < 3600) append(whole % 60, " s");
    return text;
}

std::vector<TimeTick> TimeTicks(const Viewport& view, int leastDistance) {
    const double step = StepFor(leastDistance * view.Length() / view.Width());
    std::vector<TimeTick> ticks;
    // However far from 0 the times are, there is no more than one for each distance.
    const int most = view.Width() / leastDistance + 1;
    double count = std::ceil(view.Begin() / step);
    for (int i = 0; i < most && count * step <= view.End(); ++i, ++count)
        ticks.push_back({count * step, TimeText(count * step, DecimalsOf(step))});
    return ticks;
}

}  // namespace plotvane

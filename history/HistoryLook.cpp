#include "history/HistoryLook.h"

#include <algorithm>
#include <cstdint>

namespace plotvane {
namespace {

constexpr int kMostThickness = 10;
constexpr int kShareOfFaded = 35;  // percent of the colour; the rest is the background's

Colour Mixed(Colour one, Colour other, int percentOfOne) {
    const auto mix = [&](int a, int b) {
        return static_cast<std::uint8_t>((a * percentOfOne + b * (100 - percentOfOne)) / 100);
    };
    return MakeColour(mix(RedOf(one), RedOf(other)), mix(GreenOf(one), GreenOf(other)),
                      mix(BlueOf(one), BlueOf(other)));
}

}  // namespace

Colour HistoryLook::Faded(Colour colour) const {
    return Mixed(colour, background, kShareOfFaded);
}

Colour HistoryLook::ColourOf(int trace, std::optional<int> front) const {
    const Colour colour = traces[static_cast<std::size_t>(trace)];
    return front && front != trace ? Faded(colour) : colour;
}

HistoryLook LookOf(const Prefs& prefs) {
    HistoryLook look{DrawableColour(prefs.backColor), DrawableColour(prefs.gridColor), {}, 1};
    std::ranges::transform(prefs.lineColor, look.traces.begin(), DrawableColour);
    look.thickness = std::clamp(prefs.thickness, 1, kMostThickness);
    return look;
}

}  // namespace plotvane

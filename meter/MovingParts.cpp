#include "meter/MovingParts.h"

#include <algorithm>

namespace plotvane {
void MovingPart::Show(std::initializer_list<FilledTriangle> shown) {
    triangles = shown;
    bounds = {};
    for (const FilledTriangle& triangle : shown) bounds = Union(bounds, BoundsOf(triangle.corners));
}

void MovingPart::Hide() {
    triangles.clear();
    text.clear();
    bounds = {};
}

void PlaceParts(MovingParts& parts, const DialGeometry& dial, const DialTextPlaces& places,
                const Gauge& gauge, std::string_view peakLabel) {
    const auto angleOf = [&](double shown) {
        return AngleOfValue(shown, gauge.MinValue(), gauge.MaxValue());
    };
    auto& [minMarker, maxMarker, needle, value, peak] = parts;
    minMarker.Hide();
    if (gauge.ShowsMinMarker())
        minMarker.Show({{dial.MinMarker(angleOf(gauge.MinSeen())), gauge.MarkerColor()}});
    maxMarker.Hide();
    if (gauge.ShowsMaxMarker())
        maxMarker.Show({{dial.MaxMarker(angleOf(gauge.MaxSeen())), gauge.MarkerColor()}});
    const DialNeedle halves = dial.Needle(angleOf(gauge.Value()));
    needle.Show({{halves.lit, gauge.NeedleColor()}, {halves.shaded, gauge.NeedleShadeColor()}});

    value.textPlace = places.value;
    value.text.clear();
    gauge.AppendValueText(value.text);
    peak.textPlace = places.peak;
    peak.Hide();
    if (gauge.ShowsPeak()) gauge.AppendPeakText(peak.text, peakLabel);
}

void RedrawPlan::TakeAll(const DialRect& client) {
    changed.assign(1, client);
    restored = changed;
    isDrawn.fill(true);
}

void RedrawPlan::TakeDifference(const MovingParts& before, const MovingParts& after) {
    changed.clear();
    for (std::size_t i = 0; i < kMovingParts; ++i) {
        isDrawn[i] = !after[i].LooksLike(before[i]);
        if (isDrawn[i]) changed.push_back(Union(before[i].bounds, after[i].bounds));
    }
    restored = changed;
    const auto meetsRestored = [this](const MovingPart& part) {
        return std::ranges::any_of(restored,
                                   [&](const DialRect& rect) { return Overlap(rect, part.bounds); });
    };
    // Each part that is added may meet others.
    for (bool isAdded = true; isAdded;) {
        isAdded = false;
        for (std::size_t i = 0; i < kMovingParts; ++i) {
            if (isDrawn[i] || !meetsRestored(after[i])) continue;
            isDrawn[i] = isAdded = true;
            restored.push_back(after[i].bounds);
        }
    }
}

}  // namespace plotvane

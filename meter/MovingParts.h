#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "meter/DialGeometry.h"
#include "meter/Gauge.h"

namespace plotvane {

// Its outline has the same colour, and one pixel.
struct FilledTriangle {
    DialTriangle corners;
    Colour colour = kBlack;
    bool operator==(const FilledTriangle&) const = default;
};

// A part of a meter that moves with the value: triangles or a text, or neither while it is hidden.
struct MovingPart {
    std::vector<FilledTriangle> triangles;  // in the order in which they are drawn
    std::string text;                       // Windows-1252
    DialPoint textPlace;                    // the middle of its baseline
    DialRect bounds;                        // holds all its pixels; empty if it has none

    void Show(std::initializer_list<FilledTriangle> shown);
    void Hide();
    bool LooksLike(const MovingPart& other) const {
        return triangles == other.triangles && text == other.text && textPlace == other.textPlace;
    }
};

// The parts in the order in which they are drawn: markers of the lowest and the highest value, needle, value
// and peak. A later part covers an earlier one.
constexpr std::size_t kMovingParts = 5;
using MovingParts = std::array<MovingPart, kMovingParts>;

// Puts the parts of the gauge at their places. `peakLabel` stands before the peak. The bounds of the texts
// are for the caller to set: only a device context can measure them. Needs memory only while texts grow.
void PlaceParts(MovingParts& parts, const DialGeometry& dial, const DialTextPlaces& places,
                const Gauge& gauge, std::string_view peakLabel);

// How to get from a picture of some parts on their dial to a picture of others: the dial is copied to
// `restored`, then parts are drawn, then `changed` is copied to the screen.
struct RedrawPlan {
    std::vector<DialRect> changed;  // where the two pictures differ, and nowhere else
    std::vector<DialRect> restored;
    std::array<bool, kMovingParts> isDrawn{};  // which parts, whole and in their order

    // Every part on this much of the dial.
    void TakeAll(const DialRect& client);

    // No more than is needed. A part that stays is made again, whole, if it meets something that is: letters
    // have soft edges, which may not be drawn twice on the same ground.
    void TakeDifference(const MovingParts& before, const MovingParts& after);
};

}  // namespace plotvane

#pragma once

#include <string>
#include <vector>

#include "base/Colour.h"
#include "history/HistoryLayout.h"
#include "history/HistoryLook.h"
#include "history/LookBack.h"
#include "history/TraceList.h"

namespace plotvane {

// A text, cut off where it leaves its place.
struct PlacedText {
    enum class Side { Left, Centre, Right };

    std::string text;  // Windows-1252
    PixelRect place;   // one line
    Side side = Side::Left;
    Colour colour = kBlack;

    // Where its pixels may lie: letters may be a little wider than Windows says.
    PixelRect Reach() const;

    bool operator==(const PlacedText&) const = default;
};

// All texts of the window that looks back: scale, times, marks, list, and the last line, in which `note`
// stands after what the cursors tell.
std::vector<PlacedText> TextsOf(const LookBack& state, const HistoryLook& look, const HistoryLayout& layout,
                                const std::vector<ListedTrace>& list, const std::string& note);

}  // namespace plotvane

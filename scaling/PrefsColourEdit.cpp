#include "scaling/PrefsColourEdit.h"

namespace plotvane {
namespace {

constexpr int ShiftOf(ColourPart part) {
    return 8 * static_cast<int>(part);  // red is the lowest byte
}

constexpr Colour WithPart(Colour colour, ColourPart part, Colour value) {
    return (colour & ~(Colour{0xFF} << ShiftOf(part))) | value << ShiftOf(part);
}

}  // namespace

void PrefsColourEdit::Begin() {
    m_trace = 0;
    for (const ColourRow row : {ColourRow::Background, ColourRow::Grid, ColourRow::Trace}) {
        Store(row, DrawableColour(Stored(row)));
    }
}

std::uint8_t PrefsColourEdit::PartOf(ColourRow row, ColourPart part) const {
    return static_cast<std::uint8_t>(Stored(row) >> ShiftOf(part) & 0xFF);
}

bool PrefsColourEdit::SelectTrace(int trace) {
    if (trace < 0 || trace >= kSlotCount) return false;
    const Colour before = Stored(ColourRow::Trace);
    m_trace = trace;
    Store(ColourRow::Trace, DrawableColour(Stored(ColourRow::Trace)));
    return Stored(ColourRow::Trace) != before;
}

bool PrefsColourEdit::SetPart(ColourRow row, ColourPart part, int value) {
    if (value < 0 || value > 0xFF) return false;
    return Store(row, WithPart(Stored(row), part, static_cast<Colour>(value)));
}

bool PrefsColourEdit::UsePreset(ColourRow row, int preset) {
    const auto index = static_cast<std::size_t>(preset);  // a negative one becomes far too large
    return index < kPresetColours.size() && Store(row, kPresetColours[index]);
}

Colour& PrefsColourEdit::Stored(ColourRow row) const {
    switch (row) {
        case ColourRow::Background:
            return m_prefs.backColor;
        case ColourRow::Grid:
            return m_prefs.gridColor;
        default:
            return m_prefs.lineColor[m_trace];
    }
}

bool PrefsColourEdit::Store(ColourRow row, Colour colour) {
    if (Stored(row) == colour) return false;
    Stored(row) = colour;
    return true;
}

}  // namespace plotvane

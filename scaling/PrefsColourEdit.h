#pragma once

#include "scaling/Prefs.h"

namespace plotvane {

// The colours that the Preferences dialog edits, one row each, and the parts of a colour in slider order.
enum class ColourRow { Background, Grid, Trace };
enum class ColourPart { Red, Green, Blue };

// Edits the colours of the preferences in place, one of the twelve traces at a time. It stores what it shows:
// a colour from the file may have a high byte, which it loses when it is shown.
class PrefsColourEdit {
public:
    explicit PrefsColourEdit(Prefs& prefs) : m_prefs(prefs) {}

    // Starts from the present record, with the first trace in the trace row.
    void Begin();

    Colour ColourOf(ColourRow row) const { return Stored(row); }
    std::uint8_t PartOf(ColourRow row, ColourPart part) const;

    // Each returns whether the row's colour has changed. Numbers out of range change nothing.
    bool SelectTrace(int trace);                              // 0..11
    bool SetPart(ColourRow row, ColourPart part, int value);  // 0..255
    bool UsePreset(ColourRow row, int preset);                // an index in kPresetColours

private:
    Colour& Stored(ColourRow row) const;
    bool Store(ColourRow row, Colour colour);

    Prefs& m_prefs;
    int m_trace = 0;
};

}  // namespace plotvane

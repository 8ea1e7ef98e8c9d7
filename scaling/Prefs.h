#pragma once

#include "scaling/PresetColours.h"

namespace plotvane {

// The user's preferences: one record for the life of the program, which the main dialog, the chart, the fuel
// figures and the meters share. The Preferences dialog edits it in place. The defaults are those of a first
// run.
struct Prefs {
    Colour backColor = kBlack;  // chart and meters
    Colour gridColor = kWhite;
    IndexedArray<Colour, kSlotCount> lineColor =
        DefaultTraceColours();  // of trace n and of its meter's needle
    int thickness = 0;       // pen width setting; the dialog accepts 0..10, the file may contain any number
    bool autorun = true;     // a loaded log plays at once
    bool showUnits = true;   // units after the chart's limits
    bool showZeros = false;  // lower limits of zero are written too
    bool saveWindowSize = true;  // write the file when the program closes
    int width = 634;             // outer size of the main window at start, in pixels
    int height = 433;
    int maxMileage = 60;  // upper ends of the fuel meters' scales
    int maxConsumption = 20;
    int fuelHistoryDepth = 1;  // entries in the moving average of the consumption, 1..20
};

}  // namespace plotvane

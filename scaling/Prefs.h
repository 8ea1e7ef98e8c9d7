#pragma once

#include "scaling/PresetColours.h"

namespace plotvane {

// The user's preferences: one record for the program's life, shared by the main dialog, the chart, the fuel
// figures and the meters, edited in place by the Preferences dialog. The defaults are those of a first run.
struct Prefs {
    Colour backColor = kBlack;  // chart and meters
    Colour gridColor = kWhite;
    std::array<Colour, kSlotCount> lineColor = DefaultTraceColours();  // trace n and the needle of its meter
    int thickness = 0;           // pen width setting; 0..10 accepted, any number may stand in the file
    bool autorun = true;         // a loaded log plays at once
    bool showUnits = true;       // units behind the chart's limits
    bool showZeros = false;      // lower limits that are zero are written too
    bool saveWindowSize = true;  // the file is written when the program closes
    int width = 634;             // outer size of the main window at start, in pixels
    int height = 433;
    int maxMileage = 60;  // upper ends of the fuel meters' scales
    int maxConsumption = 20;
    int fuelHistoryDepth = 1;  // entries in the moving average of the consumption, 1..20
};

}  // namespace plotvane

#pragma once

#include "plot/binding/MeterBoard.h"
#include "plot/binding/SlotPanel.h"
#include "plot/chart/TraceChart.h"

namespace plotvane {

// What shows a sample.
struct Views {
    TraceChart& chart;
    SlotPanel& panel;
    MeterBoard& meters;
};

}  // namespace plotvane

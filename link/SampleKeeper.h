#pragma once

#include "logs/CurrentModule.h"
#include "plot/binding/Sample.h"

namespace plotvane {

// Keeps the samples of the drive for later.
struct SampleKeeper {
    virtual ~SampleKeeper() = default;

    // The user has held the run: what comes next does not join what came last.
    virtual void MarkGap() = 0;

    // Each sample that the chart has got, and its time in seconds: by the log, or by a clock that never goes
    // back.
    virtual void Take(double seconds, const Sample& sample, const CurrentModule& module) = 0;
};

}  // namespace plotvane

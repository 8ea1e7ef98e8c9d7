#pragma once

#include "link/AcquisitionLoop.h"
#include "link/ProgramData.h"
#include "link/RunControl.h"
#include "link/RunWatch.h"

namespace plotvane {

// Texts of the string table that the acquisition uses.
struct AcquisitionTexts {
    std::string liveTitle;
    FuelUnits fuelUnits;
};

// Everything between the host's bytes and the views, put together.
class Acquisition {
public:
    // All references must outlive this object, and so must the keeper, if there is one.
    Acquisition(ProgramData& data, const AcquisitionViews& views, HostPipe& pipe, MessagePump& pump,
                const AcquisitionTexts& texts)
        : sample{data.state, data.prefs, data.slots, data.defaults, data.ranges},
          m_watch(pump, data.state),
          module(data.state, data.ranges, views.window, texts.liveTitle, "labels", &m_watch),
          loop(sample, views, module, texts.fuelUnits, views.keeper),
          control(sample, views, module, loop, pipe, pump) {}

    Sample sample;

private:
    RunWatch m_watch;

public:
    CurrentModule module;
    AcquisitionLoop loop;
    RunControl control;
};

}  // namespace plotvane

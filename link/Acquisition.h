#pragma once

#include "link/AcquisitionLoop.h"
#include "link/DriveData.h"
#include "link/RunControl.h"
#include "link/RunWatch.h"

namespace plotvane {

// What the acquisition shows its data on and asks for things.
struct AcquisitionViews {
    TraceChart& chart;
    SlotPanel& panel;
    MeterBoard& meters;
    RunButtons& buttons;
    TitleBar& title;
    LogChooser& chooser;
    LoopOwner& owner;
};

// Texts of the string table that the acquisition uses.
struct AcquisitionTexts {
    std::string liveTitle;
    FuelUnits fuelUnits;
};

// The parts between the host's bytes and the views, put together.
class Acquisition {
public:
    Acquisition(DriveData& data, const AcquisitionViews& views, HostPipe& pipe, MessagePump& pump,
                const AcquisitionTexts& texts)
        : plot{data.state, data.slots, data.defaults, data.ranges, views.chart, views.panel, views.meters},
          selection(plot),
          fuel(texts.fuelUnits),
          m_watch(pump, data.state),
          module(data.state, data.ranges, views.title, texts.liveTitle, "labels", &m_watch),
          m_scaling(plot, selection, fuel, data.prefs),
          m_channels(plot, selection, fuel, data.prefs),
          m_pacing(plot, pump, data.prefs),
          m_live(pipe, pump),
          m_log(data.state, m_pacing, views.chooser, views.owner, m_watch),
          loop(plot, module, m_scaling, m_channels, selection, fuel, m_live, m_log, views.owner),
          control(plot, loop, m_pacing, module, m_log, views.buttons, views.owner) {}

    TracePlot plot;
    SlotSelection selection;
    FuelFigures fuel;

private:
    RunWatch m_watch;

public:
    CurrentModule module;

private:
    TraceScaling m_scaling;
    TenChannels m_channels;
    ReplayPacing m_pacing;
    LiveSource m_live;
    LogSource m_log;

public:
    AcquisitionLoop loop;
    RunControl control;
};

}  // namespace plotvane

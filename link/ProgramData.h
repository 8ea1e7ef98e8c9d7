#pragma once

#include <filesystem>

#include "model/FieldSlot.h"
#include "model/RunState.h"
#include "scaling/DefaultScaling.h"
#include "scaling/ModuleScaling.h"
#include "scaling/Prefs.h"

namespace plotvane {

// What lives as long as the program: the state, the settings and the tables that everybody shares.
struct ProgramData {
    explicit ProgramData(std::filesystem::path scalingFolder)
        : folder(std::move(scalingFolder)), defaults(folder), ranges(folder, defaults, state) {}

    std::filesystem::path folder;  // "Scaling", under the directory that was current at the start
    std::filesystem::path PrefsFile() const { return folder / "Prefs.cfg"; }

    RunState state;
    Prefs prefs;
    SlotTable slots;
    DefaultScaling defaults;
    ModuleScaling ranges;
};

}  // namespace plotvane

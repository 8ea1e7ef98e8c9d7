#pragma once

#include "app/MeterWindows.h"
#include "link/Acquisition.h"

namespace plotvane {

// Texts of the string table that the rooms below show without knowing where they come from.
MeterTexts LoadMeterTexts();
AcquisitionTexts LoadAcquisitionTexts();

}  // namespace plotvane

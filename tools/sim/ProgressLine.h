#pragma once

#include <string>

#include "tools/sim/HostLink.h"

namespace plotvane {

// "   12.0 s  pull away  120 records  2285 /min  36 km/h", in Windows-1252.
std::string ProgressLine(const PlayProgress& progress);

}  // namespace plotvane

#pragma once

#include "framework/Gdi.h"

namespace plotvane {

// The font of the chart's labels.
CFont CreateTextFont();

}  // namespace plotvane

#pragma once

#include <vector>

#include "tests/kit/Report.h"

namespace plotvane::kit {

// What a reader of the report needs to know of this machine: the system and its build, the scaling of each
// screen, code pages, time. The process must be aware of each screen's scaling, or it is told the usual one.
std::vector<Fact> FactsOfThisMachine();

}  // namespace plotvane::kit

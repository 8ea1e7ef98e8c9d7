#pragma once

namespace plotvane {

constexpr const char* kVersion = "1.9f";

}  // namespace plotvane

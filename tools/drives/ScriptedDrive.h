#pragma once

#include <vector>

#include "tools/drives/CarModel.h"
#include "tools/drives/Drive.h"

namespace plotvane {

// A drive of four minutes that needs no file: idle, pull away, town with a halt, motorway, stop. Twelve
// fields in the groups 1, 3 and 31; group 31 holds the mixture, where lambda has no unit. The values are
// always the same.
class ScriptedDrive final : public Drive {
public:
    ScriptedDrive();

    const DriveChannels& Channels() const override { return m_channels; }
    double Seconds() const override;
    double Value(int slot, double seconds) const override;
    std::string_view Phase(double seconds) const override;

private:
    DriveChannels m_channels;
    std::vector<std::array<double, kSlotCount>> m_values;  // one row per CarModel::kStepSeconds
};

}  // namespace plotvane

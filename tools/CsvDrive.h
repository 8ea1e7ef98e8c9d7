#pragma once

#include <array>
#include <vector>

#include "tools/Drive.h"

namespace plotvane {

// A recorded drive. Each of its rows A, B and C has a clock of its own; between two recorded values the
// former stands, as it does on the instrument of a host.
class CsvDrive final : public Drive {
public:
    // One recorded row of chart A, B or C: times in seconds, none before the one in front of it.
    struct Samples {
        std::vector<double> times;
        std::array<std::vector<double>, kSlotColumns> values;  // as many as times in each used column
    };

    // The range of the channels is taken from the samples. At least one row must hold a sample; a row without
    // any becomes empty.
    CsvDrive(DriveChannels channels, std::array<Samples, kSlotRows> rows);

    const DriveChannels& Channels() const override { return m_channels; }
    double Seconds() const override { return m_end - m_start; }
    double Value(int slot, double seconds) const override;
    std::string_view Phase(double) const override { return ""; }

private:
    DriveChannels m_channels;
    std::array<Samples, kSlotRows> m_rows;
    double m_start = 0;  // of the earliest sample
    double m_end = 0;    // of the latest
};

}  // namespace plotvane

#pragma once

#include <array>
#include <vector>

#include "tools/drives/Drive.h"

namespace plotvane {

// A recorded drive. Its rows A, B and C each have their own clock. Between two recorded values the earlier
// one holds, as on a host's display.
class CsvDrive final : public Drive {
public:
    // One recorded row of chart A, B or C: times in seconds, never decreasing.
    struct Samples {
        std::vector<double> times;
        std::array<std::vector<double>, kSlotColumns> values;  // as many as times in each used column
    };

    // The range of each channel comes from its samples. At least one row must hold a sample; a row without
    // any samples becomes empty.
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

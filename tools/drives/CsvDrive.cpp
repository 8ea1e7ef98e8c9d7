#include "tools/drives/CsvDrive.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace plotvane {

CsvDrive::CsvDrive(DriveChannels channels, std::array<Samples, kSlotRows> rows)
    : m_channels(std::move(channels)),
      m_rows(std::move(rows)),
      m_start(std::numeric_limits<double>::infinity()),
      m_end(-std::numeric_limits<double>::infinity()) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        DriveChannel& channel = m_channels.at(static_cast<std::size_t>(slot));
        const Samples& row = m_rows.at(static_cast<std::size_t>(RowOf(slot)));
        if (row.times.empty()) channel = {};
        if (!channel.IsUsed()) continue;
        const auto range = std::ranges::minmax(row.values.at(static_cast<std::size_t>(ColumnOf(slot))));
        channel.lowest = range.min;
        channel.highest = range.max;
        m_start = std::min(m_start, row.times.front());
        m_end = std::max(m_end, row.times.back());
    }
}

double CsvDrive::Value(int slot, double seconds) const {
    const Samples& row = m_rows.at(static_cast<std::size_t>(RowOf(slot)));
    const auto next = std::ranges::upper_bound(row.times, m_start + seconds);
    const auto index = std::max<std::ptrdiff_t>(0, next - row.times.begin() - 1);
    return row.values.at(static_cast<std::size_t>(ColumnOf(slot))).at(static_cast<std::size_t>(index));
}

}  // namespace plotvane

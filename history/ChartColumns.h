#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace plotvane {

// Which recorded sample stands in which pixel column of the chart, which scrolls to the left as samples come.
// It knows the latest few thousand, more than a screen has columns.
class ChartColumns {
public:
    // The chart has scrolled by this many pixels (0 and more) and drawn a sample at its right edge; -1 for a
    // sample that is not recorded.
    void AddSample(std::int64_t sample, int shift);

    // The chart has scrolled by this many pixels and drawn nothing.
    void AddGap(int shift);

    // The chart has erased what it showed. The next sample is joined to the last one, which is seen again.
    void Clear() { m_shownFrom = m_position; }

    // The recording has begun again, so the numbers of its samples have too.
    void Forget();

    // The sample whose value stands in a column or, between two samples, the earlier one. Columns are counted
    // to the left from that of the newest sample, 0. Nothing where nothing is drawn.
    std::optional<std::int64_t> SampleAt(int column) const;

private:
    // From its position on, until the next one. Positions count pixels over all that has been scrolled.
    struct Entry {
        std::int64_t position;
        std::int64_t sample;
    };
    static constexpr std::int64_t kNone = -1;
    static constexpr std::int64_t kMost = 4096;

    void Add(const Entry& entry);
    const Entry& At(std::int64_t number) const { return m_entries[static_cast<std::size_t>(number % kMost)]; }

    std::array<Entry, static_cast<std::size_t>(kMost)> m_entries;
    std::int64_t m_begin = 0;  // numbers of the entries that are kept
    std::int64_t m_end = 0;
    std::int64_t m_position = 0;   // of the newest column
    std::int64_t m_shownFrom = 0;  // the first position that has not been erased
};

}  // namespace plotvane

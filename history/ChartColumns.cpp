#include "history/ChartColumns.h"

#include <algorithm>

namespace plotvane {

void ChartColumns::AddSample(std::int64_t sample, int shift) {
    m_position += shift;
    Add({m_position, sample});
}

void ChartColumns::AddGap(int shift) {
    Add({m_position + 1, kNone});
    m_position += shift;
}

void ChartColumns::Add(const Entry& entry) {
    m_entries[static_cast<std::size_t>(m_end % kMost)] = entry;
    ++m_end;
    m_begin = std::max(m_begin, m_end - kMost);
}

void ChartColumns::Forget() {
    m_begin = m_end;
    Clear();
}

std::optional<std::int64_t> ChartColumns::SampleAt(int column) const {
    const std::int64_t position = m_position - column;
    // The last sample that was erased is visible again when the next line begins at it.
    if (column < 0 || position < m_shownFrom || m_shownFrom == m_position) return std::nullopt;
    std::int64_t begin = m_begin;
    std::int64_t end = m_end;
    while (begin < end) {
        const std::int64_t middle = begin + (end - begin) / 2;
        if (At(middle).position <= position) {
            begin = middle + 1;
        } else {
            end = middle;
        }
    }
    if (begin == m_begin || At(begin - 1).sample == kNone) return std::nullopt;
    return At(begin - 1).sample;
}

}  // namespace plotvane

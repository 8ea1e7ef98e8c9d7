#include "history/SpanFigures.h"

namespace plotvane {

SpanFigures FiguresOf(const Recording& recording, int trace, std::int64_t first, std::int64_t last) {
    const SamplePiece::Extremes extremes = recording.ExtremesOf(trace, first, last + 1);
    // Wider than the values, so that no sum of them is too large for it.
    long double sum = 0.0L;
    for (std::int64_t sample = first; sample <= last; ++sample) sum += recording.Value(trace, sample);
    return {recording.Value(trace, last) - recording.Value(trace, first), extremes.lowest, extremes.highest,
            static_cast<double>(sum / static_cast<long double>(last - first + 1))};
}

}  // namespace plotvane

#include "tests/unit/history/Drive.h"

namespace plotvane::test {

RecordedTrace SpeedTrace() {
    return {true, 1, 0, false, "/min", "Speed", 0.0, 100.0};
}

RecordedTraces SpeedAlone() {
    RecordedTraces traces;
    traces[0] = SpeedTrace();
    return traces;
}

Recording::Values ValuesFrom(double first) {
    Recording::Values values;
    for (double& value : values) value = first++;
    return values;
}

void Record(Recording& recording, const std::vector<double>& values) {
    if (recording.Stretches().empty()) recording.BeginStretch(SpeedAlone());
    for (const double value : values)
        recording.Add(static_cast<double>(recording.End()), ValuesFrom(value), kAllDrawn);
}

LookBack LookAtAll(const Recording& recording, int columns) {
    LookBack state(recording);
    state.SetPlotWidth(columns);
    state.ShowAll();
    return state;
}

}  // namespace plotvane::test

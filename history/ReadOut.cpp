#include "history/ReadOut.h"

#include "history/TimeTicks.h"
#include "history/TraceTexts.h"

namespace plotvane {

std::string ReadOut::Text() const {
    std::string text = age;
    for (const Line& line : lines) text += "\r\n" + line.name + ": " + line.value;
    return text;
}

ReadOut ReadOutOf(const Recording& recording, std::int64_t sample) {
    constexpr int kTimeDecimals = 2;
    constexpr double kMinute = 60.0;
    const double age = recording.Seconds(recording.End() - 1) - recording.Seconds(sample);
    ReadOut readOut{TimeText(age, kTimeDecimals), {}};
    readOut.age += age < kMinute ? " s before the newest" : " before the newest";
    const RecordedTraces& traces = recording.StretchOf(sample).traces;
    for (int trace = 0; trace < kSlotCount; ++trace) {
        const RecordedTrace& shown = traces[static_cast<std::size_t>(trace)];
        if (!shown.isActive) continue;
        readOut.lines.push_back(
            {trace, NameOf(shown), ValueAndUnitText(shown, recording.Value(trace, sample))});
    }
    return readOut;
}

}  // namespace plotvane

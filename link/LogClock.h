#pragma once

#include "plot/binding/ReplayPacing.h"

namespace plotvane {

// The time of each row of a log, in seconds: its first stamp, as the time box shows it. A row without a stamp
// comes as long after the one before it as the replay waits for it. Time goes back only where the stamps do.
class LogClock {
public:
    // Each row in its turn.
    void Take(const LogStamps& stamps);

    // Of the row taken last.
    double Seconds() const { return m_seconds; }

private:
    double m_seconds = 0.0;
    double m_stamp = 0.0;  // the last one
    bool m_isFirst = true;
};

}  // namespace plotvane

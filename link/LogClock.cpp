#include "link/LogClock.h"

#include <algorithm>

namespace plotvane {

void LogClock::Take(const LogStamps& stamps) {
    if (const double stamp = FirstStamp(stamps); stamp != 0.0) {
        m_seconds = stamp < m_stamp ? stamp : std::max(stamp, m_seconds);
        m_stamp = stamp;
    } else if (!m_isFirst) {
        m_seconds += kUnstampedStep;
    }
    m_isFirst = false;
}

}  // namespace plotvane

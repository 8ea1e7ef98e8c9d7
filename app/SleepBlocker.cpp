#include "app/SleepBlocker.h"

#include <windows.h>

namespace plotvane {

void SleepBlocker::Set(bool on) {
    if (on == m_isOn) return;
    m_isOn = on;
    ::SetThreadExecutionState(ES_CONTINUOUS | (on ? ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED : 0u));
}

}  // namespace plotvane

#include "tools/sim/PipeLink.h"

#include <windows.h>

#include "tools/sim/ProgressLine.h"
#include "tools/sim/WideText.h"

namespace plotvane {

HostLink::WriteResult PipeLink::Write(std::string_view bytes) {
    if (m_program.WaitForEnd(0) || !m_pipe.IsOpen()) return WriteResult::ProgramGone;
    if (!m_pipe.HasRoomFor(bytes.size())) return WriteResult::NoRoom;
    return m_pipe.Write(bytes) ? WriteResult::Written : WriteResult::ProgramGone;
}

bool PipeLink::Wait(Milliseconds time) {
    return !m_program.WaitForEnd(static_cast<DWORD>(time.count()));
}

HostLink::Milliseconds PipeLink::Now() {
    return std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

void PipeLink::Die() {
    m_console.Line(L"this host ends now, as the fault asks; the program keeps running");
    TerminateProcess(GetCurrentProcess(), 0);
}

void PipeLink::Report(const PlayProgress& progress) {
    // A console shows one line that is overwritten; a file gets one line per second.
    const double interval = m_console.IsConsole() ? 0.2 : 1.0;
    if (progress.seconds < m_lastReport) m_nextReport = 0;  // the drive plays again
    m_lastReport = progress.seconds;
    if (progress.seconds < m_nextReport) return;
    m_nextReport = progress.seconds + interval;
    m_console.Progress(WideFromWindows1252(ProgressLine(progress)));
}

}  // namespace plotvane

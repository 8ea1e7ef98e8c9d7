#include "link/LogSource.h"

#include <utility>

#include "logs/LogCheck.h"
#include "model/Meanwhile.h"
#include "res/resource.h"

namespace plotvane {

LogSource::Opening LogSource::Open(SlotTable& slots) {
    const Meanwhile opening(m_isOpening);
    const std::uint32_t stops = m_state.stops;
    if (OpenLogFile() != 1 || stops != m_state.stops) return Opening::NoLog;
    return ReadHeader(slots) && stops == m_state.stops ? Opening::Done : Opening::BadHeader;
}

int LogSource::OpenLogFile() {
    if (!m_state.reopenLog) {
        auto chosen = m_window.ChooseLog();
        if (!chosen) return 0;
        m_log = std::move(*chosen);
    }
    switch (CheckLog(m_log)) {
        case LogCheck::HostLog:
            return 1;
        case LogCheck::Unreadable:
            m_window.ShowMessage(IDS_CANNOT_OPEN_FILE, IDS_ERROR);
            break;
        case LogCheck::SomethingElse:
            m_window.ShowMessage(IDS_NOT_A_LOG, IDS_DOH);
            break;
    }
    return -1;
}

bool LogSource::ReadHeader(SlotTable& slots) {
    m_isStepDone = false;
    m_clock = {};
    if (!m_reader.Open(m_log)) {
        m_window.ShowMessage(IDS_CANNOT_OPEN_FILE, IDS_ERROR);
        return false;
    }
    if (m_reader.ReadLogHeader(slots) <= 0) {
        m_window.ShowMessage(IDS_BAD_LOG_HEADER, IDS_PARSING_ERROR);
        return false;
    }
    return true;
}

std::optional<RunEnd> LogSource::Read(RecordBuffer& record, const LoopRun& run) {
    if (!std::exchange(m_isStepDone, false)) {
        m_isStepDone = m_pacing.ReplayStep(m_reader.Stamps(), run);
        if (run.Ended()) return RunEnd::Interrupted;
        if (m_isStepDone) return RunEnd::Halted;
    }
    const LogRow row = ReadRow(record);
    if (run.Ended()) return RunEnd::Interrupted;  // a long row dispatches messages
    switch (row) {
        case LogRow::Complete:
            m_clock.Take(m_reader.Stamps());
            return std::nullopt;
        case LogRow::Ended:
            break;
        case LogRow::Short:
            m_window.ShowMessage(IDS_LOG_ROW_SHORT, IDS_UH_OH);
            break;
    }
    return RunEnd::Stopped;
}

LogRow LogSource::ReadRow(RecordBuffer& record) {
    const Meanwhile reading(m_isBeingRead);
    return m_reader.ReadLogRow(record);
}

}  // namespace plotvane

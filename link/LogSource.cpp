#include "link/LogSource.h"

#include "logs/LogCheck.h"
#include "model/Meanwhile.h"
#include "res/resource.h"

namespace plotvane {

int LogSource::OpenLogFile() {
    if (!m_state.reopenLog) {
        auto chosen = m_chooser.ChooseLog();
        if (!chosen) return 0;
        m_log = std::move(*chosen);
    }
    switch (CheckLog(m_log)) {
        case LogCheck::HostLog:
            return 1;
        case LogCheck::Unreadable:
            m_owner.ShowMessage(IDS_CANNOT_OPEN_FILE, IDS_ERROR);
            break;
        case LogCheck::SomethingElse:
            m_owner.ShowMessage(IDS_NOT_A_LOG, IDS_DOH);
            break;
    }
    return -1;
}

int LogSource::ReadLogHeader(SlotTable& slots) {
    const Meanwhile reading(m_isBeingRead);
    return m_reader.ReadLogHeader(slots);
}

LogRow LogSource::ReadRow(RecordBuffer& record) {
    const Meanwhile reading(m_isBeingRead);
    return m_reader.ReadLogRow(record);
}

Next LogSource::Read(RecordBuffer& record, const LoopRun& run) {
    const bool halt = m_pacing.ReplayStep(m_reader.Stamps(), run);
    if (run.Ended()) return Next::Ended;
    if (halt) m_owner.Pause();
    if (run.Ended()) return Next::Ended;
    const LogRow row = ReadRow(record);
    if (run.Ended()) return Next::Ended;  // in the midst of the row, which was long
    switch (row) {
        case LogRow::Complete:
            return Next::Record;
        case LogRow::Ended:
            break;
        case LogRow::Short:
            m_owner.ShowMessage(IDS_LOG_ROW_SHORT, IDS_UH_OH);
            break;
    }
    return Next::Stopped;
}

}  // namespace plotvane

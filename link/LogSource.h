#pragma once

#include <filesystem>
#include <string>

#include "link/LogClock.h"
#include "link/RecordSource.h"
#include "link/RunWatch.h"
#include "logs/LogReader.h"
#include "model/MainWindow.h"
#include "plot/binding/ReplayPacing.h"

namespace plotvane {

// Records from one of the host's logs, at the pace of its time stamps.
class LogSource : public RecordSource {
public:
    // All references must outlive this object.
    LogSource(RunState& state, ReplayPacing& pacing, MainWindow& window, MessagePump& pump)
        : m_state(state),
          m_pacing(pacing),
          m_window(window),
          m_watch(pump, state),
          m_reader(state, &m_watch) {}

    enum class Opening {
        Done,
        NoLog,     // the user has chosen none, or no log of the host's
        BadHeader  // it cannot be opened again, or its header is malformed
    };

    // Chooses a log as OpenLogFile does, opens it at its start and reads its header: groups, fields and units
    // of the slots. Tells the user if that fails. The file dialog, the message boxes and long headers
    // dispatch messages; after a Stop or a close among them there is no log to play. Call it only while
    // MayOpen() is true.
    Opening Open(SlotTable& slots);

    // Lets the user choose a log, or takes the last one again when a stopped replay is to be repeated, and
    // checks its first line. Returns 1 for a log of the host's, 0 if the user has cancelled, and -1 if the
    // file cannot be opened or is something else; then the user has been told.
    int OpenLogFile();

    // For handlers, which may run while a log is being opened or read: to open another log then would replace
    // the one in use.
    bool IsOpening() const { return m_isOpening; }
    bool MayOpen() const { return !m_isOpening && !m_isBeingRead; }

    void Close() { m_reader.Close(); }

    const std::string& ModuleName() const { return m_reader.ModuleName(); }

    // Name and extension.
    std::u16string FileName() const { return m_log.filename().u16string(); }

    // RecordSource.
    std::optional<RunEnd> Read(RecordBuffer& record, const LoopRun& run) override;
    double Seconds() override { return m_clock.Seconds(); }

private:
    bool ReadHeader(SlotTable& slots);
    LogRow ReadRow(RecordBuffer& record);

    RunState& m_state;
    ReplayPacing& m_pacing;
    MainWindow& m_window;
    RunWatch m_watch;  // keeps the window alive while long lines are read
    LogReader m_reader;
    LogClock m_clock;
    bool m_isOpening = false;
    bool m_isBeingRead = false;
    bool m_isStepDone = false;    // a halt came between the step to the next row and the row itself
    std::filesystem::path m_log;  // kept between loads, so that a stopped replay can be repeated
};

}  // namespace plotvane

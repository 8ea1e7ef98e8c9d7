#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "link/LoopOwner.h"
#include "link/RecordSource.h"
#include "logs/LogReader.h"
#include "plot/binding/ReplayPacing.h"

namespace plotvane {

// Lets the user choose a log. Nothing if the user cancels.
struct LogChooser {
    virtual ~LogChooser() = default;
    virtual std::optional<std::filesystem::path> ChooseLog() = 0;
};

// Records from a log of the host's, at the pace of its time stamps.
class LogSource : public RecordSource {
public:
    // The watch keeps the window alive while long lines are read.
    LogSource(RunState& state, ReplayPacing& pacing, LogChooser& chooser, LoopOwner& owner, ReadWatch& watch)
        : m_state(state), m_pacing(pacing), m_chooser(chooser), m_owner(owner), m_reader(state, &watch) {}

    // Lets the user choose a log, or takes the last one again when a stopped replay is to be repeated, and
    // checks its first line. 1: a log of the host's; 0: the user has cancelled; -1: it cannot be opened or
    // is something else, and the user has been told.
    int OpenLogFile();

    // Opens the chosen log at its start. False if it cannot be opened. Not to be called while it is being
    // read.
    bool Reopen() { return m_reader.Open(m_log); }

    void Close() { m_reader.Close(); }

    // Reads the header: groups, fields and units of the slots. 0 or less if it is malformed. Dispatches
    // messages where it is long; a Stop among them cuts it short.
    int ReadLogHeader(SlotTable& slots);

    // For handlers that are dispatched in the middle of a long read.
    bool IsBeingRead() const { return m_isBeingRead; }

    const std::string& ModuleName() const { return m_reader.ModuleName(); }

    // Name and extension.
    std::u16string FileName() const { return m_log.filename().u16string(); }

    Next Read(RecordBuffer& record, const LoopRun& run) override;

private:
    LogRow ReadRow(RecordBuffer& record);

    RunState& m_state;
    ReplayPacing& m_pacing;
    LogChooser& m_chooser;
    LoopOwner& m_owner;
    LogReader m_reader;
    bool m_isBeingRead = false;
    std::filesystem::path m_log;  // kept between loads, so that a stopped replay can be repeated
};

}  // namespace plotvane

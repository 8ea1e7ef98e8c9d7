#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace plotvane {

// How far the drive has been played, to show to a person.
struct PlayProgress {
    double seconds = 0;       // since playing began
    double driveSeconds = 0;  // inside the drive
    int records = 0;          // written
    int heldBack = 0;         // left out because the program did not read
    std::string_view phase;   // of the drive; may be empty
    std::string values;       // the first two channels, with their units; Windows-1252
};

// Everything outside the player that it needs: the pipe, the program at its other end, the clock and a person
// who watches. No call blocks for longer than the time given to it.
class HostLink {
public:
    using Milliseconds = std::chrono::milliseconds;

    enum class WriteResult {
        Written,
        NoRoom,      // nothing was written: the program has not read what is in the pipe
        ProgramGone  // nothing was written: no program is left to read it
    };

    HostLink() = default;
    HostLink(const HostLink&) = delete;
    HostLink& operator=(const HostLink&) = delete;
    virtual ~HostLink() = default;

    // Writes all of the bytes or none.
    virtual WriteResult Write(std::string_view bytes) = 0;
    // Whether the program has read everything that was written.
    virtual bool IsDrained() = 0;
    // False, at once, if the program has ended or ends during the wait.
    virtual bool Wait(Milliseconds time) = 0;
    virtual Milliseconds Now() = 0;
    // Closes the pipe; the program still reads what was written, then meets the end.
    virtual void Close() = 0;
    // Ends the host at once and without a control code, as a crash does.
    virtual void Die() = 0;
    // Called for every record.
    virtual void Report(const PlayProgress& progress) = 0;
};

}  // namespace plotvane

#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace plotvane {

// How far playing has come, for whoever watches.
struct PlayProgress {
    double seconds = 0;       // since playing began
    double driveSeconds = 0;  // inside the drive
    int records = 0;          // written
    int heldBack = 0;         // not written, because the program did not read
    std::string_view phase;   // of the drive; may be empty
    std::string values;       // the first two, with their units; Windows-1252
};

// What the stand-in host needs from the world while it plays: the pipe, the program at its other end, the
// clock and a person who watches. No call blocks for longer than the time it is given.
class HostLink {
public:
    using Milliseconds = std::chrono::milliseconds;

    enum class WriteResult {
        Written,
        NoRoom,      // nothing was written: the program has not read what is in the pipe
        ProgramGone  // nothing was written: nobody will read it
    };

    HostLink() = default;
    HostLink(const HostLink&) = delete;
    HostLink& operator=(const HostLink&) = delete;
    virtual ~HostLink() = default;

    // All of the bytes or none.
    virtual WriteResult Write(std::string_view bytes) = 0;
    // Whether the program has read everything that was written.
    virtual bool IsDrained() = 0;
    // False, at once, if the program ends meanwhile or has ended.
    virtual bool Wait(Milliseconds time) = 0;
    virtual Milliseconds Now() = 0;
    // Closes the pipe; the program meets its end behind what was written.
    virtual void Close() = 0;
    // Ends the host without another word, as a crash does.
    virtual void Die() = 0;
    // Called with every record.
    virtual void Report(const PlayProgress& progress) = 0;
};

}  // namespace plotvane

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plotvane::fuzz {

// The events of a drive, written as lines; the first character of a line says what kind it is.
//
//   what the host does                          what is there at the start
//   r  a record: a block with this text         h  the host runs
//   b  these bytes, as they are                 e  a line of MB-PIPE.TXT; without any there is no such file
//   i  0xFF, nothing new                        d  a line of Scaling\Defaults.cfg
//   x  0xFE, the host stops sending             f  a line of the first module's scaling file
//   c  0xFD, the host closes                    g  a line of Scaling\Prefs.cfg
//   w  nothing, for one read                    k  a line of the first module's label file
//                                               l  a line of the log that the user chooses
//                                               z  the last line of that log, without a line end
//   what the user does
//   t  a number of hundredths of a second to wait; then one character for each click:
//      S Stop, P Pause, L Load, + - pixel shift, * / replay speed, > < next or previous slot,
//      0..9 the check box of a slot and of a channel, A all A/F switches, M a limit: the rest of the line
//      is typed as minimum and as maximum of the selected slot
//
// Other lines mean nothing.
struct DriveScript {
    struct Click {
        double atMs = 0.0;
        std::string what;
    };

    explicit DriveScript(std::string_view text);

    bool hostRuns = false;
    std::vector<std::string> portions;  // as ScriptedPipe takes them
    std::string exchangeFile;
    std::string defaults;
    std::string ranges;
    std::string prefs;
    std::string labels;
    std::string log;
    std::vector<Click> clicks;

private:
    void Take(char kind, std::string_view line);
    void Write(std::string bytes);
    void AddClick(std::string_view line);
    std::string* FileOf(char kind);

    double m_nowMs = 0.0;
};

// The module that has a scaling and a label file from the start.
constexpr std::string_view kFirstModule = "038 906 019 FT";

}  // namespace plotvane::fuzz

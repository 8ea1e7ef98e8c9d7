#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/system/MainDialog.h"
#include "tests/support/system/RunButtons.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {

// The program without a host, with logs in its folder of logs.
class Replay : public ::testing::Test {
protected:
    Replay() = default;
    // In a folder below the session's own: see Session.
    explicit Replay(const std::filesystem::path& below) : session(below) {}

    // Waits until the program offers to load a log.
    void Start();

    // Writes a log into the program's folder of logs.
    std::filesystem::path WriteLog(const std::filesystem::path& name, std::string_view bytes);

    // Presses a button, which has to be shown and enabled, as for a person. Does not wait for the handler,
    // because that may last as long as the replay.
    void Press(int button);

    // Waits for the program's dialog for choosing a log. Press Load first.
    RemoteWindow FileDialog() const;

    // Types a path into that dialog.
    static void Type(const RemoteWindow& fileDialog, const std::filesystem::path& path);

    // Types a path into that dialog and confirms.
    void Choose(const std::filesystem::path& path);

    // Presses Load and chooses the log in the file dialog.
    void Load(const std::filesystem::path& path);

    void ConfirmMessage(const std::wstring& text, const std::wstring& caption) const {
        session.ConfirmMessage(text, caption);
    }

    // Whether any window of the program is open beside the main one.
    bool HasDialog() const { return WindowsOf(main.ProcessId()).size() > 1; }

    RunButtonsSeen Buttons() const { return ButtonsOf(main); }

    Session session;
    RemoteWindow main;
};

// A row of a log: its time in seconds and the four values of group 1.
struct LogRowText {
    std::string time;
    std::string values;
};

// A log of the host's in its usual form: module 038 906 019 FT, group 1 in row A with /min, degrees Celsius,
// km/h and l/h, nothing in the other rows.
std::string ClassicLog(const std::vector<LogRowText>& rows);

// Values of a row. The first tells them apart: 780, 1240 and 900 /min.
constexpr const char* kIdle = "780,90.0,0,0.9";
constexpr const char* kDriving = "1240,90.0,50,4.2";
constexpr const char* kOther = "900,90.0,0,0.9";

// Before it reads a row, the program waits as long as the two rows before it are apart. So in this log the
// given values, in the fifth row, stay for nearly five seconds at the usual speed, and a test can look
// around.
std::string LogThatLingersAt(const char* values);

}  // namespace plotvane::test

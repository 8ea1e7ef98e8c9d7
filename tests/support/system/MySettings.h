#pragma once

#include "tests/support/system/Session.h"

namespace plotvane::test {

inline constexpr const char* kPrefs = "Prefs.cfg";
inline constexpr const char* kDefaults = "Defaults.cfg";
inline constexpr const wchar_t* kNotSaved = L"Sorry, the scaling values couldn't be saved to disk";

// The user's own settings, with another window size than the program would write.
inline constexpr const char* kMyPrefs = "BackColor=400000\r\nAutorun=1\r\nSaveWindowSize=1\r\nWidth=300\r\n";
inline constexpr const char* kMyDefaults = "km/h,0,300,\r\nV,0,15,\r\n";

// Fails for each file in the folder of settings that is none.
inline void ExpectNothingBeside(const Session& session) {
    for (const auto& entry : std::filesystem::directory_iterator(session.Scaling(""))) {
        const auto extension = entry.path().extension();
        EXPECT_TRUE(extension == ".cfg" || extension == ".SCL") << entry.path();
    }
}

}  // namespace plotvane::test

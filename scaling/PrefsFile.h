#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "scaling/Prefs.h"

namespace plotvane {

// "Prefs.cfg": one "key=value" in each line. Colours, switches, thickness and window size are hexadecimal
// without a prefix, the three fuel numbers decimal.

constexpr const char* kPrefsFileName = "Prefs.cfg";

// What FindPrefsValue returns for a missing key. A stored ffffffff looks the same.
constexpr std::uint32_t kNoPrefsValue = 0xFFFFFFFF;

// Reads the file into the record. A missing or empty file gives the defaults and leaves `saveWindowSize` as
// it is. A missing key gives its default, but leaves a trace colour as it is. A file without keys is read as
// the older form. Numbers are stored as they are in the file; the code that uses them checks their range.
//
// False if the file exists but cannot be read to its end. The record then holds defaults, and what the user
// has set is unknown. Nobody may write such a record to the file unless the user asks for it.
bool LoadPrefs(const std::filesystem::path& file, Prefs& prefs);

// Writes the record, with the window's present outer size instead of the record's. Returns 0, or -1 if the
// file cannot be written.
int SavePrefs(const std::filesystem::path& file, const Prefs& prefs, int windowWidth, int windowHeight);

// The value after the first occurrence of the key in the file's text, wherever it is in a line. The key
// counts as missing if no "=" and hexadecimal digit follow (so a value with a minus sign is missing), or if
// `decimal` and no decimal digit follows. At most 11 digits count.
std::uint32_t FindPrefsValue(std::string_view text, std::string_view key, bool decimal);

// Reads the older form: autorun, background, grid, twelve trace colours, units and zeros as comma-terminated
// tokens. All other fields stay as they are. Returns 1; 0 if the file ends early, with what was read until
// then kept; -1 if it cannot be read, with the Scaling folder created, autorun on and the default colours.
int LoadLegacyPrefs(const std::filesystem::path& file, Prefs& prefs);

}  // namespace plotvane

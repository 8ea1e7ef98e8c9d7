#pragma once

#include <array>

#include "res/resource.h"

namespace plotvane {

// The rows of the colour table in Preferences are those of ColourRow, its columns those of ColourPart and, at
// the end, the lists of presets.
constexpr int kColourRowCount = 3;
constexpr int kColourPartCount = 3;

// By row and part.
inline constexpr std::array<int, kColourRowCount* kColourPartCount> kColourSliders = {
    IDC_PREFS_BACK_RED,  IDC_PREFS_BACK_GREEN,  IDC_PREFS_BACK_BLUE,
    IDC_PREFS_GRID_RED,  IDC_PREFS_GRID_GREEN,  IDC_PREFS_GRID_BLUE,
    IDC_PREFS_TRACE_RED, IDC_PREFS_TRACE_GREEN, IDC_PREFS_TRACE_BLUE,
};

// By row.
inline constexpr std::array<int, kColourRowCount> kPresetLists = {
    IDC_PREFS_BACK_PRESET, IDC_PREFS_GRID_PRESET, IDC_PREFS_TRACE_PRESET};

}  // namespace plotvane

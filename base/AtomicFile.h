#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "base/TextInput.h"

namespace plotvane {

// Replaces a settings file whole: the text is written beside it, under a name of its own, flushed to the disk
// and renamed over it. Where another program has the file open and lets it be written but not renamed over,
// it is written in place, with the whole new text beside it until the last byte is on the disk. So at any
// moment, also after a crash or on a full disk, either the old text or the new one is there, and
// OpenWholeFile finds it.
//
// A link stays a link: what is replaced is the file that it leads to. Each '\n' is written as CR LF. The name
// must not end in "~".
//
// True on success; on failure the old text stands. Nothing is left beside the file in either case, and what a
// crash has left there goes with the next call. Takes 80 ms, rarely 160, where another program has the file
// open.
[[nodiscard]] bool ReplaceTextFile(const std::filesystem::path& path, std::string_view text);

// The same for bytes, which are written as they are.
[[nodiscard]] bool ReplaceFileBytes(const std::filesystem::path& path, std::string_view bytes);

// Writes a file that is missing, in the same way. False, with nothing changed, if anything has that name by
// then: a file that another program has made meanwhile is left alone.
[[nodiscard]] bool CreateTextFile(const std::filesystem::path& path, std::string_view text);

// Bytes. Settings files have a few thousand. The reader of a number looks for its comma up to the end of the
// file, and the window stands still meanwhile: over gigabytes without a comma, for many seconds.
constexpr std::uint64_t kLargestSettingsFile = std::uint64_t{16} << 20;

// Opens a file that these functions write. Not open if it cannot be read, if it is longer than
// kLargestSettingsFile, or if another program is in the middle of writing it.
TextInput OpenWholeFile(const std::filesystem::path& path);

}  // namespace plotvane

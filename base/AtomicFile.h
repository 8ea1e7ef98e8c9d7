#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "base/TextInput.h"

namespace plotvane {

// Replaces a settings file whole: the text is written beside it, under a name of its own, flushed to the disk
// and renamed over it. If another program has the file open and lets others write it but not rename over it,
// the file is written in place; the whole new text stays beside it until the last byte is on the disk. So at
// any moment, even after a crash or on a full disk, either the old text or the new one is there, and
// OpenWholeFile finds it.
//
// A link stays a link: the file that it leads to is replaced. Each '\n' is written as CR LF. The name must
// not end in "~".
//
// True on success; on failure the old text stays. Leaves nothing beside the file in either case, and removes
// what a crash has left there. Takes up to 80 ms, rarely 160, if another program has the file open.
[[nodiscard]] bool ReplaceTextFile(const std::filesystem::path& path, std::string_view text);

// The same for bytes, which are written as they are.
[[nodiscard]] bool ReplaceFileBytes(const std::filesystem::path& path, std::string_view bytes);

// Writes a file that is missing, in the same way. Returns false and changes nothing if anything has that
// name: another program may have made the file meanwhile.
[[nodiscard]] bool CreateTextFile(const std::filesystem::path& path, std::string_view text);

// In bytes; settings files have a few thousand. The reader of a number looks for its comma up to the end of
// the file, and the window stands still meanwhile. In gigabytes without a comma that would take many seconds.
constexpr std::uint64_t kLargestSettingsFile = std::uint64_t{16} << 20;

// Opens a file that these functions write. Not open if it cannot be read, if it is longer than
// kLargestSettingsFile, or if another program is in the middle of writing it.
TextInput OpenWholeFile(const std::filesystem::path& path);

}  // namespace plotvane

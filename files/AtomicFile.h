#pragma once

#include <filesystem>
#include <string_view>

namespace plotvane {

// Replaces a settings file whole: the text is written beside it, under its name with the extension ".new"
// (which `path` itself must not have), flushed to the disk and renamed over it, so a crash or a full disk
// leaves either the old file or the new one. Each '\n' is written as CR LF. True on success; on failure the
// old file stands and nothing is left beside it. A crash may leave the file beside; the next call takes it.
[[nodiscard]] bool ReplaceTextFile(const std::filesystem::path& path, std::string_view text);

}  // namespace plotvane

#pragma once

#include <filesystem>
#include <string_view>

namespace plotvane {

// Replaces a settings file whole: the text is written beside it, flushed to the disk and renamed over it,
// so a crash or a full disk leaves either the old file or the new one. Each '\n' is written as CR LF.
// True on success; on failure the old file stands and nothing is left beside it.
[[nodiscard]] bool ReplaceTextFile(const std::filesystem::path& path, std::string_view text);

}  // namespace plotvane

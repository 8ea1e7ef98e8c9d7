#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>

namespace plotvane {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

// Opens a file like std::fopen, on every system with the path's own characters. If another program keeps the
// file to itself, waits up to 80 ms for it. Null if the file cannot be opened or is a folder.
FileHandle OpenFile(const std::filesystem::path& path, const char* mode);

// The same without waiting.
FileHandle TryToOpenFile(const std::filesystem::path& path, const char* mode);

// Returns when everything written is on the disk. False if it could not be written.
[[nodiscard]] bool FlushToDisk(std::FILE* file);

// Cuts a file to this many bytes. The place of the next write is then undefined, so seek first.
[[nodiscard]] bool CutFile(std::FILE* file, long size);

}  // namespace plotvane

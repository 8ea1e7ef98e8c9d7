#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

// The few operations on files and folders that the program needs, on the system's own functions. Those of
// std::filesystem would do, but they bring the library's copying, walking and file streams with them: 220 KB
// in each executable. So only the path type comes from there.
namespace plotvane {

enum class FileKind {
    Missing,    // nothing of that name, and its folder says so
    File,       // a file that may be written
    Protected,  // a file that its user may only read
    Other       // a folder, a device, a link that leads nowhere; something that cannot be asked about now
};

// What stands under a path. Links are followed.
FileKind KindOf(const std::filesystem::path& path);

bool IsFolder(const std::filesystem::path& path);

// The length of a file in bytes; 0 if it is missing or cannot be asked about.
std::uint64_t SizeOfFile(const std::filesystem::path& path);

// Makes a folder and those above it that are missing. Silent on failure; the write that follows reports it.
void MakeFolders(const std::filesystem::path& folder);

// Removes a file, if it is there and may be removed. If it is a link, removes the link itself.
void RemoveFile(const std::filesystem::path& path);

// Where a file really is, with every link on the way followed; on Windows in the form that allows names of
// any length. The file may be missing, but its folder must exist: otherwise, and if the system cannot tell,
// returns the path as given.
std::filesystem::path FinalPathOf(const std::filesystem::path& path);

// The paths of what is in a folder; empty if it cannot be read.
std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder);

}  // namespace plotvane

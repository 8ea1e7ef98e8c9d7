#pragma once

#include <filesystem>

// The few operations on files and folders that the program needs, on the C run-time's own functions. Those of
// std::filesystem would do, but the linker cannot take them without the library's copying, walking and file
// streams: 220 KB in each executable. Only the path type is used from there.
namespace plotvane {

enum class FileKind {
    Missing,    // nothing of that name, or nothing that may be asked about
    File,       // a file that may be written
    Protected,  // a file that its user may only read
    Other       // a folder, a device
};

// What stands under a path. Links are followed.
FileKind KindOf(const std::filesystem::path& path);

bool IsFolder(const std::filesystem::path& path);

// Makes a folder and those above it as far as they are missing. Says nothing on failure: who then writes into
// it fails and says so.
void MakeFolders(const std::filesystem::path& folder);

// Removes a file, if it is there and may be removed.
void RemoveFile(const std::filesystem::path& path);

// Gives a file another name in the same folder, in one step; a file of that name is replaced. False on
// failure; both files are then as they were.
[[nodiscard]] bool RenameFile(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace plotvane

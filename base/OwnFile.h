#pragma once

#include <cstdint>
#include <filesystem>

#include "base/FileHandle.h"

// Files that only this program has open. If it is killed, the system closes the file, and another program can
// open it. Windows keeps every other program out; Linux only those that use these functions.
namespace plotvane {

// Makes a file for writing that only this program has open. Null if anything, even a link, has that name, or
// if the file cannot be made.
FileHandle CreateOwnFile(const std::filesystem::path& path);

struct TakenFile {
    FileHandle file;      // null if there is no such file
    bool isHeld = false;  // because another program has it open
};

// Opens a file that nobody else has open, for reading. Nobody else can open it until the handle is closed.
// Opens only plain files: no folder, no device, no link.
TakenFile TakeFile(const std::filesystem::path& path);

enum class IfTaken { Replace, Fail };

// Gives a file of CreateOwnFile another name in its folder, in one step. It stays open, and still nobody else
// can open it. On failure returns false, and both files are as before.
[[nodiscard]] bool RenameOwnFile(const FileHandle& file, const std::filesystem::path& from,
                                 const std::filesystem::path& to, IfTaken ifTaken);

// Closes and removes a file of CreateOwnFile or TakeFile. Only closes it if the system does not let it be
// removed.
void RemoveOwnFile(FileHandle file, const std::filesystem::path& path);

// A number that nobody can predict.
std::uint64_t RandomNumber();

}  // namespace plotvane

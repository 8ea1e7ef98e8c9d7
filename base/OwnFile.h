#pragma once

#include <cstdint>
#include <filesystem>

#include "base/FileHandle.h"

// Files that this program has open alone. Where it ends in the middle of something, the system takes the file
// from it, and the next one that wants it gets it. Windows keeps every program out; Linux only those that ask
// with these functions.
namespace plotvane {

// Makes a file for writing that only this program has open. Null if anything has that name, also a link, or
// if the file cannot be made.
FileHandle CreateOwnFile(const std::filesystem::path& path);

struct TakenFile {
    FileHandle file;      // null if there is nothing to take
    bool isHeld = false;  // because another program has it open
};

// Opens a file for reading that nobody has open; nobody else can open it until the handle is closed. Only
// plain files are taken: no folder, no device, no link.
TakenFile TakeFile(const std::filesystem::path& path);

enum class IfTaken { Replace, Fail };

// Gives a file of CreateOwnFile another name in its folder, in one step; it stays open, and nobody else's.
// False on failure: both files are then as they were.
[[nodiscard]] bool RenameOwnFile(const FileHandle& file, const std::filesystem::path& from,
                                 const std::filesystem::path& to, IfTaken ifTaken);

// Closes and removes a file of CreateOwnFile or TakeFile; only closes one that may not be removed.
void RemoveOwnFile(FileHandle file, const std::filesystem::path& path);

// A number that nobody can foresee.
std::uint64_t RandomNumber();

}  // namespace plotvane

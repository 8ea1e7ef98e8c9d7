#include <windows.h>

#include "files/FileOperations.h"

namespace plotvane {

// The C run-time's rename refuses to replace a file.
bool RenameFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    return ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

}  // namespace plotvane

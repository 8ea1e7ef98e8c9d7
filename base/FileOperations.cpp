#include "base/FileOperations.h"

#ifdef _WIN32
#include <direct.h>

#include <cstdio>
#else
#include <sys/stat.h>

#include <cstdio>
#endif

namespace plotvane {
namespace {

void MakeFolder(const std::filesystem::path& folder) {
#ifdef _WIN32
    _wmkdir(folder.c_str());
#else
    static_cast<void>(mkdir(folder.c_str(), 0777));
#endif
}

}  // namespace

void MakeFolders(const std::filesystem::path& folder) {
    if (!folder.has_relative_path() || IsFolder(folder)) return;
    MakeFolders(folder.parent_path());
    MakeFolder(folder);
}

void RemoveFile(const std::filesystem::path& path) {
#ifdef _WIN32
    static_cast<void>(_wremove(path.c_str()));
#else
    static_cast<void>(std::remove(path.c_str()));
#endif
}

}  // namespace plotvane

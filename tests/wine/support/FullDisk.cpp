#include "tests/wine/support/FullDisk.h"

#include <stdexcept>
#include <string>

#include "tests/wine/support/LinuxShell.h"

namespace plotvane::test {
namespace {

// The longest short settings file and the shortest long one lie far on either side.
constexpr int kRoomForShortFiles = 4096;

// Limits how long the program's files may grow. The program ignores the signal that comes with it: see
// scripts/wine-run.sh. False if no program runs in the folder.
bool LimitFiles(const std::filesystem::path& folder, const std::wstring& limit) {
    constexpr const wchar_t* kFound = L"linux-found-it";
    RunInShell(folder,
               L"here=$(pwd -P); for p in /proc/[0-9]*; do "
               L"if test \"$(cat $p/comm 2>/dev/null)\" = plotvane.exe && "
               L"test \"$(readlink $p/cwd)\" = \"$here\"; then "
               L"prlimit --pid ${p#/proc/} --fsize=" +
                   limit + L": && : >" + kFound + L"; fi; done; true");
    return std::filesystem::remove(folder / kFound);
}

}  // namespace

FullDisk::FullDisk(const std::filesystem::path& folder, int bytes) : m_folder(folder) {
    if (!LimitFiles(folder, std::to_wstring(bytes))) throw std::runtime_error("cannot fill the disk");
}

FullDisk::~FullDisk() {
    LimitFiles(m_folder, L"unlimited");
}

std::unique_ptr<WriteFault> FillDiskFor(const std::filesystem::path& file) {
    const std::filesystem::path folder = file.parent_path().parent_path();
    return std::make_unique<FullDisk>(folder, file.extension() == ".SCL" ? kRoomForShortFiles : 0);
}

std::vector<WriteFaultKind> WriteFaultKinds() {
    return {{"FullDisk", FillDiskFor, true}};
}

}  // namespace plotvane::test

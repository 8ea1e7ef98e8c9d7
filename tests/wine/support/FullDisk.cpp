#include "tests/wine/support/FullDisk.h"

#include <stdexcept>
#include <string>

#include "tests/wine/support/ProgramLimit.h"

namespace plotvane::test {
namespace {

// The longest short settings file and the shortest long one lie far on either side.
constexpr int kRoomForShortFiles = 4096;

// Limits how long the program's files may grow. The program ignores the signal that comes with it: see
// scripts/wine-run.sh.
bool LimitFiles(const std::filesystem::path& folder, const std::wstring& limit) {
    return LimitProgram(folder, L"--fsize=" + limit + L":");
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

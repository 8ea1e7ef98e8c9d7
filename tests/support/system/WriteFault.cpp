#include "tests/support/system/WriteFault.h"

#include <stdexcept>
#include <utility>

#include "tests/support/system/LinuxShell.h"

namespace plotvane::test {
namespace {

// All short settings files are much shorter than this, and all long ones much longer.
constexpr int kRoomForShortFiles = 4096;

// Limits how long the program's files may grow. The program ignores the signal that comes with it: see
// scripts/wine-run.sh. Returns false if no program runs in the folder.
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

HeldFile::HeldFile(const std::filesystem::path& file, DWORD access, DWORD sharing)
    : m_handle(::CreateFileW(file.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
    if (m_handle.Get() == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot hold a file");
}

FullDisk::FullDisk(const std::filesystem::path& folder, int bytes) : m_folder(folder) {
    if (!LimitFiles(folder, std::to_wstring(bytes))) throw std::runtime_error("cannot fill the disk");
}

FullDisk::~FullDisk() {
    LimitFiles(m_folder, L"unlimited");
}

std::string NameOf(WriteFaultKind kind) {
    switch (kind) {
        case WriteFaultKind::Held:
            return "Held";
        case WriteFaultKind::HeldForReaders:
            return "HeldForReaders";
        case WriteFaultKind::HeldForDeleting:
            return "HeldForDeleting";
        case WriteFaultKind::FullDisk:
            break;
    }
    return "FullDisk";
}

std::unique_ptr<WriteFault> Break(WriteFaultKind kind, const std::filesystem::path& file) {
    switch (kind) {
        case WriteFaultKind::Held:
            return std::make_unique<HeldFile>(file, GENERIC_READ, 0);
        case WriteFaultKind::HeldForReaders:
            return std::make_unique<HeldFile>(file, GENERIC_READ, FILE_SHARE_READ);
        case WriteFaultKind::HeldForDeleting:
            return std::make_unique<HeldFile>(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE);
        case WriteFaultKind::FullDisk:
            break;
    }
    const std::filesystem::path folder = file.parent_path().parent_path();
    return std::make_unique<FullDisk>(folder, file.extension() == ".SCL" ? kRoomForShortFiles : 0);
}

LinuxLink::LinuxLink(std::filesystem::path link, const std::string& target) : m_link(std::move(link)) {
    const std::wstring command = L"ln -s \"" + std::wstring(target.begin(), target.end()) + L"\" \"" +
                                 m_link.filename().wstring() + L'"';
    if (!RunInShell(m_link.parent_path(), command)) throw std::runtime_error("cannot make a link");
}

LinuxLink::~LinuxLink() {
    RunInShell(m_link.parent_path(), L"rm \"" + m_link.filename().wstring() + L'"');
}

}  // namespace plotvane::test

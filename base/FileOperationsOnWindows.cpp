#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "base/FileOperations.h"

namespace plotvane {
namespace {

class SystemHandle {
public:
    explicit SystemHandle(HANDLE handle) : m_handle(handle) {}
    ~SystemHandle() {
        if (IsOpen()) ::CloseHandle(m_handle);
    }
    SystemHandle(const SystemHandle&) = delete;
    SystemHandle& operator=(const SystemHandle&) = delete;

    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_handle; }

private:
    HANDLE m_handle;
};

// Opens a file or folder to ask about it, not to read it. That works even if another program keeps it to
// itself.
HANDLE OpenToAsk(const std::filesystem::path& path) {
    return ::CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                         OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

bool SaysMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

// Nothing if the handle is not open or the system cannot tell.
std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(const SystemHandle& file) {
    BY_HANDLE_FILE_INFORMATION information{};
    if (!file.IsOpen() || ::GetFileInformationByHandle(file.Get(), &information) == 0) return std::nullopt;
    return information;
}

bool IsFolder(const BY_HANDLE_FILE_INFORMATION& information) {
    return (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Opening a link that leads nowhere fails as if the link itself were missing. Its attributes can still be
// read.
bool IsLinkToNowhere(const std::filesystem::path& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// Empty if the system cannot tell.
std::wstring NameBehind(HANDLE file) {
    const DWORD room = ::GetFinalPathNameByHandleW(file, nullptr, 0, FILE_NAME_NORMALIZED);
    std::wstring name(room, L'\0');
    const DWORD length = ::GetFinalPathNameByHandleW(file, name.data(), room, FILE_NAME_NORMALIZED);
    name.resize(length < room ? length : 0);
    return name;
}

}  // namespace

FileKind KindOf(const std::filesystem::path& path) {
    const SystemHandle file(OpenToAsk(path));
    if (!file.IsOpen()) {
        return SaysMissing(::GetLastError()) && !IsLinkToNowhere(path) ? FileKind::Missing : FileKind::Other;
    }
    const auto information = InformationOf(file);
    if (!information || IsFolder(*information)) return FileKind::Other;
    return (information->dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0 ? FileKind::Protected
                                                                          : FileKind::File;
}

bool IsFolder(const std::filesystem::path& path) {
    const auto information = InformationOf(SystemHandle(OpenToAsk(path)));
    return information && IsFolder(*information);
}

std::uint64_t SizeOfFile(const std::filesystem::path& path) {
    const auto information = InformationOf(SystemHandle(OpenToAsk(path)));
    if (!information) return 0;
    return std::uint64_t{information->nFileSizeHigh} << 32 | information->nFileSizeLow;
}

std::filesystem::path FinalPathOf(const std::filesystem::path& path) {
    {
        const SystemHandle file(OpenToAsk(path));
        if (file.IsOpen()) {
            const std::wstring name = NameBehind(file.Get());
            return name.empty() ? path : std::filesystem::path(name);
        }
    }
    const SystemHandle folder(OpenToAsk(path.has_parent_path() ? path.parent_path() : "."));
    const std::wstring name = folder.IsOpen() ? NameBehind(folder.Get()) : std::wstring{};
    return name.empty() ? path : std::filesystem::path(name) / path.filename();
}

std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> entries;
    WIN32_FIND_DATAW entry{};
    const HANDLE first = ::FindFirstFileW((folder / L"*").c_str(), &entry);
    if (first == INVALID_HANDLE_VALUE) return entries;
    const auto close = [](HANDLE search) { ::FindClose(search); };
    const std::unique_ptr<void, decltype(close)> search(first);
    do entries.push_back(folder / entry.cFileName);
    while (::FindNextFileW(search.get(), &entry));
    return entries;
}

}  // namespace plotvane

#define _CRT_RAND_S

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "base/OwnFile.h"

namespace plotvane {
namespace {

constexpr DWORD kUnshared = 0;

bool IsPlainFile(HANDLE handle) {
    constexpr DWORD kOthers = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    BY_HANDLE_FILE_INFORMATION information{};
    return ::GetFileInformationByHandle(handle, &information) != 0 &&
           (information.dwFileAttributes & kOthers) == 0;
}

HANDLE OpenAlone(const std::filesystem::path& path, DWORD access) {
    return ::CreateFileW(path.c_str(), access, kUnshared, nullptr, OPEN_EXISTING,
                         FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

HANDLE HandleOf(const FileHandle& file) {
    return reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(file.get())));
}

FileHandle AsFile(HANDLE handle, int descriptorMode, const wchar_t* fileMode) {
    if (handle == INVALID_HANDLE_VALUE) return nullptr;
    const int descriptor =
        ::_open_osfhandle(reinterpret_cast<intptr_t>(handle), descriptorMode | _O_BINARY | _O_NOINHERIT);
    if (descriptor == -1) {
        ::CloseHandle(handle);
        return nullptr;
    }
    FileHandle file(::_wfdopen(descriptor, fileMode));
    if (!file) ::_close(descriptor);
    return file;
}

}  // namespace

FileHandle CreateOwnFile(const std::filesystem::path& path) {
    const HANDLE handle = ::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, kUnshared, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
    return AsFile(handle, _O_WRONLY, L"wb");
}

// A file can be read even in a folder in which nothing may be removed.
TakenFile TakeFile(const std::filesystem::path& path) {
    HANDLE handle = OpenAlone(path, GENERIC_READ | DELETE);
    if (handle == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_ACCESS_DENIED) {
        handle = OpenAlone(path, GENERIC_READ);
    }
    if (handle == INVALID_HANDLE_VALUE) return {nullptr, ::GetLastError() == ERROR_SHARING_VIOLATION};
    if (IsPlainFile(handle)) return {AsFile(handle, _O_RDONLY, L"rb")};
    ::CloseHandle(handle);
    return {};
}

// By the handle. By its name the file would have to be closed first, and for a moment any program could open
// it.
bool RenameOwnFile(const FileHandle& file, const std::filesystem::path& /*from*/,
                   const std::filesystem::path& to, IfTaken ifTaken) {
    const std::wstring& name = to.native();
    const std::size_t nameBytes = name.size() * sizeof(wchar_t);
    std::vector<char> room(sizeof(FILE_RENAME_INFO) + nameBytes);
    auto* const request = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
    request->ReplaceIfExists = ifTaken == IfTaken::Replace;
    request->FileNameLength = static_cast<DWORD>(nameBytes);
    std::memcpy(request->FileName, name.c_str(), nameBytes);
    return ::SetFileInformationByHandle(HandleOf(file), FileRenameInfo, request,
                                        static_cast<DWORD>(room.size())) != 0;
}

// By the handle here too. Between closing and removing, another program could take the file.
void RemoveOwnFile(FileHandle file, const std::filesystem::path& /*path*/) {
    FILE_DISPOSITION_INFO request{};
    request.DeleteFile = TRUE;
    ::SetFileInformationByHandle(HandleOf(file), FileDispositionInfo, &request, sizeof request);
}

std::uint64_t RandomNumber() {
    unsigned int high = 0;
    unsigned int low = 0;
    ::rand_s(&high);
    ::rand_s(&low);
    return std::uint64_t{high} << 32 | low;
}

}  // namespace plotvane

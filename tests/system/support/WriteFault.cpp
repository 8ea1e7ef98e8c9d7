#include "tests/system/support/WriteFault.h"

#include <windows.h>

#include <chrono>
#include <stdexcept>
#include <string>

#include "tests/system/support/Await.h"
#include "tests/system/support/Handle.h"
#include "tests/system/support/LinuxProgram.h"

namespace plotvane::test {
namespace {

class HeldFile : public WriteFault {
public:
    explicit HeldFile(const std::filesystem::path& file)
        : m_handle(::CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {
        if (m_handle.Get() == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot hold a file");
    }

private:
    Handle m_handle;
};

// Linux has a device that is full; the new text is led into it. Windows can neither make nor remove such a
// link, so Linux's own programs are asked to.
class FullDisk : public WriteFault {
public:
    explicit FullDisk(const std::filesystem::path& file) : m_link(FileBeside(file)) {
        StartLinuxProgram(L"ln", L"-s /dev/full " + Name(), m_link.parent_path());
        if (!Becomes([this] { return IsThere(); }, true)) throw std::runtime_error("cannot fill the disk");
    }
    ~FullDisk() override {
        StartLinuxProgram(L"rm", L"-f " + Name(), m_link.parent_path());
        EXPECT_TRUE(Becomes([this] { return IsThere(); }, false));
    }

private:
    std::wstring Name() const { return L'"' + m_link.filename().wstring() + L'"'; }

    // The system knows no attributes of such a file, but opens it.
    bool IsThere() const {
        const HANDLE device = ::CreateFileW(m_link.c_str(), GENERIC_WRITE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                            OPEN_EXISTING, 0, nullptr);
        return device != INVALID_HANDLE_VALUE && ::CloseHandle(device);
    }

    const std::filesystem::path m_link;
};

}  // namespace

std::unique_ptr<WriteFault> Break(WriteFaultKind kind, const std::filesystem::path& file) {
    if (kind == WriteFaultKind::Held) return std::make_unique<HeldFile>(file);
    return std::make_unique<FullDisk>(file);
}

std::filesystem::path FileBeside(std::filesystem::path file) {
    return file.replace_extension(".new");
}

}  // namespace plotvane::test

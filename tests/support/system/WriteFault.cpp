#include "tests/support/system/WriteFault.h"

#include <ostream>
#include <stdexcept>

namespace plotvane::test {

HeldFile::HeldFile(const std::filesystem::path& file, DWORD access, DWORD sharing)
    : m_handle(::CreateFileW(file.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
    if (m_handle.Get() == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot hold a file");
}

std::unique_ptr<WriteFault> Hold(const std::filesystem::path& file) {
    return std::make_unique<HeldFile>(file, GENERIC_READ, 0);
}

void PrintTo(const WriteFaultKind& kind, std::ostream* out) {
    *out << kind.name;
}

}  // namespace plotvane::test

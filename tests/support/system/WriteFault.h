#pragma once

#include <windows.h>

#include <filesystem>
#include <iosfwd>
#include <memory>
#include <vector>

#include "tests/support/system/Handle.h"

namespace plotvane::test {

// A real reason why settings files cannot be replaced, for as long as the object lives.
class WriteFault {
public:
    virtual ~WriteFault() = default;
};

// A file that another program has open.
class HeldFile : public WriteFault {
public:
    // `access` is what the other program wants to do with it, `sharing` what it lets others do: Windows' own
    // bits. Throws std::runtime_error if the file is not there.
    HeldFile(const std::filesystem::path& file, DWORD access, DWORD sharing);

private:
    Handle m_handle;
};

// A file that another program lets nobody else open.
std::unique_ptr<WriteFault> Hold(const std::filesystem::path& file);

// A kind of fault.
struct WriteFaultKind {
    const char* name;
    // Brings it about for a settings file of a program. For a held file, the file has to be there.
    std::unique_ptr<WriteFault> (*breakFile)(const std::filesystem::path& file);
    bool isReadable;  // whether the file can be read meanwhile
};
void PrintTo(const WriteFaultKind& kind, std::ostream* out);

// The kinds that this test program brings about. Each program with tests of them has a list of its own.
std::vector<WriteFaultKind> WriteFaultKinds();

}  // namespace plotvane::test

#pragma once

#include <filesystem>
#include <memory>

#include "tests/support/system/WriteFault.h"

namespace plotvane::test {

// A disk on which the program can write only this many more bytes of any one file.
class FullDisk : public WriteFault {
public:
    // The program is the one that runs in this folder. Throws std::runtime_error if that does not.
    FullDisk(const std::filesystem::path& folder, int bytes);
    ~FullDisk() override;

private:
    std::filesystem::path m_folder;
};

// A disk without room for this settings file of a running program. It has room for others if they are shorter
// by far.
std::unique_ptr<WriteFault> FillDiskFor(const std::filesystem::path& file);

}  // namespace plotvane::test

#pragma once

#include <filesystem>
#include <memory>

namespace plotvane::test {

// Why a settings file cannot be replaced, for real, for as long as the object lives.
class WriteFault {
public:
    virtual ~WriteFault() = default;
};

enum class WriteFaultKind {
    Held,     // another program keeps the file to itself
    FullDisk  // the disk takes no byte of the new text
};

// For a held file, the file has to be there. Throws std::runtime_error where the fault cannot be brought
// about.
std::unique_ptr<WriteFault> Break(WriteFaultKind kind, const std::filesystem::path& file);

// The file into which the program writes the new text first.
std::filesystem::path FileBeside(std::filesystem::path file);

}  // namespace plotvane::test

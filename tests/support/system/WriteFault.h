#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>

#include "tests/support/system/Handle.h"

namespace plotvane::test {

// Why settings files cannot be replaced, for real, for as long as the object lives.
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

// A disk on which the program can write so many bytes more of any one file.
class FullDisk : public WriteFault {
public:
    // The program is the one that runs in this folder. Throws std::runtime_error if that does not.
    FullDisk(const std::filesystem::path& folder, int bytes);
    ~FullDisk() override;

private:
    std::filesystem::path m_folder;
};

enum class WriteFaultKind {
    Held,             // another program keeps the file to itself
    HeldForReaders,   // it lets others read it
    HeldForDeleting,  // and delete it, but not write it
    FullDisk          // the disk takes the short settings files at most, or not even them
};
std::string NameOf(WriteFaultKind kind);

// For a held file, the file has to be there. A full disk has room for other files if they are shorter than
// this one by far.
std::unique_ptr<WriteFault> Break(WriteFaultKind kind, const std::filesystem::path& file);

// A link of Linux's, for as long as this object lives. Windows can neither make nor remove it, so Linux's own
// programs are asked to. Throws std::runtime_error where they cannot.
class LinuxLink {
public:
    LinuxLink(std::filesystem::path link, const std::string& target);
    ~LinuxLink();
    LinuxLink(const LinuxLink&) = delete;
    LinuxLink& operator=(const LinuxLink&) = delete;

private:
    std::filesystem::path m_link;
};

}  // namespace plotvane::test

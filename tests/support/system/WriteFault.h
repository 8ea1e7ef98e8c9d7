#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>

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

// A disk that is full for every file of the program beyond this size in bytes.
class FullDisk : public WriteFault {
public:
    // Affects the program that runs in this folder. Throws std::runtime_error if none does.
    FullDisk(const std::filesystem::path& folder, int bytes);
    ~FullDisk() override;

private:
    std::filesystem::path m_folder;
};

enum class WriteFaultKind {
    Held,             // another program lets nobody else open the file
    HeldForReaders,   // it lets others read it
    HeldForDeleting,  // and delete it, but not write it
    FullDisk          // the disk has room for the short settings files at most
};
std::string NameOf(WriteFaultKind kind);

// A held file has to exist. A full disk still has room for other files if they are much shorter than this
// one.
std::unique_ptr<WriteFault> Break(WriteFaultKind kind, const std::filesystem::path& file);

// A symbolic link of Linux, for as long as this object lives. Windows can neither make nor remove it, so a
// Linux shell does. Throws std::runtime_error if that fails.
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

#include "tests/support/system/PipeHost.h"

namespace plotvane::test {

namespace {

constexpr DWORD kPipeBytes = 64 * 1024;

}  // namespace

PipeHost::PipeHost() : m_mutex(::CreateMutexW(nullptr, FALSE, L"DIAGNEL-Running")) {
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    ::CreatePipe(&read, &write, &inheritable, kPipeBytes);
    m_read = Handle(read);
    m_write = Handle(write);
    // If the program also held the write end, it would never see the end of the pipe.
    ::SetHandleInformation(write, HANDLE_FLAG_INHERIT, 0);
}

void PipeHost::Send(std::string_view bytes) {
    DWORD written = 0;
    ::WriteFile(m_write.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void PipeHost::SendRecord(std::string_view text) {
    std::string block(text);
    block.resize(kBlockBytes, '\0');
    Send(block);
}

DWORD PipeHost::Unread() const {
    DWORD unread = 0;
    ::PeekNamedPipe(m_read.Get(), nullptr, 0, nullptr, &unread, nullptr);
    return unread;
}

std::string RecordOf(std::string_view identifier, std::string_view fields) {
    std::string record(identifier);
    record.append(",").append(fields);
    for (int slot = 4; slot < 12; ++slot) record += "G000,,,,";
    return record;
}

}  // namespace plotvane::test

#pragma once

#include <windows.h>

#include <utility>

namespace plotvane::test {

// A kernel handle that closes itself.
class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    ~Handle() { Close(); }
    Handle(Handle&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }

    HANDLE Get() const { return m_handle; }
    void Close() {
        if (HANDLE handle = std::exchange(m_handle, nullptr)) ::CloseHandle(handle);
    }

private:
    HANDLE m_handle = nullptr;
};

}  // namespace plotvane::test

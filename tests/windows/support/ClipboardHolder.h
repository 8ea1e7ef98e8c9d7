#pragma once

#include <windows.h>

#include <chrono>
#include <future>
#include <thread>

namespace plotvane::test {

inline void OpenClipboardInTheEnd(HWND window) {
    while (!::OpenClipboard(window)) ::Sleep(1);
}

// Another program that has the clipboard open.
class ClipboardHolder {
public:
    // Lets go after that time by itself.
    explicit ClipboardHolder(std::chrono::milliseconds time)
        : m_thread([this, time](const std::stop_token& stop) {
              OpenClipboardInTheEnd(nullptr);
              m_begins.set_value();
              const auto end = std::chrono::steady_clock::now() + time;
              while (!stop.stop_requested() && std::chrono::steady_clock::now() < end) ::Sleep(1);
              ::CloseClipboard();
          }) {
        m_begins.get_future().wait();
    }

private:
    std::promise<void> m_begins;
    std::jthread m_thread;
};

}  // namespace plotvane::test

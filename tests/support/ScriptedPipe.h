#pragma once

#include <algorithm>
#include <deque>
#include <string>
#include <string_view>

#include "link/HostPipe.h"

namespace plotvane::test {

// A pipe whose writer wrote in given portions. A read takes bytes from one portion at most; an empty portion
// reads once as "nothing has arrived". After the last portion nothing more arrives, or the pipe is closed.
class ScriptedPipe : public HostPipe {
public:
    void Attach(int newDescriptor) override { descriptor = newDescriptor; }

    int TryRead(std::span<char> buffer) override {
        if (m_portions.empty()) return closed ? kEndOfStream : 0;
        std::string& portion = m_portions.front();
        const std::size_t count = std::min(buffer.size(), portion.size());
        std::copy_n(portion.begin(), count, buffer.begin());
        portion.erase(0, count);
        if (portion.empty()) m_portions.pop_front();
        return static_cast<int>(count);
    }

    void Write(std::string_view bytes) { m_portions.emplace_back(bytes); }
    void WriteNothing() { m_portions.emplace_back(); }

    int descriptor = -2;
    bool closed = false;

private:
    std::deque<std::string> m_portions;
};

}  // namespace plotvane::test

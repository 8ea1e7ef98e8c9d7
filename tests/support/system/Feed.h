#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "tests/support/system/PipeHost.h"

namespace plotvane::test {

// Record number `number` of a drive in which all twelve fields change: the first is "<number> /min" in group
// 1; groups 3 and 4 follow.
std::string DriveRecord(int number);

// The text of value box 0 for that record.
std::wstring DriveText(int number);

// A host that keeps sending while a test does something else. It never writes more than there is room for, so
// the destructor returns at once, even if nothing reads.
class Feed {
public:
    // Drive records 1, 2, 3..., one for each `every`; with 0, as fast as the pipe takes them.
    static Feed Records(PipeHost& host, std::chrono::milliseconds every = std::chrono::milliseconds(50));
    // The byte for "nothing new", as fast as the pipe takes it.
    static Feed NothingNew(PipeHost& host);

    // Ends the sending; calling it again does nothing.
    void Stop() { m_thread = {}; }
    // Messages sent so far.
    int Sent() const { return *m_sent; }

private:
    Feed(PipeHost& host, std::function<std::string(int number)> message, std::chrono::milliseconds every);

    std::shared_ptr<std::atomic<int>> m_sent = std::make_shared<std::atomic<int>>(0);
    std::jthread m_thread;
};

}  // namespace plotvane::test

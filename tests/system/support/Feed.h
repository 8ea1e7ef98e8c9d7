#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "tests/system/support/PipeHost.h"

namespace plotvane::test {

// The record number `number` of a drive, in which all twelve fields change: the first is "<number> /min", in
// group 1; groups 3 and 4 follow.
std::string DriveRecord(int number);

// What value box 0 shows of it.
std::wstring DriveText(int number);

// A host that goes on sending by itself while a test does something else. It never writes more than there is
// room for, so that it ends at once with this object, whether or not anybody reads.
class Feed {
public:
    // Drive records 1, 2, 3..., one each `every`; at 0 as fast as the pipe takes them.
    static Feed Records(PipeHost& host, std::chrono::milliseconds every = std::chrono::milliseconds(50));
    // The byte that says that nothing is new, as fast as the pipe takes it.
    static Feed NothingNew(PipeHost& host);

    // Ends the sending, if it has not been ended.
    void Stop() { m_thread = {}; }
    // Messages sent so far.
    int Sent() const { return *m_sent; }

private:
    Feed(PipeHost& host, std::function<std::string(int number)> message, std::chrono::milliseconds every);

    std::shared_ptr<std::atomic<int>> m_sent = std::make_shared<std::atomic<int>>(0);
    std::jthread m_thread;
};

}  // namespace plotvane::test

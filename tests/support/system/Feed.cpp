#include "tests/support/system/Feed.h"

#include <utility>

#include "tests/support/DegreeSign.h"

namespace plotvane::test {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kFloodBytes = 4096;
// Leaves room for the bytes that the test itself sends.
constexpr DWORD kMostUnread = 48 * 1024;

std::string Field(int group, int field, const std::string& value, std::string_view unit) {
    return "G00" + std::to_string(group) + ",F" + std::to_string(field) + "," + value + "," +
           std::string(unit) + ",";
}

}  // namespace

std::string DriveRecord(int number) {
    const std::string small = std::to_string(number % 100);
    std::string record = "038 906 019 FT," + Field(1, 0, std::to_string(number), "/min");
    record += Field(1, 1, small, DEGREES_C) + Field(1, 2, small, "km/h") + Field(1, 3, "4." + small, "l/h");
    for (const int group : {3, 4}) {
        for (int field = 0; field < 4; ++field) record += Field(group, field, small + ".5", "%");
    }
    return record;
}

std::wstring DriveText(int number) {
    return std::to_wstring(number) + L" /min";
}

Feed Feed::Records(PipeHost& host, std::chrono::milliseconds every) {
    return Feed(
        host,
        [](int number) {
            std::string block = DriveRecord(number);
            block.resize(kBlockBytes, '\0');
            return block;
        },
        every);
}

Feed Feed::NothingNew(PipeHost& host) {
    return Feed(
        host, [](int) { return std::string(kFloodBytes, '\xFF'); }, 0ms);
}

Feed::Feed(PipeHost& host, std::function<std::string(int number)> message, std::chrono::milliseconds every)
    : m_thread([&host, message = std::move(message), every, sent = m_sent](const std::stop_token& stop) {
          auto due = std::chrono::steady_clock::now();
          while (!stop.stop_requested()) {
              if (host.Unread() > kMostUnread) {
                  std::this_thread::sleep_for(1ms);
                  continue;
              }
              host.Send(message(++*sent));
              due += every;
              std::this_thread::sleep_until(due);
          }
      }) {}

}  // namespace plotvane::test

#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>

namespace plotvane::test {

// Long enough for a busy machine. Only a test that fails waits until the end.
constexpr std::chrono::milliseconds kDeadline{10'000};
constexpr DWORD kPollMs = 5;

// Calls `see()` repeatedly until it equals `wanted`. The failure message says what was seen last.
template <class See, class Wanted>
[[nodiscard]] ::testing::AssertionResult Becomes(const See& see, const Wanted& wanted,
                                                 std::chrono::milliseconds within = kDeadline) {
    const auto end = std::chrono::steady_clock::now() + within;
    for (;;) {
        const auto seen = see();
        if (seen == wanted) return ::testing::AssertionSuccess();
        if (std::chrono::steady_clock::now() > end) {
            return ::testing::AssertionFailure()
                   << "after " << within.count() << " ms it is still " << ::testing::PrintToString(seen)
                   << ", not " << ::testing::PrintToString(wanted);
        }
        ::Sleep(kPollMs);
    }
}

// Checks that something does not happen: calls `see()` for the whole time and fails as soon as it differs
// from `wanted`. `during` should be several times as long as the change would take.
template <class See, class Wanted>
[[nodiscard]] ::testing::AssertionResult Stays(const See& see, const Wanted& wanted,
                                               std::chrono::milliseconds during) {
    const auto end = std::chrono::steady_clock::now() + during;
    while (std::chrono::steady_clock::now() < end) {
        const auto seen = see();
        if (!(seen == wanted)) {
            return ::testing::AssertionFailure()
                   << "it became " << ::testing::PrintToString(seen) << " instead of staying "
                   << ::testing::PrintToString(wanted);
        }
        ::Sleep(kPollMs);
    }
    return ::testing::AssertionSuccess();
}

}  // namespace plotvane::test

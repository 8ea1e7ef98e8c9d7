#include "link/HostDetection.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace plotvane {
namespace {

TEST(HostDetection, SeesTheHostsMutexAndKeepsNone) {
    ASSERT_FALSE(IsHostRunning());
    EXPECT_FALSE(IsHostRunning());  // the first call has not left one

    const HANDLE host = ::CreateMutexW(nullptr, FALSE, L"DIAGNEL-Running");
    ASSERT_NE(host, nullptr);
    EXPECT_TRUE(IsHostRunning());
    EXPECT_TRUE(IsHostRunning());

    ::CloseHandle(host);
    EXPECT_FALSE(IsHostRunning());
}

}  // namespace
}  // namespace plotvane

#include "framework/SystemLibrary.h"

#include <gtest/gtest.h>

namespace {

TEST(SystemLibrary, GivesItsFunctions) {
    const SystemLibrary multimedia(L"winmm.dll");
    auto* const now = multimedia.Function<DWORD WINAPI()>("timeGetTime");
    ASSERT_NE(now, nullptr);
    static_cast<void>(now());  // can be called
    EXPECT_EQ(multimedia.Function<DWORD WINAPI()>("NoSuchFunction"), nullptr);
}

TEST(SystemLibrary, ThatWindowsLacksHasNoFunctions) {
    const SystemLibrary none(L"plotvane-has-no-such.dll");
    EXPECT_EQ(none.Function<DWORD WINAPI()>("timeGetTime"), nullptr);
}

}  // namespace

#include "framework/Clipboard.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "tests/windows/framework/TestWnd.h"
#include "tests/windows/support/ClipboardHolder.h"

namespace plotvane {
namespace {

using namespace std::chrono_literals;

class ClipboardTest : public testing::Test {
protected:
    ClipboardTest() { test::CreateHidden(m_window); }

    bool Copy(const char* text) { return CopyTextToClipboard(m_window.m_hWnd, text); }
    std::wstring Text() {
        test::OpenClipboardInTheEnd(m_window.m_hWnd);
        const HANDLE data = ::GetClipboardData(CF_UNICODETEXT);
        std::wstring text = data ? static_cast<const wchar_t*>(::GlobalLock(data)) : L"(none)";
        if (data) ::GlobalUnlock(data);
        ::CloseClipboard();
        return text;
    }

    CWnd m_window;
};

TEST_F(ClipboardTest, TakesTextOfWindows1252) {
    EXPECT_TRUE(
        Copy("90 \xB0"
             "C"));
    EXPECT_EQ(Text(),
              L"90 \u00B0"
              L"C");
}

TEST_F(ClipboardTest, IsWaitedForWhileAnotherProgramLooksAtIt) {
    const test::ClipboardHolder holder(30ms);
    EXPECT_TRUE(Copy("after it"));
    EXPECT_EQ(Text(), L"after it");
}

TEST_F(ClipboardTest, IsGivenUpWhereAnotherProgramKeepsIt) {
    ASSERT_TRUE(Copy("before"));
    {
        const test::ClipboardHolder holder(1min);
        EXPECT_FALSE(Copy("never"));
    }
    EXPECT_EQ(Text(), L"before");
}

}  // namespace
}  // namespace plotvane

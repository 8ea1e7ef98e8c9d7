#include "framework/Clipboard.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <string>
#include <thread>

#include "tests/windows/framework/TestWnd.h"

namespace plotvane {
namespace {

using namespace std::chrono_literals;

void OpenInTheEnd(HWND window) {
    while (!::OpenClipboard(window)) ::Sleep(1);
}

// Another program that has the clipboard open.
class Holder {
public:
    // Lets go after that time by itself.
    explicit Holder(std::chrono::milliseconds time)
        : m_thread([this, time](const std::stop_token& stop) {
              OpenInTheEnd(nullptr);
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

class ClipboardTest : public testing::Test {
protected:
    ClipboardTest() { test::CreateHidden(m_window); }

    bool Copy(const char* text) { return CopyTextToClipboard(m_window.m_hWnd, text); }
    std::wstring Text() {
        OpenInTheEnd(m_window.m_hWnd);
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
    const Holder holder(30ms);
    EXPECT_TRUE(Copy("after it"));
    EXPECT_EQ(Text(), L"after it");
}

TEST_F(ClipboardTest, IsGivenUpWhereAnotherProgramKeepsIt) {
    ASSERT_TRUE(Copy("before"));
    {
        const Holder holder(1min);
        EXPECT_FALSE(Copy("never"));
    }
    EXPECT_EQ(Text(), L"before");
}

}  // namespace
}  // namespace plotvane

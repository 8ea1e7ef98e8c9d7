// A host runs, and the start takes longer than the 100 ms after which the program begins to plot.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <io.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <thread>

#include "app/PlotvaneDlg.h"
#include "res/resource.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

constexpr DWORD kSlowMs = 300;
constexpr ULONGLONG kPatienceMs = 10'000;

// Its start takes so long that the timer is due before Windows has shown the window.
class SlowDlg : public CPlotvaneDlg {
public:
    std::atomic<HWND> window = nullptr;

protected:
    BOOL OnInitDialog() override {
        const BOOL result = CPlotvaneDlg::OnInitDialog();
        ::Sleep(kSlowMs);
        window = m_hWnd;
        return result;
    }
};

// A host of this process, and the working folder that it shares with the program.
class SlowStart : public testing::Test {
protected:
    SlowStart() : m_before(std::filesystem::current_path()) {
        std::filesystem::current_path(m_folder.Path());
        EXPECT_EQ(::_pipe(m_pipe, 4096, _O_BINARY), 0);
        WriteBytes("MB-PIPE.TXT", std::to_string(m_pipe[0]) + "\n");
    }
    ~SlowStart() override {
        ::CloseHandle(m_mutex);
        ::_close(m_pipe[0]);
        ::_close(m_pipe[1]);
        std::filesystem::current_path(m_before);
    }

    // Runs the program. A user follows the script and then closes the program.
    void Run(const std::function<void(HWND)>& script) {
        SlowDlg dialog;
        std::thread person([&] {
            EXPECT_TRUE(Comes([&] { return dialog.window != nullptr; }));
            script(dialog.window);
            ::PostMessageW(dialog.window, WM_CLOSE, 0, 0);
        });
        dialog.DoModal();
        person.join();
    }

    static bool Comes(const std::function<bool()>& isSo) {
        const ULONGLONG end = ::GetTickCount64() + kPatienceMs;
        while (!isSo()) {
            if (::GetTickCount64() > end) return false;
            ::Sleep(2);
        }
        return true;
    }

    static bool IsRunning(HWND window) { return ::IsWindowEnabled(::GetDlgItem(window, IDC_PAUSE)); }
    static LRESULT PauseImage(HWND window) {
        return ::SendMessageW(::GetDlgItem(window, IDC_PAUSE), BM_GETIMAGE, IMAGE_ICON, 0);
    }
    void StopSending() { EXPECT_EQ(::_write(m_pipe[1], "\xFE", 1), 1); }

private:
    const TempFolder m_folder;
    const std::filesystem::path m_before;
    const HANDLE m_mutex = ::CreateMutexW(nullptr, FALSE, L"DIAGNEL-Running");
    int m_pipe[2] = {-1, -1};
};

TEST_F(SlowStart, ShowsTheWindowBeforeTheRunBegins) {
    Run([](HWND window) {
        EXPECT_TRUE(Comes([&] { return IsRunning(window); }));
        EXPECT_TRUE(::IsWindowVisible(window));
    });
}

TEST_F(SlowStart, DoesNotShowTheWindowOnceMoreWhenTheRunIsOver) {
    Run([this](HWND window) {
        ASSERT_TRUE(Comes([&] { return IsRunning(window) && ::IsWindowVisible(window); }));
        ::ShowWindowAsync(window, SW_MAXIMIZE);
        ASSERT_TRUE(Comes([&] { return ::IsZoomed(window) != FALSE; }));
        const LRESULT running = PauseImage(window);
        StopSending();
        ASSERT_TRUE(Comes([&] { return PauseImage(window) != running; }));
        ::Sleep(kSlowMs);
        EXPECT_TRUE(::IsZoomed(window));
    });
}

}  // namespace
}  // namespace plotvane::test

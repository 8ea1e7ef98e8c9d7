// plotvane-remote: reads and uses a running Plotvane from outside, for scripts.
//
//   plotvane-remote texts        title, twelve value boxes, time of a replay: one a line, in UTF-8
//   plotvane-remote place        the window's rectangle on the screen: WIDTHxHEIGHT+LEFT+TOP
//   plotvane-remote look-back    opens the window that looks back; it goes beside the window
//   plotvane-remote meter SLOT   right-clicks the colour of a slot, 0 to 11; its meter goes beside the window
//   plotvane-remote load FILE    loads a log through the file dialog
//   plotvane-remote faster       replays at eight times the speed
//   plotvane-remote ended        waits for the end of a replay
//   plotvane-remote watch SECONDS
//                                for that long, or to the end of a replay: the resources that the program
//                                holds, as a table, and how soon its window answers. Status 1 if anything
//                                grows or an answer comes late
//   plotvane-remote close        closes the window and waits for the end of the process
//
// Each waits up to ten seconds for the window that it needs. Exit status 1: the window did not come; 2:
// usage.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "res/resource.h"
#include "tests/support/system/AnswerWatch.h"
#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Resources.h"

namespace {

using plotvane::test::RemoteWindow;

constexpr DWORD kPatienceMs = 10'000;
constexpr DWORD kPollMs = 20;
constexpr int kGap = 8;  // pixels between the windows

std::string Utf8(const std::wstring& text) {
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(
        ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                              static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

void PrintTexts(const RemoteWindow& main) {
    std::printf("%s\n", Utf8(main.Text()).c_str());
    for (int slot = 0; slot < 12; ++slot) {
        const std::string text = Utf8(main.Text(IDC_VALUE_FIRST + slot));
        std::printf("%c%d  %s\n", 'A' + slot / 4, slot % 4 + 1, text.c_str());
    }
    if (main.IsShown(IDC_ELAPSED)) std::printf("time %s\n", Utf8(main.Text(IDC_ELAPSED)).c_str());
}

void PrintPlace(const RemoteWindow& main) {
    const RECT place = main.ScreenRect();
    std::printf("%ldx%ld+%ld+%ld\n", place.right - place.left, place.bottom - place.top, place.left,
                place.top);
}

bool ComesTrue(const std::function<bool()>& condition) {
    for (const DWORD start = ::GetTickCount(); ::GetTickCount() - start < kPatienceMs; ::Sleep(kPollMs)) {
        if (condition()) return true;
    }
    return false;
}

// The meter that opens where there was none, beside the main window, so that neither hides the other.
bool OpenMeter(const RemoteWindow& main, int slot) {
    const auto before = plotvane::test::WindowsOf(main.ProcessId());
    const auto isNew = [&](const RemoteWindow& window) {
        return std::ranges::none_of(before,
                                    [&](const RemoteWindow& old) { return old.Get() == window.Get(); });
    };
    RemoteWindow meter;
    // A slot without a trace has no meter: it may take a moment until the first record comes.
    const bool opened = ComesTrue([&] {
        if (!main.IsChecked(IDC_SHOW_FIRST + slot)) return false;
        const RECT swatch = main.Control(IDC_SWATCH_FIRST + slot).ScreenRect();
        main.Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(main.Get()),
                  MAKELPARAM(swatch.left + 1, swatch.top + 1));
        for (const RemoteWindow& window : plotvane::test::WindowsOf(main.ProcessId())) {
            if (isNew(window)) meter = window;
        }
        return meter.Exists();
    });
    if (!opened) return false;
    const auto metersBefore = static_cast<int>(before.size()) - 1;
    const RECT place = main.ScreenRect();
    ::SetWindowPos(meter.Get(), nullptr, place.right + kGap,
                   place.top + metersBefore * (meter.Size().cy + kGap), 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return true;
}

// The window that looks back, beside the main window. The dialog is told of presses on the chart as Windows
// tells it of those of the mouse.
bool LookBack(const RemoteWindow& main) {
    const RECT chart = main.Control(IDC_CHART).ScreenRect();
    POINT middle{(chart.left + chart.right) / 2, (chart.top + chart.bottom) / 2};
    ::ScreenToClient(main.Get(), &middle);
    for (int press = 0; press < 2; ++press)
        main.Send(WM_PARENTNOTIFY, WM_LBUTTONDOWN, MAKELPARAM(middle.x, middle.y));
    RemoteWindow history;
    const bool opened = ComesTrue([&] {
        for (const RemoteWindow& window : plotvane::test::WindowsOf(main.ProcessId())) {
            if (window.Text().starts_with(L"Plotvane - looking back")) history = window;
        }
        return history.Exists();
    });
    const RECT place = main.ScreenRect();
    return opened && ::SetWindowPos(history.Get(), nullptr, place.right + kGap, place.top, 0, 0,
                                    SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

RemoteWindow FileDialog(const RemoteWindow& main) {
    for (const RemoteWindow& window : plotvane::test::WindowsOf(main.ProcessId())) {
        if (window.Text() == L"Choose a log file") return window;
    }
    return {};
}

bool LoadLog(const RemoteWindow& main, const wchar_t* file) {
    constexpr int kFileNameBox = 0x47C;
    if (!ComesTrue([&] { return main.IsShown(IDC_LOAD_LOG); })) return false;
    main.PostClick(IDC_LOAD_LOG);
    if (!ComesTrue([&] { return FileDialog(main).Control(kFileNameBox).Exists(); })) return false;
    const RemoteWindow dialog = FileDialog(main);
    dialog.Control(kFileNameBox).Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file));
    dialog.PostClick(IDOK);
    return ComesTrue([&] { return main.IsEnabled(IDC_STOP); });
}

bool ReplayFastest(const RemoteWindow& main) {
    return ComesTrue([&] {
        main.Click(IDC_REPLAY_FASTER);
        return main.Text(IDC_REPLAY_SPEED) == L"8x";
    });
}

void PrintRow(int seconds, const plotvane::test::Resources& row) {
    std::printf("%8.1f %12zu %12d %12d %8d\n", seconds / 60.0, row.privateKilobytes, row.gdiObjects,
                row.userObjects, row.handles);
    std::fflush(stdout);  // row by row, for somebody who looks on
}

// Compares the last row with the first.
bool Watch(const RemoteWindow& main, int seconds) {
    constexpr int kLeastRows = 12;
    constexpr int kLongestPause = 120;  // the end of a replay may come long before the time is over
    const int pause = std::clamp(seconds / kLeastRows, 1, kLongestPause);
    // The recording of the drive takes 16 MB at most. At the end of a replay three buttons change their
    // images, and Wine keeps three bitmaps of each; one image is new.
    constexpr std::size_t kRecordingKilobytes = 16 * 1024;
    constexpr plotvane::test::GrowthAllowance kAllowed{
        .privateKilobytes = kRecordingKilobytes + 1024, .gdiObjects = 12, .userObjects = 0, .handles = 4};
    plotvane::test::AnswerWatch answers(main.Get(), std::chrono::milliseconds(50));
    std::printf("%8s %12s %12s %12s %8s\n", "minute", "private KB", "GDI objects", "user objects", "handles");
    const ULONGLONG start = ::GetTickCount64();
    const auto elapsed = [&] { return static_cast<int>((::GetTickCount64() - start) / 1000); };
    const bool isReplay = main.IsEnabled(IDC_STOP);
    const auto isOver = [&] { return elapsed() >= seconds || (isReplay && !main.IsEnabled(IDC_STOP)); };
    const auto first = plotvane::test::ResourcesOf(main.ProcessId());
    PrintRow(0, first);
    for (int row = 1; !isOver(); ++row) {
        while (elapsed() < pause * row && !isOver()) ::Sleep(kPollMs);
        if (!main.Exists()) return std::fputs("plotvane-remote: the program has ended\n", stderr), false;
        if (!isOver()) PrintRow(elapsed(), plotvane::test::ResourcesOf(main.ProcessId()));
    }
    const auto last = plotvane::test::ResourcesOf(main.ProcessId());
    PrintRow(elapsed(), last);
    answers.Stop();
    std::printf("%s\n", answers.Figures().c_str());
    const std::string grown = plotvane::test::GrownBeyond(first, last, kAllowed);
    if (!grown.empty()) std::fprintf(stderr, "plotvane-remote: grown: %s\n", grown.c_str());
    if (!answers.WasPrompt())
        std::fprintf(stderr, "plotvane-remote: an answer took more than %.0f ms\n", answers.BoundMs());
    return grown.empty() && answers.WasPrompt();
}

bool CloseAndWait(const RemoteWindow& main) {
    HANDLE const process = ::OpenProcess(SYNCHRONIZE, FALSE, main.ProcessId());
    if (!process) return false;
    main.Close();
    const bool ended = ::WaitForSingleObject(process, kPatienceMs) == WAIT_OBJECT_0;
    ::CloseHandle(process);
    return ended;
}

// Returns nothing if there is no such command, or its argument is missing.
std::optional<bool> Run(const RemoteWindow& main, std::wstring_view command, const wchar_t* argument) {
    if (!argument) {
        if (command == L"texts") return PrintTexts(main), true;
        if (command == L"place") return PrintPlace(main), true;
        if (command == L"look-back") return LookBack(main);
        if (command == L"faster") return ReplayFastest(main);
        if (command == L"ended") return ComesTrue([&] { return !main.IsEnabled(IDC_STOP); });
        if (command == L"close") return CloseAndWait(main);
    } else {
        if (command == L"meter") return OpenMeter(main, std::wcstol(argument, nullptr, 10));
        if (command == L"watch") return Watch(main, std::wcstol(argument, nullptr, 10));
        if (command == L"load") return LoadLog(main, argument);
    }
    return std::nullopt;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc == 2 || argc == 3) {
        RemoteWindow main;
        const bool found = ComesTrue([&] {
            main = plotvane::test::FindMainDialog();
            return main.Exists();
        });
        if (!found) {
            std::fputs("plotvane-remote: there is no Plotvane window\n", stderr);
            return 1;
        }
        if (const auto done = Run(main, argv[1], argc == 3 ? argv[2] : nullptr)) {
            if (!*done) std::fprintf(stderr, "plotvane-remote: %ls did not come about\n", argv[1]);
            return *done ? 0 : 1;
        }
    }
    std::fputs(
        "usage: plotvane-remote texts | place | meter SLOT | look-back | load FILE | faster | ended | "
        "watch SECONDS | close\n",
        stderr);
    return 2;
}

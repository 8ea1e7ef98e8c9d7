// log_bench LOG...: how long the real program takes from the choice of a log to the first value on the
// screen, and how much memory it holds while it plays at eight times the speed.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>

#include "res/resource.h"
#include "tests/support/system/Resources.h"
#include "tests/support/system/Session.h"

namespace plotvane {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kFileNameBox = 0x47C;
constexpr int kLooks = 3;
constexpr DWORD kBetweenLooksMs = 5000;
constexpr std::chrono::milliseconds kPatience{60'000};

test::RemoteWindow FileDialog(DWORD process) {
    for (const test::RemoteWindow& window : test::WindowsOf(process)) {
        if (window.Control(kFileNameBox).Exists()) return window;
    }
    return {};
}

// Milliseconds to the first value; nothing if none came.
std::optional<double> Load(const test::Session& session, const std::filesystem::path& log) {
    const test::RemoteWindow main = session.Main();
    if (!test::Becomes([&] { return main.IsShown(IDC_LOAD_LOG); }, true)) return std::nullopt;
    main.PostClick(IDC_LOAD_LOG);
    if (!test::Becomes([&] { return FileDialog(main.ProcessId()).Exists(); }, true)) return std::nullopt;
    const test::RemoteWindow dialog = FileDialog(main.ProcessId());
    dialog.Control(kFileNameBox).Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(log.c_str()));
    const auto began = Clock::now();
    dialog.PostClick(IDOK);
    while (session.ValueText(0).empty()) {
        if (Clock::now() - began > kPatience) return std::nullopt;
        ::Sleep(1);
    }
    return std::chrono::duration<double, std::milli>(Clock::now() - began).count();
}

bool PlayFastest(const test::RemoteWindow& main) {
    return static_cast<bool>(test::Becomes(
        [&] {
            main.Click(IDC_REPLAY_FASTER);
            return main.Text(IDC_REPLAY_SPEED);
        },
        std::wstring(L"8x")));
}

bool Play(const std::filesystem::path& log) {
    test::Session session;
    session.Start();
    const auto firstValueMs = Load(session, log);
    if (!firstValueMs || !PlayFastest(session.Main())) return false;
    std::printf("  %6.1f MB: first value after %4.0f ms; private memory",
                static_cast<double>(std::filesystem::file_size(log)) / 1e6, *firstValueMs);
    for (int look = 0; look < kLooks; ++look) {
        ::Sleep(kBetweenLooksMs);
        std::printf(" %zu", test::ResourcesOf(session.Main().ProcessId()).privateKilobytes);
    }
    std::printf(" KB, %lu s apart; then at %ls s of the log\n", kBetweenLooksMs / 1000,
                session.Main().Text(IDC_ELAPSED).c_str());
    std::fflush(stdout);
    return static_cast<bool>(session.Closes());
}

}  // namespace
}  // namespace plotvane

int wmain(int count, wchar_t** arguments) {
    for (int i = 1; i < count; ++i) {
        if (plotvane::Play(arguments[i])) continue;
        std::printf("the log %ls does not play\n", arguments[i]);
        return 1;
    }
    return 0;
}

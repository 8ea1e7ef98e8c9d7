// plotvane-remote: reads and closes a running Plotvane from outside, for scripts.
//
//   plotvane-remote texts    the title, then the twelve value boxes, one a line, in UTF-8
//   plotvane-remote place    the window's rectangle on the screen: WIDTHxHEIGHT+LEFT+TOP
//   plotvane-remote close    closes the window and waits for the end of the process
//
// Each waits up to ten seconds for the window. Exit status 1: no such window, or it does not close; 2: usage.
#include <cstdio>
#include <string>
#include <string_view>

#include "res/resource.h"
#include "tests/system/support/MainDialog.h"

namespace {

using plotvane::test::RemoteWindow;

constexpr DWORD kPatienceMs = 10'000;
constexpr DWORD kPollMs = 20;

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
}

void PrintPlace(const RemoteWindow& main) {
    const RECT place = main.ScreenRect();
    std::printf("%ldx%ld+%ld+%ld\n", place.right - place.left, place.bottom - place.top, place.left,
                place.top);
}

bool CloseAndWait(const RemoteWindow& main) {
    HANDLE const process = ::OpenProcess(SYNCHRONIZE, FALSE, main.ProcessId());
    if (!process) return false;
    main.Close();
    const bool ended = ::WaitForSingleObject(process, kPatienceMs) == WAIT_OBJECT_0;
    ::CloseHandle(process);
    return ended;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view command = argc == 2 ? argv[1] : "";
    if (command != "texts" && command != "place" && command != "close") {
        std::fputs("usage: plotvane-remote texts | place | close\n", stderr);
        return 2;
    }
    RemoteWindow main = plotvane::test::FindMainDialog();
    for (const DWORD start = ::GetTickCount(); !main.Exists() && ::GetTickCount() - start < kPatienceMs;) {
        ::Sleep(kPollMs);
        main = plotvane::test::FindMainDialog();
    }
    if (!main.Exists()) {
        std::fputs("plotvane-remote: there is no Plotvane window\n", stderr);
        return 1;
    }
    if (command == "texts") PrintTexts(main);
    if (command == "place") PrintPlace(main);
    if (command == "close" && !CloseAndWait(main)) {
        std::fputs("plotvane-remote: Plotvane does not close\n", stderr);
        return 1;
    }
    return 0;
}

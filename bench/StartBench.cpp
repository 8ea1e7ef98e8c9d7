// From the start of the process to the first painted chart, and to the controls below it, against an empty
// dialog, in turns; and the private memory. Prints medians and ratios.
//
// "Painted" is what a person would call so, and the same for all: a place is looked at on the screen itself
// every few milliseconds. A chart is there when its place holds its grid on its background and nothing else;
// an empty dialog, when that place has the colour of dialogs and nothing else; the controls, when there is a
// text on the colour of dialogs where the last of them stands.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "scaling/Prefs.h"
#include "tests/support/TempFolder.h"
#include "tests/system/support/Await.h"
#include "tests/system/support/ChildProcess.h"
#include "tests/system/support/RemoteWindow.h"
#include "tests/system/support/Resources.h"

namespace plotvane {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 21;
constexpr DWORD kLookEveryMs = 2;
constexpr std::chrono::milliseconds kPatience{20'000};
constexpr DWORD kSettleMs = 500;  // behind which the memory is looked at

// Inside the plot in both programs: away from labels, frame and whatever lies below.
RECT PlaceOfChart(const RECT& client) {
    const LONG width = client.right - client.left;
    const LONG height = client.bottom - client.top;
    return {client.left + width / 4, client.top + height / 10, client.left + width * 3 / 4,
            client.top + height / 2};
}

// Of the last control that is made: the title of the box at the right, above the bottom edge.
RECT PlaceOfLastText(const RECT& client) {
    return {client.right - 100, client.bottom - 34, client.right - 30, client.bottom - 22};
}

bool HoldsChart(const test::ScreenPicture& picture) {
    const Prefs prefs;
    const int grid = picture.Count(prefs.gridColor);
    const int background = picture.Count(prefs.backColor);
    return grid >= picture.width && background >= picture.width &&
           grid + background == picture.width * picture.height;
}

bool HoldsDialog(const test::ScreenPicture& picture) {
    return picture.Count(::GetSysColor(COLOR_3DFACE)) == picture.width * picture.height;
}

bool HoldsText(const test::ScreenPicture& picture) {
    const int size = picture.width * picture.height;
    return picture.Count(::GetSysColor(COLOR_3DFACE)) > size / 2 && picture.Count(kBlack) > size / 20;
}

struct Program {
    const char* name;
    const wchar_t* file;
    RECT (*placeIn)(const RECT& client);
    bool (*isPainted)(const test::ScreenPicture&);
    std::vector<double> startMs = {};
    std::vector<double> privateKb = {};
};

bool IsPainted(const test::ChildProcess& process, const Program& program) {
    const auto windows = test::WindowsOf(process.Id());
    if (windows.empty()) return false;
    const RECT place = program.placeIn(windows.front().ClientScreenRect());
    return place.right > place.left && place.bottom > place.top && program.isPainted(test::PictureOf(place));
}

// False if it is never painted.
bool StartOnce(Program& program, const std::filesystem::path& folder) {
    const std::wstring command = L'"' + (test::ProgramFolder() / program.file).wstring() + L'"';
    const auto began = Clock::now();
    const test::ChildProcess process(command, folder);
    while (!IsPainted(process, program)) {
        if (Clock::now() - began > kPatience) return false;
        ::Sleep(kLookEveryMs);
    }
    program.startMs.push_back(std::chrono::duration<double, std::milli>(Clock::now() - began).count());
    ::Sleep(kSettleMs);
    program.privateKb.push_back(static_cast<double>(test::ResourcesOf(process.Id()).privateKilobytes));
    for (const test::RemoteWindow& window : test::WindowsOf(process.Id())) window.Close();
    return process.EndsWithin(kPatience);
}

double Quantile(std::vector<double> figures, double part) {
    std::ranges::sort(figures);
    return figures[static_cast<std::size_t>(part * static_cast<double>(figures.size() - 1))];
}

int Run() {
    const test::TempFolder folder;
    Program programs[] = {{"empty dialog", L"empty_dialog.exe", PlaceOfChart, HoldsDialog},
                          {"chart", L"plotvane.exe", PlaceOfChart, HoldsChart},
                          {"controls", L"plotvane.exe", PlaceOfLastText, HoldsText}};
    for (int round = 0; round < kRounds; ++round) {
        for (Program& program : programs) {
            if (StartOnce(program, folder.Path())) continue;
            std::printf("%s was not painted, or did not end, within %lld s\n", program.name,
                        static_cast<long long>(kPatience.count()) / 1000);
            return 1;
        }
    }
    std::printf("%d starts each, in turns; medians, in brackets the best and the quartiles\n", kRounds);
    for (const Program& program : programs) {
        std::printf("  %-14s painted after %4.0f ms (%.0f, %.0f, %.0f)   private memory %5.0f KB\n",
                    program.name, Quantile(program.startMs, 0.5), Quantile(program.startMs, 0.0),
                    Quantile(program.startMs, 0.25), Quantile(program.startMs, 0.75),
                    Quantile(program.privateKb, 0.5));
    }
    std::printf("  ratio %.2f in time (best %.2f), %+.0f KB in memory\n",
                Quantile(programs[1].startMs, 0.5) / Quantile(programs[0].startMs, 0.5),
                Quantile(programs[1].startMs, 0.0) / Quantile(programs[0].startMs, 0.0),
                Quantile(programs[1].privateKb, 0.5) - Quantile(programs[0].privateKb, 0.5));
    return 0;
}

}  // namespace
}  // namespace plotvane

int main() {
    return plotvane::Run();
}

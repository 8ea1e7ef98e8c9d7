// From the start of the process to the first painted chart, and to the controls below it, against a bare
// dialog made from the same template, in turns; and the private memory. Prints medians and ratios.
//
// "Painted" means the same for both, and what a person would mean: the bench looks at a place on the screen
// itself every few milliseconds. A chart is there when its place holds its grid on its background and nothing
// else; the bare dialog, when that place has the colour of dialogs and nothing else; the controls, when there
// is a text on the colour of dialogs where the last of them stands.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "scaling/Prefs.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/TempFolder.h"
#include "tests/support/system/Await.h"
#include "tests/support/system/ChildProcess.h"
#include "tests/support/system/RemoteWindow.h"
#include "tests/support/system/Resources.h"

namespace plotvane {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 21;
constexpr DWORD kLookEveryMs = 2;
constexpr std::chrono::milliseconds kPatience{20'000};
constexpr DWORD kSettleMs = 500;  // until the memory is read

// Inside the plot in both programs: away from labels, frame and whatever lies below.
RECT PlaceOfChart(const RECT& client) {
    const LONG width = client.right - client.left;
    const LONG height = client.bottom - client.top;
    return {client.left + width / 4, client.top + height / 10, client.left + width * 3 / 4,
            client.top + height / 2};
}

// Of the last control that is shown: the title of the box at the right, above the bottom edge.
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
    bool (*isChartPlacePainted)(const test::ScreenPicture&);
    std::vector<double> chartMs = {};
    std::vector<double> controlsMs = {};
    std::vector<double> privateKb = {};
};

bool Shows(const test::ChildProcess& process, RECT (*placeIn)(const RECT& client),
           bool (*isPainted)(const test::ScreenPicture&)) {
    const auto windows = test::WindowsOf(process.Id());
    if (windows.empty()) return false;
    const RECT place = placeIn(windows.front().ClientScreenRect());
    return place.right > place.left && place.bottom > place.top && isPainted(test::PictureOf(place));
}

// False if it is never painted.
bool StartOnce(Program& program, const std::filesystem::path& folder) {
    const std::wstring command = L'"' + (test::ProgramFolder() / program.file).wstring() + L'"';
    const auto began = Clock::now();
    const auto passedMs = [began] {
        return std::chrono::duration<double, std::milli>(Clock::now() - began).count();
    };
    const test::ChildProcess process(command, folder);
    const auto wait = [&](auto placeIn, auto isPainted, std::vector<double>& times) {
        while (!Shows(process, placeIn, isPainted)) {
            if (Clock::now() - began > kPatience) return false;
            ::Sleep(kLookEveryMs);
        }
        times.push_back(passedMs());
        return true;
    };
    if (!wait(PlaceOfChart, program.isChartPlacePainted, program.chartMs)) return false;
    if (!wait(PlaceOfLastText, HoldsText, program.controlsMs)) return false;
    ::Sleep(kSettleMs);
    program.privateKb.push_back(static_cast<double>(test::ResourcesOf(process.Id()).privateKilobytes));
    for (const test::RemoteWindow& window : test::WindowsOf(process.Id())) window.Close();
    return process.EndsWithin(kPatience);
}

double Quantile(std::vector<double> figures, double part) {
    std::ranges::sort(figures);
    return figures[static_cast<std::size_t>(part * static_cast<double>(figures.size() - 1))];
}

void PrintTimes(const char* what, const std::vector<double>& ms) {
    std::printf("    %-22s %4.0f ms (%.0f, %.0f, %.0f)\n", what, Quantile(ms, 0.5), Quantile(ms, 0.0),
                Quantile(ms, 0.25), Quantile(ms, 0.75));
}

void PrintRatio(const char* what, const std::vector<double>& ours, const std::vector<double>& bare) {
    std::printf("  %-24s %.2f (best %.2f)\n", what, Quantile(ours, 0.5) / Quantile(bare, 0.5),
                Quantile(ours, 0.0) / Quantile(bare, 0.0));
}

int Run() {
    const test::TempFolder folder;
    Program programs[] = {{"bare dialog", L"bare_dialog.exe", HoldsDialog},
                          {"program", L"plotvane.exe", HoldsChart}};
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
        std::printf("  %s, private memory %.0f KB\n", program.name, Quantile(program.privateKb, 0.5));
        PrintTimes("place of the chart", program.chartMs);
        PrintTimes("text of the last box", program.controlsMs);
    }
    const auto& [bare, ours] = programs;
    PrintRatio("ratio, chart", ours.chartMs, bare.chartMs);
    PrintRatio("ratio, last box", ours.controlsMs, bare.controlsMs);
    std::printf("  %+.0f KB in memory\n", Quantile(ours.privateKb, 0.5) - Quantile(bare.privateKb, 0.5));
    return 0;
}

}  // namespace
}  // namespace plotvane

int main() {
    return plotvane::Run();
}

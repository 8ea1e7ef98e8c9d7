// Measures how well a replay keeps the pace that its rule asks for: ten seconds of a log with twenty rows per
// second, at each speed, on the real clock and message pump. Prints the time taken and the time asked for.
#include <cstdio>
#include <filesystem>

#include "link/WindowPump.h"
#include "plot/binding/ReplayPacing.h"
#include "tests/support/FakeViews.h"

namespace plotvane {
namespace {

constexpr int kRowsPerSecond = 20;
constexpr int kRows = 10 * kRowsPerSecond;
constexpr double kStepCostMs = 5.0;  // the rule subtracts this from every wait

double AskedForMs(int periodMs) {
    return kRows * (1.0 * periodMs / kRowsPerSecond - kStepCostMs);
}

double TakenMs(int periodMs) {
    RunState state;
    state.stopped = false;
    state.replayPeriodMs = periodMs;
    const Prefs prefs;
    SlotTable slots;
    DefaultScaling defaults("Scaling");
    ModuleScaling ranges("Scaling", defaults, state);
    test::FakeChart chart;
    test::FakePanel panel;
    test::FakeMeters meters;
    Sample sample{state, prefs, slots, defaults, ranges};
    WindowPump pump(state);
    ReplayPacing pacing(sample, {chart, panel, meters}, pump);
    const LoopRun run(state);

    constexpr double kFirstStamp = 1.0;  // a stamp of 0 counts as none
    pacing.Restart();
    pacing.ReplayStep({kFirstStamp, 0.0, 0.0}, run);
    const double began = pump.NowMs();
    for (int row = 1; row <= kRows; ++row) {
        pacing.ReplayStep({kFirstStamp + 1.0 * row / kRowsPerSecond, 0.0, 0.0}, run);
    }
    return pump.NowMs() - began;
}

}  // namespace
}  // namespace plotvane

int main() {
    std::printf("%-6s %12s %12s %8s\n", "speed", "asked, ms", "taken, ms", "ratio");
    for (const int periodMs : {2000, 1000, 500, 250, 125}) {
        const double asked = plotvane::AskedForMs(periodMs);
        const double taken = plotvane::TakenMs(periodMs);
        std::printf("%-6g %12.1f %12.1f %8.4f\n", 1000.0 / periodMs, asked, taken, taken / asked);
        std::fflush(stdout);
    }
    return 0;
}

// Short forms of long runs: the resources that the program holds do not grow with the number of records that
// it has shown. scripts/soak.sh does the same for an hour.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Meters.h"
#include "tests/support/system/Prompt.h"
#include "tests/support/system/Replay.h"
#include "tests/support/system/Resources.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

// The system itself may still allocate this much in the first seconds. A program that kept one object, or two
// kilobytes, for each of the few hundred records shown here would exceed it.
constexpr GrowthAllowance kAllowed{.privateKilobytes = 512, .gdiObjects = 2, .userObjects = 0, .handles = 4};

class LongRun : public Replay {
protected:
    // Waits until the program has shown its first values and its last title.
    void WaitUntilSettled() {
        ASSERT_TRUE(Becomes([this] { return session.ValueText(0).empty(); }, false));
        ASSERT_TRUE(Becomes([this] { return main.Text().starts_with(L"Plotvane"); }, true));
        ASSERT_TRUE(Becomes([this] { return main.IsChecked(IDC_SHOW_FIRST + 3); }, true));
        ASSERT_TRUE(ResourcesSettle());
    }
    // On a busy machine the system's libraries for timers are still opening their handles when the first
    // values are shown, and a meter that has just opened draws its first value a moment later. A program that
    // took something for each record would never settle.
    ::testing::AssertionResult ResourcesSettle() {
        const auto taken = [&] { return ResourcesOf(main.ProcessId()); };
        for (int attempt = 0; attempt < 20; ++attempt) {
            const Resources before = taken();
            const auto areAsMany = [&] {
                const Resources now = taken();
                return std::abs(now.handles - before.handles) < kAllowed.handles &&
                       std::abs(now.gdiObjects - before.gdiObjects) < kAllowed.gdiObjects;
            };
            if (Stays(areAsMany, true, 1s)) return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << "the program goes on taking handles or GDI objects";
    }
    void OpenFourMeters() {
        for (int slot = 0; slot < 4; ++slot) RightClick(main, IDC_SWATCH_FIRST + slot);
        ASSERT_EQ(OpenMeters(main).size(), 4u);
        ASSERT_TRUE(ResourcesSettle());
    }
    // `samples` tells how many have been shown so far.
    void StaysTheSameFor(std::chrono::seconds time, const std::function<int()>& samples) {
        AnswerWatch answers(main.Get());
        const int samplesBefore = samples();
        const Resources before = ResourcesOf(main.ProcessId());
        EXPECT_GT(before.privateKilobytes, 0u);
        EXPECT_GT(before.gdiObjects, 0);
        EXPECT_GT(before.userObjects, 100) << "the main dialog alone has as many windows";
        EXPECT_GT(before.handles, 0);
        std::wstring shown = session.ValueText(0);
        int changes = 0;
        EXPECT_TRUE(Stays(
            [&] {
                std::wstring now = session.ValueText(0);
                if (now != shown) ++changes;
                shown = std::move(now);
                return session.Process().Running();
            },
            true, time));
        EXPECT_GT(changes, 20) << "the program has shown enough records";
        const GrowthAllowance allowed = WithRecording(kAllowed, samples() - samplesBefore);
        EXPECT_EQ(GrownBeyond(before, ResourcesOf(main.ProcessId()), allowed), "");
        EXPECT_TRUE(AnsweredPromptly(answers));
    }
};

// Live, the program takes twenty records a second: here they fill no piece.
int FewSamples() {
    return 0;
}

TEST_F(LongRun, LiveWithMetersOpenDoesNotGrow) {
    session.StartThroughStandIn(L"--rate 20 --loop");
    main = session.Main();
    WaitUntilSettled();
    OpenFourMeters();
    StaysTheSameFor(15s, FewSamples);
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(LongRun, AHostThatSendsTenTimesTooFastChangesNothing) {
    session.StartThroughStandIn(L"--rate 200 --speed 10 --loop");
    main = session.Main();
    WaitUntilSettled();
    StaysTheSameFor(10s, FewSamples);
    EXPECT_TRUE(ClosesPromptly(session));
}

// The rows are a millisecond apart, so the replay waits for none.
TEST_F(LongRun, AReplayAtFullPaceDoesNotGrow) {
    std::vector<LogRowText> rows;
    for (int row = 1; row <= 60'000; ++row) {
        const std::string digits = std::to_string(1000 + row % 1000);
        rows.push_back({std::to_string(row / 1000) + "." + digits.substr(1),
                        digits + ",90.0," + std::to_string(row % 200) + ",4.2"});
    }
    Start();
    Load(WriteLog("x.csv", ClassicLog(rows)));
    WaitUntilSettled();
    OpenFourMeters();
    StaysTheSameFor(10s, [this] { return static_cast<int>(1000 * std::stod(main.Text(IDC_ELAPSED))); });
    EXPECT_TRUE(main.IsEnabled(IDC_STOP)) << "it was long enough";
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test

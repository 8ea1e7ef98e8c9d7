#include "tests/system/support/Prompt.h"

namespace plotvane::test {

namespace {

constexpr double kEndMs = 1000.0;
constexpr double kHeldUpFactor = 10.0;

}  // namespace

::testing::AssertionResult AnsweredPromptly(AnswerWatch& watch) {
    watch.Stop();
    if (watch.WasPrompt()) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "more than " << watch.BoundMs() << " ms: " << watch.Figures();
}

::testing::AssertionResult EndsPromptly(const Session& session) {
    const auto asked = std::chrono::steady_clock::now();
    AnswerWatch idle(nullptr);
    if (!session.Process().EndsWithin(kDeadline)) {
        return ::testing::AssertionFailure() << "it still runs after " << kDeadline.count() << " ms";
    }
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - asked;
    idle.Stop();
    if (const DWORD code = session.Process().ExitCode()) {
        return ::testing::AssertionFailure() << "it ended with " << code;
    }
    const double bound = kEndMs + kHeldUpFactor * idle.Idle().Slowest();
    if (took.count() <= bound) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "it took " << took.count() << " ms, not " << bound;
}

::testing::AssertionResult ClosesPromptly(const Session& session) {
    session.Main().Close();
    return EndsPromptly(session);
}

}  // namespace plotvane::test

#include "tests/support/system/Prompt.h"

namespace plotvane::test {

constexpr double kEndMs = 1000.0;

::testing::AssertionResult AnsweredPromptly(AnswerWatch& watch) {
    watch.Stop();
    ::testing::Test::RecordProperty("answers", watch.Figures());  // for the reports on a run
    if (watch.WasPrompt()) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "more than " << watch.BoundMs() << " ms: " << watch.Figures();
}

::testing::AssertionResult KeepsAnswering(const RemoteWindow& window, std::chrono::milliseconds during) {
    AnswerWatch watch(window.Get());
    ::Sleep(static_cast<DWORD>(during.count()));
    return AnsweredPromptly(watch);
}

::testing::AssertionResult EndsPromptly(const Session& session) {
    const auto asked = std::chrono::steady_clock::now();
    AnswerWatch machine(nullptr);
    if (!session.Process().EndsWithin(kDeadline)) {
        return ::testing::AssertionFailure() << "it is still running after " << kDeadline.count() << " ms";
    }
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - asked;
    machine.Stop();
    if (const DWORD code = session.Process().ExitCode()) {
        return ::testing::AssertionFailure() << "it ended with exit code " << code;
    }
    const double bound = kEndMs * machine.Stretch();
    if (took.count() <= bound) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "it took " << took.count() << " ms, more than " << bound;
}

::testing::AssertionResult ClosesPromptly(const Session& session) {
    session.Main().Close();
    return EndsPromptly(session);
}

}  // namespace plotvane::test

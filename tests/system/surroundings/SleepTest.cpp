// The machine sleeps and wakes, and its clock is set, while the program works.
#include <winternl.h>

#include "tests/support/system/ProgramState.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

constexpr auto kSleep = 1s;

// Suspends a process for as long as the object lives.
class Asleep {
public:
    explicit Asleep(DWORD processId)
        : m_process(::OpenProcess(PROCESS_SUSPEND_RESUME | SYNCHRONIZE, FALSE, processId)) {
        Call("NtSuspendProcess");
    }
    ~Asleep() { Call("NtResumeProcess"); }
    Asleep(const Asleep&) = delete;
    Asleep& operator=(const Asleep&) = delete;

private:
    void Call(const char* name) const {
        using Change = NTSTATUS NTAPI(HANDLE process);
        auto* const change = reinterpret_cast<Change*>(
            reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), name)));
        EXPECT_GE(change(m_process.Get()), 0) << name;
    }

    const Handle m_process;
};

class Sleep : public AnyState {
protected:
    // What Windows tells every window.
    void Tell(WPARAM event) const { main.Send(WM_POWERBROADCAST, event); }

    void SleepAndWake() {
        Tell(PBT_APMSUSPEND);
        {
            const Asleep asleep(main.ProcessId());
            EXPECT_FALSE(main.Answers(100ms));
            ::Sleep(static_cast<DWORD>(std::chrono::milliseconds(kSleep).count()));
        }
        Tell(PBT_APMRESUMEAUTOMATIC);
        Tell(PBT_APMRESUMESUSPEND);
    }
    int Shown() const { return std::stoi(session.ValueText(0)); }
};

TEST_F(Sleep, OfTheProgramAloneIsCaughtUpWith) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    SleepAndWake();
    const int sent = feed->Sent();
    EXPECT_TRUE(Becomes([&] { return Shown() >= sent; }, true));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(Sleep, OfHostAndProgramGoesOnWhereItWas) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    feed.reset();
    const int before = Shown();
    SleepAndWake();
    EXPECT_GE(Shown(), before);
    EXPECT_TRUE(main.IsEnabled(IDC_PAUSE));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

// The replay must not rush to make up for the time slept: twenty rows a second still take a second.
TEST_F(Sleep, DuringAReplayIsNotMadeUpForByHaste) {
    Enter(ProgramState::ReplayPlaying);
    ASSERT_FALSE(HasFatalFailure());
    const auto seconds = [this] { return std::stod(main.Text(IDC_ELAPSED)); };
    ASSERT_TRUE(Becomes([&] { return main.Text(IDC_ELAPSED).empty(); }, false));
    SleepAndWake();
    const double woken = seconds();
    const auto began = std::chrono::steady_clock::now();
    EXPECT_TRUE(Becomes([&] { return seconds() >= woken + 1.0; }, true));
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
    EXPECT_GT(took.count(), 0.8);
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(Sleep, InAPauseLeavesThePause) {
    Enter(ProgramState::ReplayHeld);
    ASSERT_FALSE(HasFatalFailure());
    const std::wstring held = main.Text(IDC_ELAPSED);
    SleepAndWake();
    EXPECT_TRUE(Stays([this] { return main.Text(IDC_ELAPSED); }, held, 300ms));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test

#include "tests/linux/support/Killed.h"

#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace plotvane::test {
namespace {

constexpr int kDone = 0;

// The child runs `prepare`, then `work`, and never returns into the test program.
pid_t Fork(const std::function<void()>& prepare, const std::function<void()>& work) {
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot fork");
    if (child == 0) {
        prepare();
        work();
        _exit(kDone);
    }
    return child;
}

int Wait(pid_t child) {
    int status = 0;
    if (waitpid(child, &status, 0) != child) throw std::runtime_error("cannot wait for a process");
    return status;
}

// False if the process ended by itself after its work. Throws if it ended in any other way.
bool WasKilledBy(int signal, int status) {
    if (WIFEXITED(status) && WEXITSTATUS(status) == kDone) return false;
    if (WIFSIGNALED(status) && WTERMSIG(status) == signal) return true;
    throw std::runtime_error("the process failed by itself");
}

}  // namespace

bool KilledAtStep(int step, const std::function<void()>& work) {
    const auto waitForTracer = [] {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
    };
    const pid_t child = Fork(waitForTracer, work);
    int status = Wait(child);
    for (int stop = 0; WIFSTOPPED(status) && stop < step; ++stop) {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        status = Wait(child);
    }
    if (!WIFSTOPPED(status)) return WasKilledBy(SIGKILL, status);
    kill(child, SIGKILL);
    return WasKilledBy(SIGKILL, Wait(child));
}

bool KilledAtByte(std::size_t bytes, const std::function<void()>& work) {
    const auto limitFiles = [bytes] {
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_FSIZE, &limit);
        std::signal(SIGXFSZ, SIG_DFL);
    };
    return WasKilledBy(SIGXFSZ, Wait(Fork(limitFiles, work)));
}

}  // namespace plotvane::test

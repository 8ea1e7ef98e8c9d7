#include "fuzz/Inputs.h"
#include "fuzz/Targets.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"
#include "tools/sim/HostScript.h"

namespace plotvane::fuzz {

using test::Require;
using test::ScratchFile;

namespace {

void RequireSaneStep(const ScriptStep& step) {
    using std::chrono::milliseconds;
    constexpr std::size_t kOnePieceOfThePipe = 4096;
    constexpr milliseconds kLongestWait{600'000};
    Require(step.time >= milliseconds(0) && step.time <= kLongestWait, "a wait is bounded");
    Require(step.bytes.size() <= kOnePieceOfThePipe, "a command's bytes fit the pipe");
    Require((step.kind == ScriptStep::Kind::Send) == !step.bytes.empty(),
            "exactly the send commands have bytes");
}

}  // namespace

int FuzzHostScript(Bytes input) {
    const ScratchFile file("script.txt", AsText(input));
    const HostScript script = LoadHostScript(file.Path());
    Require(script.steps.empty() == !script.error.empty(), "there are either commands or an error");
    bool closed = false;
    for (const ScriptStep& step : script.steps) {
        RequireSaneStep(step);
        Require(!closed || step.kind != ScriptStep::Kind::Send, "nothing is sent into a closed pipe");
        closed = closed || step.kind == ScriptStep::Kind::Close;
    }
    return 0;
}

}  // namespace plotvane::fuzz

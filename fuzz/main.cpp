// The main program of one target under libFuzzer. The build sets FUZZ_TARGET to one of the functions in
// fuzz/Targets.h.

#include <cstdlib>

#include "fuzz/Targets.h"

// The readers read files, which cost only microseconds in memory. A TMPDIR that is already set stays.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    return setenv("TMPDIR", "/dev/shm", 0);
}

// A broken promise throws. Nothing between there and libFuzzer catches it, so the process ends with the whole
// stack in place, and the stack shows where it happened.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return plotvane::fuzz::FUZZ_TARGET({data, size});
}

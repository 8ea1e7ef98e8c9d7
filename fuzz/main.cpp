// The main program of one target under libFuzzer. The build sets FUZZ_TARGET to one of the functions in
// fuzz/Targets.h.

#include <cstdlib>

#include "fuzz/Targets.h"

// The readers take files, which cost only microseconds in memory. A TMPDIR from outside is kept.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    return setenv("TMPDIR", "/dev/shm", 0);
}

// A thrown promise ends the process at the place where it was broken: nothing between there and libFuzzer
// catches it, so the stack is not unwound and shows the place.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return plotvane::fuzz::FUZZ_TARGET({data, size});
}

// The program of one target under libFuzzer. FUZZ_TARGET, one of the functions in fuzz/Targets.h, is set by
// the build.

#include <cstdlib>

#include "fuzz/Targets.h"

// The readers take files; in memory these cost microseconds. Who has set TMPDIR keeps it.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    return setenv("TMPDIR", "/dev/shm", 0);
}

// A thrown promise ends the process where it was broken: nothing on the way up to libFuzzer catches it, so
// nothing is unwound and the stack tells the place.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return plotvane::fuzz::FUZZ_TARGET({data, size});
}

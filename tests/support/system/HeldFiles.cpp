// The faults of files that other programs have open.
#include "tests/support/system/WriteFault.h"

namespace plotvane::test {
namespace {

std::unique_ptr<WriteFault> HoldForReaders(const std::filesystem::path& file) {
    return std::make_unique<HeldFile>(file, GENERIC_READ, FILE_SHARE_READ);
}

// Others may read it and delete it, but not write it.
std::unique_ptr<WriteFault> HoldForDeleting(const std::filesystem::path& file) {
    return std::make_unique<HeldFile>(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE);
}

}  // namespace

std::vector<WriteFaultKind> WriteFaultKinds() {
    return {{"Held", Hold, false},
            {"HeldForReaders", HoldForReaders, true},
            {"HeldForDeleting", HoldForDeleting, true}};
}

}  // namespace plotvane::test

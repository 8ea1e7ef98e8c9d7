#include "logs/LogCheck.h"

#include "base/FileName.h"
#include "base/FileOperations.h"
#include "base/TextInput.h"

namespace plotvane {
namespace {

constexpr int kCommasBeforeTime = 4;
constexpr int kTooManyCharacters = 100;  // the search for the fourth comma ends here

bool FindTime(TextInput& input) {
    int commas = 0;
    for (int characters = 1; characters < kTooManyCharacters; ++characters) {
        const int c = input.Get();
        if (c == TextInput::kEnd || c == '\n') return false;
        if (c == ',' && ++commas == kCommasBeforeTime) return true;
    }
    return false;
}

bool TakeTwoDigits(TextInput& input) {
    for (int digit = 0; digit < 2; ++digit) {
        const int c = input.Get();
        if (c < '0' || c > '9') return false;
    }
    return true;
}

bool TakeTimeOfDay(TextInput& input) {
    return TakeTwoDigits(input) && input.Get() == ':' && TakeTwoDigits(input) && input.Get() == ':' &&
           TakeTwoDigits(input);
}

// Opening a device, or reading anything else that is not a file, could block for ever.
bool MayWait(const std::filesystem::path& path) {
    return NamesDevice(path) || KindOf(path) == FileKind::Other;
}

}  // namespace

LogCheck CheckLog(const std::filesystem::path& path) {
    if (MayWait(path)) return LogCheck::Unreadable;
    TextInput input(path);
    if (!input.IsOpen()) return LogCheck::Unreadable;
    if (FindTime(input) && TakeTimeOfDay(input)) return LogCheck::HostLog;
    return input.HasFailed() ? LogCheck::Unreadable : LogCheck::SomethingElse;
}

}  // namespace plotvane

#include "tools/drives/Drive.h"

#include <algorithm>
#include <cmath>

#include "base/Numbers.h"

namespace plotvane {
namespace {

// Keeps twelve values, with units and tags, within one block.
constexpr double kLargestValue = 999'999'999.0;

// No instrument would show "-0.0".
bool IsNegativeZero(std::string_view text) {
    return text.find_first_not_of("-0.") == std::string_view::npos;
}

}  // namespace

std::string ValueText(const Drive& drive, int slot, double seconds) {
    const DriveChannel& channel = drive.Channels().at(static_cast<std::size_t>(slot));
    std::string text;
    AppendFixed(text, std::clamp(drive.Value(slot, seconds), -kLargestValue, kLargestValue),
                channel.decimals);
    if (text.starts_with('-') && IsNegativeZero(text)) text.erase(0, 1);
    return text;
}

int RawByte(const Drive& drive, int slot, double seconds) {
    const DriveChannel& channel = drive.Channels().at(static_cast<std::size_t>(slot));
    if (channel.highest <= channel.lowest) return 0;
    // A file may hold values so large that their difference overflows a double; halves avoid that.
    const double scale = std::isfinite(channel.highest - channel.lowest) ? 1.0 : 0.5;
    const double lowest = channel.lowest * scale;
    const double share = (drive.Value(slot, seconds) * scale - lowest) / (channel.highest * scale - lowest);
    return static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * 255.0));
}

}  // namespace plotvane

#include "tools/samples/SampleFiles.h"

#include <string>
#include <string_view>
#include <system_error>

#include "base/AtomicFile.h"
#include "model/RunState.h"
#include "scaling/DefaultScaling.h"
#include "scaling/ModuleScaling.h"
#include "tools/drives/ScriptedDrive.h"
#include "tools/samples/SampleLogs.h"

namespace plotvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kScalingFile = "038-906-019-FT.SCL";

// The labels for the part number without a suffix; modules with some suffixes have their own.
constexpr std::string_view kPartLabels =
    "; 038 906 019, the engine of the sample logs, in its first form without a lambda control.\n"
    "REDIRECT,038-906-019-A.LBL,FT,GH\n"
    "001,0,Engine\n"
    "001,1,Engine speed,actual\n"
    "001,2,Road speed\n"
    "001,3,Coolant,temperature\n"
    "001,4,Supply,voltage\n";

constexpr std::string_view kSuffixNote = "; 038 906 019 with the suffixes FT and GH: with lambda control.\n";

// A title for each group and the names of its fields; label files count the fields from 1.
std::string SuffixLabels(const Drive& drive) {
    constexpr std::string_view kTitles[kSlotRows] = {"Engine", "Air and ignition", "Mixture"};
    std::string labels(kSuffixNote);
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const DriveChannel& channel = drive.Channels().at(static_cast<std::size_t>(slot));
        const std::string number = std::to_string(channel.group);
        const std::string group = std::string(3 - number.size(), '0') + number;
        if (ColumnOf(slot) == 0) labels += group + ",0," + std::string(kTitles[RowOf(slot)]) + '\n';
        labels += group + ',' + std::to_string(channel.field + 1) + ',' + channel.name;
        if (!channel.detail.empty()) labels += ',' + channel.detail;
        labels += '\n';
    }
    return labels;
}

bool WriteLogs(const fs::path& folder, const Drive& drive) {
    const LogSpan whole{.from = 0, .to = drive.Seconds()};
    const LogSpan town{.from = 0, .to = 70, .gapFrom = 30, .gapTo = 42};
    const LogSpan pullAway{.from = 0, .to = 60};
    const LogSpan motorway{.from = 76, .to = 160};
    return ReplaceTextFile(folder / "drive.csv", ClassicLog(drive, whole, kSlotRows)) &&
           ReplaceTextFile(folder / "two-groups.csv", ClassicLog(drive, town, 2)) &&
           ReplaceTextFile(folder / "ten-channels.csv", TenChannelLog(drive, pullAway)) &&
           ReplaceTextFile(folder / "advanced.csv", AdvancedLog(drive, motorway)) &&
           ReplaceTextFile(folder / "obd.csv", ObdLog(drive, pullAway));
}

bool WriteLabels(const fs::path& folder, const Drive& drive) {
    return ReplaceTextFile(folder / "038-906-019.LBL", kPartLabels) &&
           ReplaceTextFile(folder / "038-906-019-A.LBL", SuffixLabels(drive));
}

// Ranges for the fields without a default range, which would otherwise run from 0 to 100.
bool WriteScaling(const fs::path& folder) {
    std::error_code ignored;
    for (const std::string_view name : {std::string_view("Defaults.cfg"), kScalingFile})
        fs::remove(folder / name, ignored);
    RunState state;
    DefaultScaling defaults(folder);
    ModuleScaling ranges(folder, defaults, state);
    const std::string name(kScalingFile);
    if (ranges.LoadModuleScaling(name) != ModuleLoad::Loaded) return false;
    constexpr int kMixture = 31;
    for (const int lambda : {0, 1}) ranges.SetMax(kMixture, lambda, 2);
    ranges.SetMin(kMixture, 2, -25);
    ranges.SetMax(kMixture, 2, 25);
    ranges.SetMax(kMixture, 3, 40);
    return ranges.SaveModuleScaling(name) == 0;
}

}  // namespace

bool WriteSamples(const fs::path& folder) {
    std::error_code error;
    for (const char* name : {"LOGS", "labels", "Scaling"}) {
        fs::create_directories(folder / name, error);
        if (error) return false;
    }
    const ScriptedDrive drive;
    return WriteLogs(folder / "LOGS", drive) && WriteLabels(folder / "labels", drive) &&
           WriteScaling(folder / "Scaling");
}

}  // namespace plotvane

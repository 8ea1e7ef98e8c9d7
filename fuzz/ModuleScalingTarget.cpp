#include <string>

#include "base/FileName.h"
#include "fuzz/Inputs.h"
#include "fuzz/Targets.h"
#include "logs/ModuleKey.h"
#include "scaling/ModuleScaling.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"

namespace plotvane::fuzz {

using test::Require;
using test::ScratchFile;
using test::ScratchPath;

namespace {

constexpr int kFieldsAsked = 10;  // a record's field is one digit

// The tables that one run of the program uses.
struct Tables {
    explicit Tables(bool obdFile) { state.obdFile = obdFile; }

    RunState state;
    DefaultScaling defaults{ScratchPath()};
    ModuleScaling ranges{ScratchPath(), defaults, state};
};

void RequireSane(const Tables& tables) {
    Require(tables.state.pixelShift >= kPixelShiftMin && tables.state.pixelShift <= kPixelShiftMax,
            "the pixel shift is 1..15");
    for (const int group : {-99, -1, 0, 256, 999})
        for (int field = -1; field < kFieldsAsked; ++field)
            Require(tables.ranges.RangeOf(group, field) == ScaleRange{},
                    "other groups have the range 0..100");
    for (int group = ModuleScaling::kFirstGroup; group <= ModuleScaling::kLastGroup; ++group)
        for (const int field : {-1, ModuleScaling::kFieldCount, kFieldsAsked - 1})
            Require(tables.ranges.RangeOf(group, field) == ScaleRange{},
                    "other fields have the range 0..100");
}

void RequireEqual(const Tables& a, const Tables& b, const char* promise) {
    Require(a.state.pixelShift == b.state.pixelShift, promise);
    for (int group = ModuleScaling::kFirstGroup; group <= ModuleScaling::kLastGroup; ++group)
        for (int field = 0; field < ModuleScaling::kFieldCount; ++field)
            Require(a.ranges.RangeOf(group, field) == b.ranges.RangeOf(group, field), promise);
}

void RequireSaneFile(const std::string& name, std::string_view bytes, bool obdFile) {
    const ScratchFile file(PathFromText(name), bytes);
    Tables tables(obdFile);
    Require(tables.ranges.LoadModuleScaling(name) == ModuleLoad::Loaded, "an existing file is loaded");
    Require(tables.ranges.IsLoadedWhole() && tables.ranges.LoadedName() == name, "it is the current file");
    Require(tables.ranges.LoadModuleScaling(name) == ModuleLoad::AlreadyLoaded, "a file is read once");
    RequireSane(tables);

    Require(tables.ranges.SaveModuleScaling(name) == 0, "the table is saved");
    const std::string saved = file.Bytes();
    Tables reloaded(tables.state.obdFile);
    Require(reloaded.ranges.LoadModuleScaling(name) == ModuleLoad::Loaded, "a saved file is loaded");
    RequireEqual(tables, reloaded, "a saved table reloads to the same");
    Require(reloaded.ranges.SaveModuleScaling(name) == 0 && file.Bytes() == saved,
            "a reloaded table saves the same");

    if (bytes.find('\r') != std::string_view::npos) return;
    file.Write(WithCrLf(bytes));
    Tables crLf(obdFile);
    Require(crLf.ranges.LoadModuleScaling(name) == ModuleLoad::Loaded, "an existing file is loaded");
    RequireEqual(tables, crLf, "both line ends read the same");
}

// Requires that loading creates the file, unless its name is unsafe.
void RequireFirstVisit(const std::string& name, bool obdFile) {
    Tables tables(obdFile);
    const bool fit = IsSafeFileName(name);
    Require(tables.ranges.LoadModuleScaling(name) == (fit ? ModuleLoad::Loaded : ModuleLoad::Failed),
            "a module gets a file if its name is safe");
    const auto path = ScratchPath() / PathFromText(name);
    Require(std::filesystem::exists(path) == fit, "a module gets a file if its name is safe");
    RequireSane(tables);
    std::filesystem::remove(path);
}

}  // namespace

// Three parts: "o" for the form of generic OBD data, the module's name, its file.
int FuzzModuleScaling(Bytes input) {
    std::string_view rest = AsText(input);
    const bool obdFile = TakePart(rest) == "o";
    const std::string name = ScalingFileNameOf(TakePart(rest));
    const std::string_view bytes = TakePart(rest);
    const ScratchFile defaults("Defaults.cfg", "V,0,20,\n");

    if (bytes.empty()) RequireFirstVisit(name, obdFile);
    if (IsSafeFileName(name)) RequireSaneFile(name, bytes, obdFile);
    return 0;
}

}  // namespace plotvane::fuzz

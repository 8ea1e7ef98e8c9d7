#include <algorithm>
#include <string>

#include "base/FileName.h"
#include "fuzz/Inputs.h"
#include "fuzz/Targets.h"
#include "logs/ModuleKey.h"
#include "tests/support/Promise.h"

namespace plotvane::fuzz {

using test::Require;

namespace {

// The name must not lead out of its folder on any system.
void RequirePlainName(std::string_view name) {
    constexpr std::string_view kReserved = "\\/:*?\"<>|";
    Require(!name.empty(), "a file name is not empty");
    Require(name.find_first_of(kReserved) == std::string_view::npos, "a file name has no separator");
    Require(std::ranges::none_of(name, [](char c) { return static_cast<unsigned char>(c) < 0x20; }),
            "a file name has no control byte");
    Require(name != "." && name != ".." && !PathFromText(name).has_parent_path(),
            "a file name stays in its folder");
}

}  // namespace

// The input is the name of a module, as it stands at the start of a record.
int FuzzModuleKey(Bytes input) {
    const std::string_view name = AsText(input);
    if (IsSafeFileName(name)) RequirePlainName(name);
    Require(PathFromText(name).u16string().size() == name.size(), "a path has the text's characters");

    const std::string key = ScalingFileNameOf(name);
    RequirePlainName(key);
    Require(key.ends_with(kScalingExtension), "a key is the name of a scaling file");
    Require(key.size() <= 15 + kScalingExtension.size(), "a key has at most 15 characters");
    const std::string stem(KeyStemOf(key));
    Require(stem + std::string(kScalingExtension) == key, "a stem is the key without its extension");
    Require(ScalingFileNameOf(stem) == key, "a key's own name has the same key");
    Require(IsSafeFileName(key) || IsDeviceName(key), "only a device's name makes a key unfit for a file");

    // The log import uses the raw module name in place of the key.
    for (const std::string_view labelStem : {std::string_view(stem), KeyStemOf(name)}) {
        const std::string suffix = ModuleSuffixOf(labelStem);
        Require(suffix.size() <= 3 && std::ranges::all_of(suffix, IsLetterOrDigit),
                "a suffix is at most three letters or digits");
        const std::string full = LabelFileNameOf(labelStem, LabelForm::Full);
        const std::string shared = LabelFileNameOf(labelStem, LabelForm::Short);
        Require(full.size() <= 19 && shared.size() <= 15, "a label file's name is bounded");
        Require(full.starts_with(KeyStemOf(shared).substr(0, shared.size() - 4)),
                "the full form begins as the short one");
    }
    RequirePlainName(LabelFileNameOf(stem, LabelForm::Full));
    RequirePlainName(LabelFileNameOf(stem, LabelForm::Short));
    return 0;
}

}  // namespace plotvane::fuzz

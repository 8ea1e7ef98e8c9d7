#pragma once

#include <string>
#include <string_view>

namespace plotvane {

// The names of a module's files, made from the identifier at the start of its records, for example "038 906
// 019 FT": a part number of three groups of three characters and a suffix of up to three.

constexpr std::string_view kScalingExtension = ".SCL";

// Holds the ranges of generic OBD values, which belong to no single module.
constexpr std::string_view kObdScalingFile = "OBD.SCL";

// The module key, which is also the name of the module's scaling file: at most 15 characters of the name,
// without trailing blanks beyond the part number, every other blank a dash, cut at the first "." after its
// first character, and ".SCL": "038-906-019-FT.SCL". A character that could lead out of the folder, or that
// no file name may contain, becomes a dash too.
std::string ScalingFileNameOf(std::string_view moduleName);

// The key without ".SCL", from which the label file is found. A name without that extension stays as it is.
std::string_view KeyStemOf(std::string_view scalingFileName);

enum class LabelForm {
    Full,  // of one module: "038-906-019-FT.LBL"
    Short  // of all modules of a part number: "038-906-019.LBL"
};

// The bare name of the module's label file. The characters 3 and 7 of the stem are written as dashes whatever
// they are; what a short stem does not have is left out.
std::string LabelFileNameOf(std::string_view keyStem, LabelForm form);

// The module's suffix as redirect lines list it: characters 12 to 14 of the stem up to the first that is not
// a letter or digit, in upper case. Empty for a module without one.
std::string ModuleSuffixOf(std::string_view keyStem);

// Of the letters and digits that the host's files know, without regard to a locale.
bool IsLetterOrDigit(char c);
char UpperCaseOf(char c);

}  // namespace plotvane

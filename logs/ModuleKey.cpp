#include "logs/ModuleKey.h"

#include <algorithm>
#include <cstddef>

namespace plotvane {
namespace {

constexpr std::size_t kMaxNameLength = 15;
constexpr std::size_t kSuffixStart = 12;
constexpr std::size_t kSuffixEnd = 15;
constexpr std::string_view kLabelExtension = ".LBL";

// Blanks and control bytes, and what Windows keeps out of file names.
bool BecomesDash(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte <= 0x20 || byte == 0x7F || std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
}

// Only the suffix has its blanks trimmed. A blank at position 11 stays, because it separates the suffix from
// the part number.
std::string_view WithoutSuffixBlanks(std::string_view name) {
    for (std::size_t position = kSuffixEnd; position-- > kSuffixStart;)
        if (name.size() == position + 1 && name.back() == ' ') name.remove_suffix(1);
    return name;
}

std::string_view Part(std::string_view stem, std::size_t position) {
    return position < stem.size() ? stem.substr(position, 3) : std::string_view{};
}

bool HasLetterOrDigitAt(std::string_view stem, std::size_t position) {
    return position < stem.size() && IsLetterOrDigit(stem[position]);
}

}  // namespace

bool IsLetterOrDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

char UpperCaseOf(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string ScalingFileNameOf(std::string_view moduleName) {
    std::string key(WithoutSuffixBlanks(moduleName.substr(0, kMaxNameLength)));
    std::ranges::replace_if(key, BecomesDash, '-');
    if (const auto dot = key.find('.', 1); dot != std::string::npos) key.resize(dot);
    key += kScalingExtension;
    return key;
}

std::string_view KeyStemOf(std::string_view scalingFileName) {
    if (scalingFileName.ends_with(kScalingExtension)) scalingFileName.remove_suffix(kScalingExtension.size());
    return scalingFileName;
}

std::string LabelFileNameOf(std::string_view keyStem, LabelForm form) {
    std::string name;
    name += Part(keyStem, 0);
    name += '-';
    name += Part(keyStem, 4);
    name += '-';
    name += Part(keyStem, 8);
    if (form == LabelForm::Full) {
        if (HasLetterOrDigitAt(keyStem, kSuffixStart)) name += '-';
        for (std::size_t position = kSuffixStart; position < kSuffixEnd; ++position)
            if (HasLetterOrDigitAt(keyStem, position)) name += keyStem[position];
    }
    name += kLabelExtension;
    return name;
}

std::string ModuleSuffixOf(std::string_view keyStem) {
    std::string suffix;
    for (std::size_t position = kSuffixStart; position < kSuffixEnd; ++position) {
        if (!HasLetterOrDigitAt(keyStem, position)) break;
        suffix += UpperCaseOf(keyStem[position]);
    }
    return suffix;
}

}  // namespace plotvane

#include "logs/LabelFile.h"

#include <algorithm>
#include <optional>

#include "base/FileName.h"
#include "base/Numbers.h"

namespace plotvane {
namespace {

constexpr std::size_t kMaxGroupDigits = 3;
constexpr std::size_t kMaxKeywordLength = 8;
constexpr std::size_t kMaxTargetLength = 19;
constexpr std::size_t kMaxSuffixLength = 4;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsTargetCharacter(char c) {
    return IsLetterOrDigit(c) || c == '-' || c == '.';
}

bool IsComment(std::string_view line) {
    return line.empty() || line.front() == ';';
}

// Takes as many such characters as follow, at most `limit`; possibly none.
template <typename Predicate>
std::string_view TakeRun(std::string_view& rest, Predicate isMember, std::size_t limit) {
    const auto end = std::ranges::find_if_not(rest.substr(0, limit), isMember);
    const auto run = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(run.size());
    return run;
}

bool TakeComma(std::string_view& rest) {
    if (!rest.starts_with(',')) return false;
    rest.remove_prefix(1);
    return true;
}

// Takes the text before the next comma, comment or line end.
std::string_view TakeText(std::string_view& rest) {
    const auto text = rest.substr(0, rest.find_first_of(",;"));
    rest.remove_prefix(text.size());
    return text;
}

bool EqualsInUpperCase(std::string_view text, std::string_view upperCase) {
    return std::ranges::equal(text, upperCase, {}, UpperCaseOf);
}

// Whether one of the comma-separated suffixes is the module's.
bool ListsSuffix(std::string_view list, std::string_view moduleSuffix) {
    for (;;) {
        const auto item = TakeRun(list, IsLetterOrDigit, kMaxSuffixLength);
        const bool tooLong = !list.empty() && IsLetterOrDigit(list.front());
        // An empty item has a comma on either side. The end of the list is not an item; otherwise every list
        // would name the modules without a suffix. A ";" ends the list, as it ends every other line.
        const bool missing = item.empty() && !list.starts_with(',');
        if (!tooLong && !missing && EqualsInUpperCase(item, moduleSuffix)) return true;
        TakeText(list);
        if (!TakeComma(list)) return false;
    }
}

// False, with an empty table, if the file cannot be read. If the rest is no longer wanted, the table holds
// what was read until then.
bool ReadLabels(const std::filesystem::path& path, std::string& line, LabelTable& table, ReadWatch* watch) {
    TextInput input(path, watch);
    const bool exists = input.IsOpen();
    while (ReadLabelLine(input, line)) ParseLabelLine(line, table);
    if (input.HasFailed()) table.Reset();
    return exists && !input.HasFailed();
}

// The file of the module's part number, or the one to which that sends the module. A device has no labels,
// and opening one could block for ever.
std::optional<std::filesystem::path> FindSharedFile(const std::filesystem::path& labelsFolder,
                                                    std::string_view keyStem, std::string& line,
                                                    ReadWatch* watch) {
    const auto path = BuildLabelPath(labelsFolder, keyStem, LabelForm::Short);
    TextInput input(path, watch);
    const std::string suffix = ModuleSuffixOf(keyStem);
    while (ReadLabelLine(input, line)) {
        const auto target = RedirectTargetOf(line, suffix);
        if (!target) continue;
        if (!IsSafeFileName(*target)) return std::nullopt;
        return labelsFolder / PathFromText(*target);
    }
    // The part that could not be read might have redirected the module. A file is not open if it is missing
    // or if its rest is no longer wanted.
    if (input.HasFailed() || !input.IsOpen()) return std::nullopt;
    return path;
}

}  // namespace

void LoadLabels(const std::filesystem::path& labelsFolder, std::string_view keyStem, LabelTable& table,
                ReadWatch* watch) {
    table.Reset();
    std::string line;
    const auto ownPath = BuildLabelPath(labelsFolder, keyStem, LabelForm::Full);
    // A module without a suffix has no file of its own. The part number's file serves it, with its redirects.
    if (ownPath != BuildLabelPath(labelsFolder, keyStem, LabelForm::Short)) {
        if (ReadLabels(ownPath, line, table, watch)) return;
    }
    if (const auto sharedPath = FindSharedFile(labelsFolder, keyStem, line, watch)) {
        ReadLabels(*sharedPath, line, table, watch);
    }
}

std::filesystem::path BuildLabelPath(const std::filesystem::path& labelsFolder, std::string_view keyStem,
                                     LabelForm form) {
    return labelsFolder / PathFromText(LabelFileNameOf(keyStem, form));
}

void ParseLabelLine(std::string_view line, LabelTable& table) {
    if (IsComment(line)) return;
    const auto group = TakeRun(line, IsDigit, kMaxGroupDigits);
    if (group.empty() || !TakeComma(line)) return;
    const auto field = TakeRun(line, IsDigit, 1);
    if (field.empty() || !TakeComma(line)) return;
    const auto name = TakeText(line);
    const auto secondText = TakeComma(line) ? TakeText(line) : std::string_view{};
    if (ParseDecimal(field) == 0)
        table.SetGroupTitle(ParseDecimal(group), name);
    else
        table.SetField(ParseDecimal(group), ParseDecimal(field), name, secondText);
}

bool ReadLabelLine(TextInput& input, std::string& line) {
    line.clear();
    for (;;) {
        const int c = input.Get();
        if (c == TextInput::kEnd) return false;
        if (c == '\n') return true;
        if (line.size() < kMaxLabelLineLength) line += static_cast<char>(c);
    }
}

std::optional<std::string_view> RedirectTargetOf(std::string_view line, std::string_view moduleSuffix) {
    if (IsComment(line)) return std::nullopt;
    const auto keyword = TakeRun(line, IsLetterOrDigit, kMaxKeywordLength);
    if (!EqualsInUpperCase(keyword, "REDIRECT") || !TakeComma(line)) return std::nullopt;
    const auto target = TakeRun(line, IsTargetCharacter, kMaxTargetLength);
    if (!TakeComma(line) || !ListsSuffix(line, moduleSuffix)) return std::nullopt;
    return target;
}

}  // namespace plotvane

#include <optional>
#include <string>
#include <vector>

#include "base/FileName.h"
#include "fuzz/Inputs.h"
#include "fuzz/Targets.h"
#include "logs/LabelFile.h"
#include "logs/ModuleKey.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"

namespace plotvane::fuzz {

using test::Require;
using test::ScratchFile;
using test::ScratchPath;

namespace {

constexpr int kLastGroup = 255;
constexpr int kLastField = 4;

std::vector<std::string> LinesOf(std::string_view bytes) {
    const std::string text = TextOfFile(bytes);
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', begin)) {
        lines.push_back(text.substr(begin, std::min(end - begin, kMaxLabelLineLength)));
        begin = end + 1;
    }
    return lines;  // a last line without a line end does not count
}

void RequireText(const std::string& text, std::size_t longest) {
    Require(text.size() <= longest, "a label is not too long");
    Require(text.find_first_of(",;\n") == std::string::npos, "a label ends at a comma, comment or line end");
}

void RequireSaneLabels(const LabelTable& table) {
    for (int group = 1; group <= kLastGroup; ++group) {
        RequireText(table.GroupTitle(group), LabelTable::kMaxNameLength);
        for (int field = 1; field <= kLastField; ++field) {
            RequireText(table.FieldName(group, field), LabelTable::kMaxNameLength);
            RequireText(table.FieldSecondText(group, field), LabelTable::kMaxSecondTextLength);
        }
    }
    for (const int group : {-99, -1, 0, 256, 999}) {
        for (int field = -1; field <= 9; ++field) {
            Require(table.GroupTitle(group).empty() && table.FieldName(group, field).empty() &&
                        table.FieldSecondText(group, field).empty(),
                    "groups outside 1..255 have no labels");
        }
    }
}

void RequireEqual(const LabelTable& a, const LabelTable& b, const char* promise) {
    for (int group = 1; group <= kLastGroup; ++group) {
        Require(a.GroupTitle(group) == b.GroupTitle(group), promise);
        for (int field = 1; field <= kLastField; ++field) {
            Require(a.FieldName(group, field) == b.FieldName(group, field) &&
                        a.FieldSecondText(group, field) == b.FieldSecondText(group, field),
                    promise);
        }
    }
}

// The file to which the shared file redirects the module; nothing if there is no redirect for it.
std::optional<std::string> TargetOf(std::string_view sharedFile, std::string_view suffix) {
    for (const std::string& line : LinesOf(sharedFile)) {
        const auto target = RedirectTargetOf(line, suffix);
        if (!target) continue;
        Require(target->size() <= 19 && target->find_first_of("\\/:") == std::string_view::npos,
                "a redirect stays in its folder");
        return std::string(*target);
    }
    return std::nullopt;
}

bool IsSameFile(std::string_view a, std::string_view b) {
    return PathFromText(a) == PathFromText(b);
}

}  // namespace

// Four parts: the module's name, its own label file, the label file of its part number, and the file that a
// redirect in the latter names. A file with an empty part does not exist.
int FuzzLabels(Bytes input) {
    std::string_view rest = AsText(input);
    const std::string key = ScalingFileNameOf(TakePart(rest));
    const std::string_view stem = KeyStemOf(key);
    const std::string_view own = TakePart(rest);
    const std::string_view shared = TakePart(rest);
    const std::string_view elsewhere = TakePart(rest);

    const std::string ownName = LabelFileNameOf(stem, LabelForm::Full);
    const std::string sharedName = LabelFileNameOf(stem, LabelForm::Short);
    const auto target = TargetOf(shared, ModuleSuffixOf(stem));

    std::optional<ScratchFile> ownFile;
    std::optional<ScratchFile> sharedFile;
    std::optional<ScratchFile> targetFile;
    const bool hasOwn = !own.empty() && !IsSameFile(ownName, sharedName);
    if (hasOwn) ownFile.emplace(PathFromText(ownName), own);
    if (!shared.empty()) sharedFile.emplace(PathFromText(sharedName), shared);
    const bool hasTarget = target && !elsewhere.empty() && IsSafeFileName(*target) &&
                           !IsSameFile(*target, ownName) && !IsSameFile(*target, sharedName);
    if (hasTarget) targetFile.emplace(PathFromText(*target), elsewhere);

    std::string_view used = shared;
    if (hasOwn) {
        used = own;
    } else if (target) {
        used = hasTarget ? elsewhere : IsSameFile(*target, sharedName) ? shared : std::string_view{};
    }
    LabelTable expected;
    for (const std::string& line : LinesOf(used)) ParseLabelLine(line, expected);
    RequireSaneLabels(expected);

    LabelTable table;
    table.SetGroupTitle(7, "of the module before");
    LoadLabels(ScratchPath(), stem, table);
    RequireEqual(table, expected, "the labels are those of the file for the module");
    return 0;
}

}  // namespace plotvane::fuzz

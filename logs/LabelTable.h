#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plotvane {

// The names of a module's measuring groups 1..255 and of their four fields, as its label file gives them
// (Windows-1252). After a reset all texts are empty.
class LabelTable {
public:
    static constexpr std::size_t kMaxNameLength = 128;
    static constexpr std::size_t kMaxSecondTextLength = 32;

    LabelTable() : m_texts(static_cast<std::size_t>(kGroups * kTexts)) {}

    void Reset();

    // Fields count from 1, as in the label file; a record's field digit is one less. Any number is allowed:
    // outside 1..255 and 1..4 the text is empty.
    const std::string& GroupTitle(int group) const { return Text(group, 0); }
    const std::string& FieldName(int group, int field) const;
    const std::string& FieldSecondText(int group, int field) const;

    // Set texts, cut to their maximum lengths. Numbers out of range are ignored.
    void SetGroupTitle(int group, std::string_view title);
    void SetField(int group, int field, std::string_view name, std::string_view secondText);

private:
    static constexpr int kGroups = 255;
    static constexpr int kFields = 4;
    static constexpr int kTexts = 1 + 2 * kFields;  // of a group: title, names, second texts

    static bool IsGroup(int group) { return group >= 1 && group <= kGroups; }
    static bool IsField(int field) { return field >= 1 && field <= kFields; }
    static std::size_t IndexOf(int group, int text);

    const std::string& Text(int group, int text) const;

    std::vector<std::string> m_texts;
};

}  // namespace plotvane

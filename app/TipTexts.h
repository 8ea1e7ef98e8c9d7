#pragma once

#include <string>

#include "link/ProgramData.h"
#include "logs/LabelTable.h"

namespace plotvane {

// The texts of the tips over the controls of the main dialog. The tip of a button says what it does and by
// which key; that of a slot or channel gives its names, its numbers and its range.
class TipTexts {
public:
    // Gives a text of the string table (res/resource.h) by its id.
    using LoadText = std::string (*)(unsigned id);

    // Both must outlive this object.
    TipTexts(const ProgramData& data, const LabelTable& labels, LoadText load)
        : m_data(data), m_labels(labels), m_load(load) {}

    // The tip of the control with that id, in lines that end in '\n' but for the last; empty if it has none.
    std::string Of(int control) const;

private:
    std::string OfButton(int control) const;
    std::string OfSlot(int slot) const;
    std::string OfChannel(int channel) const;
    std::string NamesOf(const FieldSlot& field) const;
    std::string NumbersOf(const FieldSlot& field) const;
    std::string RangeText(int lowest, int highest, const std::string& unit) const;

    const ProgramData& m_data;
    const LabelTable& m_labels;
    LoadText m_load;
};

}  // namespace plotvane

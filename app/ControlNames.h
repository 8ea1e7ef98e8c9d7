#pragma once

#include <functional>
#include <span>
#include <string>
#include <utility>

#include "app/TipTexts.h"
#include "plot/binding/SlotSelection.h"

namespace plotvane {

// The controls that the template of the main dialog makes and whose own text does not say, or does not say
// well, what they are for. Those that have an object of their own (value boxes, swatches, chart) are not
// among them.
std::span<const int> NamelessControls();

// What screen readers call the controls of the main dialog, in Windows-1252.
class ControlNames {
public:
    // Gives the text that a control shows, by the control's id.
    using TextOf = std::function<std::string(int control)>;

    // `tips` and `selection` must outlive this object. `load` gives a text of the string table by its id.
    ControlNames(const TipTexts& tips, const SlotSelection& selection, TipTexts::LoadText load, TextOf textOf)
        : m_tips(tips), m_selection(selection), m_load(load), m_textOf(std::move(textOf)) {}

    // The purpose of a control and, where several have the same, its place: "Draw this value, B2". A value
    // box is called by the name of its field as long as there is one. Empty if the control's own text will
    // do.
    std::string Of(int control) const;

private:
    std::string PurposeOf(int control) const;
    std::string PlaceOf(int control) const;
    std::string ValueOf(int box) const;

    const TipTexts& m_tips;
    const SlotSelection& m_selection;
    const TipTexts::LoadText m_load;
    const TextOf m_textOf;
};

}  // namespace plotvane

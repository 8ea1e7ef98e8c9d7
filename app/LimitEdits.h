#pragma once

#include "framework/Wnd.h"
#include "plot/binding/SlotSelection.h"
#include "scaling/ModuleScaling.h"

namespace plotvane {

// The edits Max and Min of the box "Vertical scale", and what is being typed there.
class LimitEdits {
public:
    // Both must outlive this object.
    LimitEdits(CWnd& dialog, SlotSelection& selection) : m_dialog(dialog), m_selection(selection) {}

    // The one with the focus, by its id; 0 for none.
    int WithFocus() const;

    // Takes the number that stands in an edit, as leaving the edit does.
    void Take(int id);

    // Puts the number back that the edits had before somebody began to type.
    void PutBack();

    // Selects the text, so that the next number typed takes its place.
    void SelectText(int id) const { m_dialog.SendDlgItemMessage(id, EM_SETSEL, 0, -1); }

    // Puts both limits in as if they were typed. Does nothing while no limit can be typed.
    void Type(const ScaleRange& limits);

private:
    void Type(int id, int limit);

    CWnd& m_dialog;
    SlotSelection& m_selection;
};

}  // namespace plotvane

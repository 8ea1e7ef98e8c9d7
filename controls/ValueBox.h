#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "framework/Dc.h"
#include "framework/Gdi.h"
#include "framework/NamedControl.h"

namespace plotvane {

// A read-only edit of one line, centred or left-aligned, whose text the program changes with every sample. It
// draws its text itself and at once, because in twelve edits new texts would be by far the most expensive
// part of a sample. It draws straight into the window, so that Windows can draw the letters in the density of
// the screen. It looks like the edit that it replaces, and behaves like it: before the user or another
// program reads or selects the text, the edit gets it.
class CValueBox : public CNamedControl {
public:
    // Takes over the edit and its text.
    void TakeOver(HWND edit);

    // Windows-1252. If the box shows the text already, this costs a comparison. A text wider than the box
    // loses its end.
    void Show(std::string_view text);

    // The same in two steps, for several boxes at once: each takes its text, and those that then have
    // something to draw do it on one device context, which is all but the cheapest part. It is one of the
    // parent's client area with the child windows in it.
    void Take(std::string_view text);
    bool HasToDraw() const { return m_isDrawingDue; }
    void DrawOnParent(CDC& parent);

private:
    // What the edit knows of its looks; asked once, because each answer costs as much as drawing the text.
    struct Look {
        explicit Look(HWND edit);

        HFONT font;  // not owned
        CRect textPlace;
        POINT originOnParent{0, 0};
        bool isCentred;
    };

    LRESULT OnTextWanted(WPARAM, LPARAM);
    LRESULT OnTextSet(WPARAM, LPARAM);
    LRESULT OnFocus(WPARAM, LPARAM);
    LRESULT OnFocusLost(WPARAM, LPARAM);
    LRESULT OnLookChanged(WPARAM, LPARAM);
    void OnPaint();

    bool DrawsItself() const;
    const Look& ItsLook();
    void DrawText(CDC& dc, POINT origin);
    void UpdateEdit();
    void TellScreenReaders() const;
    DECLARE_MESSAGE_MAP()

    std::string m_text;
    bool m_isEditBehind = false;  // the edit still has an earlier text than the one on the screen
    bool m_isDrawingDue = false;  // the screen still has an earlier text
    bool m_hasFocus = false;
    std::optional<Look> m_look;
};

}  // namespace plotvane

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "framework/Dc.h"
#include "framework/Gdi.h"
#include "framework/Wnd.h"

namespace plotvane {

// A read-only edit of one line, centred or from the left, that the program writes into with every sample. It
// draws its text itself, and at once: left to the edit, new texts in twelve boxes are by far the most
// expensive part of a sample. It looks the same, and to everybody else (the user who selects and copies,
// programs that read the screen aloud) it is the edit that it was: who asks it for more than its picture
// finds the text in it.
class CValueBox : public CWnd {
public:
    // Takes over the edit and its text.
    void TakeOver(HWND edit);

    // Windows-1252. Costs a comparison where it is shown already. A text wider than the box loses its end.
    void Show(std::string_view text);

private:
    // The text off-screen and the way onto the window. Both are kept: to choose the font into a device
    // context, or to get one for the window, costs more than to draw the text.
    struct Surface {
        explicit Surface(HWND edit);
        void Write(std::string_view text);

        CClientDC window;
        Picture picture;
        CDC dc;
        Selected fontInDc;
        CRect textPlace;  // its line of text; one that is wider begins at the left and loses its end
        bool isCentred;
    };

    LRESULT OnTextWanted(WPARAM, LPARAM);
    LRESULT OnTextSet(WPARAM, LPARAM);
    LRESULT OnFocus(WPARAM, LPARAM);
    LRESULT OnFocusLost(WPARAM, LPARAM);
    LRESULT OnLookChanged(WPARAM, LPARAM);
    void OnDestroy();
    void OnPaint();

    bool DrawsItself() const;
    Surface& Written();
    void CopyTo(CDC& dc) const;
    void UpdateEdit();
    DECLARE_MESSAGE_MAP()

    std::string m_text;
    bool m_isEditBehind = false;  // the edit has another text than the one that is shown
    bool m_hasFocus = false;
    std::optional<Surface> m_surface;
};

}  // namespace plotvane

#include "controls/ValueBox.h"

#include <algorithm>

namespace plotvane {

BEGIN_MESSAGE_MAP(CValueBox, CWnd)
    ON_WM_DESTROY()
    ON_WM_PAINT()
    // Whoever asks for the text, and what the user selects and copies it with.
    ON_MESSAGE(WM_GETTEXT, OnTextWanted)
    ON_MESSAGE(WM_GETTEXTLENGTH, OnTextWanted)
    ON_MESSAGE(WM_COPY, OnTextWanted)
    ON_MESSAGE(WM_CONTEXTMENU, OnTextWanted)
    ON_MESSAGE(WM_LBUTTONDOWN, OnTextWanted)
    ON_MESSAGE(WM_LBUTTONDBLCLK, OnTextWanted)
    ON_MESSAGE(WM_PRINTCLIENT, OnTextWanted)
    ON_MESSAGE(EM_SETSEL, OnTextWanted)
    ON_MESSAGE(EM_GETLINE, OnTextWanted)
    ON_MESSAGE(EM_LINELENGTH, OnTextWanted)
    ON_MESSAGE(WM_SETTEXT, OnTextSet)
    ON_MESSAGE(WM_SETFOCUS, OnFocus)
    ON_MESSAGE(WM_KILLFOCUS, OnFocusLost)
    ON_MESSAGE(WM_SETFONT, OnLookChanged)
    ON_MESSAGE(WM_SIZE, OnLookChanged)
END_MESSAGE_MAP()

CValueBox::Surface::Surface(HWND edit)
    : window(edit),
      picture([&] {
          CRect client;
          ::GetClientRect(edit, &client);
          return Picture(client.Width(), client.Height());
      }()),
      dc(picture.Dc()),
      fontInDc(dc, reinterpret_cast<HFONT>(::SendMessageW(edit, WM_GETFONT, 0, 0))),
      isCentred((::GetWindowLongPtrW(edit, GWL_STYLE) & ES_CENTER) != 0) {
    ::SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(static_cast<RECT*>(&textPlace)));
}

// In the colours of a read-only edit in a dialog.
void CValueBox::Surface::Write(std::string_view text) {
    dc.FillSolidRect(CRect{0, 0, picture.Width(), picture.Height()}, ::GetSysColor(COLOR_3DFACE));
    dc.SetTextColor(::GetSysColor(COLOR_WINDOWTEXT));
    const int room = isCentred ? textPlace.Width() - dc.GetTextExtent(text).cx : 0;
    dc.TextOutClipped(textPlace.left + std::max(room, 0) / 2, textPlace.top, textPlace, text);
}

void CValueBox::TakeOver(HWND edit) {
    if (Attach(edit)) m_text = GetWindowText();
}

void CValueBox::Show(std::string_view text) {
    if (text == m_text) return;
    m_text = text;
    m_isEditBehind = true;
    if (!m_hWnd) return;
    if (!DrawsItself()) return UpdateEdit();
    CopyTo(Written().window);
}

void CValueBox::UpdateEdit() {
    if (!m_isEditBehind) return;
    m_isEditBehind = false;
    SetWindowText(m_text);
}

LRESULT CValueBox::OnTextWanted(WPARAM, LPARAM) {
    UpdateEdit();
    return Default();
}

LRESULT CValueBox::OnTextSet(WPARAM, LPARAM) {
    m_isEditBehind = false;
    const LRESULT result = Default();
    m_text = GetWindowText();
    return result;
}

// The parent may move the focus on from within the default processing.
LRESULT CValueBox::OnFocus(WPARAM, LPARAM) {
    UpdateEdit();
    m_hasFocus = true;
    return Default();
}

LRESULT CValueBox::OnFocusLost(WPARAM, LPARAM) {
    m_hasFocus = false;
    return Default();
}

LRESULT CValueBox::OnLookChanged(WPARAM, LPARAM) {
    m_surface.reset();
    return Default();
}

void CValueBox::OnDestroy() {
    m_surface.reset();
    CWnd::OnDestroy();
}

void CValueBox::OnPaint() {
    // A box that has had no text yet needs no surface to draw on: at the start none has.
    if (!DrawsItself() || (m_text.empty() && !m_surface)) {
        UpdateEdit();
        Default();
        return;
    }
    Written();
    CPaintDC dc(m_hWnd);
    CopyTo(dc);
}

// What an edit looks like that is disabled, or in which text is selected, it knows best.
bool CValueBox::DrawsItself() const {
    return !m_hasFocus && ::IsWindowEnabled(m_hWnd);
}

CValueBox::Surface& CValueBox::Written() {
    if (!m_surface) m_surface.emplace(m_hWnd);
    m_surface->Write(m_text);
    return *m_surface;
}

void CValueBox::CopyTo(CDC& dc) const {
    const Picture& picture = m_surface->picture;
    dc.BitBlt(0, 0, picture.Width(), picture.Height(), picture.Dc(), 0, 0, SRCCOPY);
}

}  // namespace plotvane

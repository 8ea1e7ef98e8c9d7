#include "controls/ValueBox.h"

#include <algorithm>

namespace plotvane {

BEGIN_MESSAGE_MAP(CValueBox, CNamedControl)
    ON_WM_PAINT()
    // Messages that read, select, copy or measure the text.
    ON_MESSAGE(WM_GETTEXT, OnTextWanted)
    ON_MESSAGE(WM_GETTEXTLENGTH, OnTextWanted)
    ON_MESSAGE(WM_COPY, OnTextWanted)
    ON_MESSAGE(WM_CONTEXTMENU, OnTextWanted)
    ON_MESSAGE(WM_LBUTTONDOWN, OnTextWanted)
    ON_MESSAGE(WM_LBUTTONDBLCLK, OnTextWanted)
    ON_MESSAGE(WM_PRINTCLIENT, OnTextWanted)
    ON_MESSAGE(EM_SETSEL, OnTextWanted)
    ON_MESSAGE(EM_GETSEL, OnTextWanted)
    ON_MESSAGE(EM_GETLINE, OnTextWanted)
    ON_MESSAGE(EM_LINELENGTH, OnTextWanted)
    ON_MESSAGE(EM_LINEINDEX, OnTextWanted)
    ON_MESSAGE(EM_LINEFROMCHAR, OnTextWanted)
    ON_MESSAGE(EM_CHARFROMPOS, OnTextWanted)
    ON_MESSAGE(EM_POSFROMCHAR, OnTextWanted)
    ON_MESSAGE(WM_SETTEXT, OnTextSet)
    ON_MESSAGE(WM_SETFOCUS, OnFocus)
    ON_MESSAGE(WM_KILLFOCUS, OnFocusLost)
    ON_MESSAGE(WM_SETFONT, OnLookChanged)
    ON_MESSAGE(WM_SIZE, OnLookChanged)
    ON_MESSAGE(WM_MOVE, OnLookChanged)
END_MESSAGE_MAP()

CValueBox::Look::Look(HWND edit)
    : font(reinterpret_cast<HFONT>(::SendMessageW(edit, WM_GETFONT, 0, 0))),
      isCentred((::GetWindowLongPtrW(edit, GWL_STYLE) & ES_CENTER) != 0) {
    ::SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(static_cast<RECT*>(&textPlace)));
    ::MapWindowPoints(edit, ::GetParent(edit), &originOnParent, 1);
}

void CValueBox::TakeOver(HWND edit) {
    if (Attach(edit)) m_text = GetWindowText();
}

void CValueBox::Show(std::string_view text) {
    Take(text);
    if (!HasToDraw()) return;
    CDialogDC parent(::GetParent(m_hWnd));
    DrawOnParent(parent);
}

void CValueBox::Take(std::string_view text) {
    if (text == m_text) return;
    m_text = text;
    m_isEditBehind = true;
    m_isDrawingDue = m_hWnd && DrawsItself();
    if (m_hWnd && !m_isDrawingDue) UpdateEdit();
}

void CValueBox::DrawOnParent(CDC& parent) {
    m_isDrawingDue = false;
    if (!m_hWnd || !DrawsItself()) return;
    if (::IsWindowVisible(m_hWnd)) DrawText(parent, ItsLook().originOnParent);
    TellScreenReaders();
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
    m_isDrawingDue = false;
    const LRESULT result = Default();
    m_text = GetWindowText();
    return result;
}

// The edit says it itself when it gets a text.
void CValueBox::TellScreenReaders() const {
    ::NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, m_hWnd, OBJID_CLIENT, CHILDID_SELF);
}

// During the default processing the parent may move the focus on.
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
    m_look.reset();
    return Default();
}

void CValueBox::OnPaint() {
    if (!DrawsItself()) {
        UpdateEdit();
        Default();
        return;
    }
    CPaintDC dc(m_hWnd);
    dc.FillSolidRect(GetClientRect(), ::GetSysColor(COLOR_3DFACE));
    DrawText(dc, {0, 0});
}

// The edit itself draws what it looks like while it is disabled or has selected text.
bool CValueBox::DrawsItself() const {
    return !m_hasFocus && ::IsWindowEnabled(m_hWnd);
}

const CValueBox::Look& CValueBox::ItsLook() {
    if (!m_look) m_look.emplace(m_hWnd);
    return *m_look;
}

// In the colours of a read-only edit in a dialog. The text and its background are one call, which cannot
// flicker.
void CValueBox::DrawText(CDC& dc, POINT origin) {
    const Look& look = ItsLook();
    // Boxes on one device context share the font, and choosing it takes longer than drawing a text. Windows
    // puts the former one back when it gets the device context back.
    if (::GetCurrentObject(dc, OBJ_FONT) != look.font) ::SelectObject(dc, look.font);
    dc.SetTextColor(::GetSysColor(COLOR_WINDOWTEXT));
    dc.SetBkColor(::GetSysColor(COLOR_3DFACE));
    CRect place = look.textPlace;
    ::OffsetRect(&place, origin.x, origin.y);
    const int room = look.isCentred ? place.Width() - dc.GetTextExtent(m_text).cx : 0;
    dc.TextOutOpaque(place.left + std::max(room, 0) / 2, place.top, place, m_text);
}

}  // namespace plotvane

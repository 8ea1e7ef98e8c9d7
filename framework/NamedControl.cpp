#include "framework/NamedControl.h"

#include "framework/NamedObject.h"
#include "framework/Text.h"

BEGIN_MESSAGE_MAP(CNamedControl, CWnd)
    ON_MESSAGE(WM_GETOBJECT, OnGetObject)
END_MESSAGE_MAP()

std::string CNamedControl::AccessibleName() const {
    const CWnd* const parent = FromHandle(::GetParent(m_hWnd));
    return parent ? parent->AccessibleNameOf(::GetDlgCtrlID(m_hWnd)) : std::string();
}

LRESULT CNamedControl::OnGetObject(WPARAM flags, LPARAM object) {
    if (static_cast<DWORD>(object) != static_cast<DWORD>(OBJID_CLIENT)) return Default();
    const std::string name = AccessibleName();
    const LRESULT answer = name.empty() ? 0 : AnswerWithName(m_hWnd, flags, ToWide(name));
    return answer != 0 ? answer : Default();
}

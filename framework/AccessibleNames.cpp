#include "framework/AccessibleNames.h"

#include <utility>

#include "framework/NamedObject.h"
#include "framework/Text.h"

// A control that answers for its name itself.
class AccessibleNames::Control : public CWnd {
public:
    explicit Control(const NameOf& nameOf) : m_nameOf(nameOf) {}

private:
    LRESULT OnGetObject(WPARAM flags, LPARAM object) {
        if (static_cast<DWORD>(object) != static_cast<DWORD>(OBJID_CLIENT)) return Default();
        const std::string name = m_nameOf(::GetDlgCtrlID(m_hWnd));
        const LRESULT answer = name.empty() ? 0 : AnswerWithName(m_hWnd, flags, ToWide(name));
        return answer != 0 ? answer : Default();
    }
    DECLARE_MESSAGE_MAP()

    const NameOf& m_nameOf;
};

BEGIN_MESSAGE_MAP(AccessibleNames::Control, CWnd)
    ON_MESSAGE(WM_GETOBJECT, OnGetObject)
END_MESSAGE_MAP()

AccessibleNames::AccessibleNames(NameOf nameOf) : m_nameOf(std::move(nameOf)) {}

AccessibleNames::~AccessibleNames() = default;

void AccessibleNames::Give(const CWnd& dialog, std::span<const int> controls) {
    for (const int id : controls) {
        auto control = std::make_unique<Control>(m_nameOf);
        if (control->Attach(dialog.GetDlgItem(id))) m_controls.push_back(std::move(control));
    }
}

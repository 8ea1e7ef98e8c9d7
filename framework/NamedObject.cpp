#include "framework/NamedObject.h"

#include <ole2.h>
#include <oleacc.h>

#include <utility>

#include "framework/SystemLibrary.h"

namespace {

// What this needs of three libraries. They are loaded when somebody first asks, and stay.
struct Api {
    SystemLibrary ole{L"ole32.dll"};
    SystemLibrary automation{L"oleaut32.dll"};
    SystemLibrary accessibility{L"oleacc.dll"};

    decltype(&::CreateStdAccessibleObject) createStandard =
        accessibility.Function<std::remove_pointer_t<decltype(&::CreateStdAccessibleObject)>>(
            "CreateStdAccessibleObject");
    decltype(&::LresultFromObject) answerWith =
        accessibility.Function<std::remove_pointer_t<decltype(&::LresultFromObject)>>("LresultFromObject");
    decltype(&::SysAllocStringLen) makeText =
        automation.Function<std::remove_pointer_t<decltype(&::SysAllocStringLen)>>("SysAllocStringLen");
    decltype(&::CoInitializeEx) initialize =
        ole.Function<std::remove_pointer_t<decltype(&::CoInitializeEx)>>("CoInitializeEx");

    bool IsWhole() const { return createStandard && answerWith && makeText && initialize; }
};

// Objects go from here to other processes, which a thread has to be prepared for once.
const Api& TheApi() {
    static const Api* const api = [] {
        auto* const made = new Api;
        if (made->IsWhole()) made->initialize(nullptr, COINIT_APARTMENTTHREADED);
        return made;
    }();
    return *api;
}

// Asks the system's object for everything but the name.
class NamedObject final : public IAccessible {
public:
    // Takes over one reference to the inner object.
    NamedObject(IAccessible* inner, std::wstring name) : m_inner(inner), m_name(std::move(name)) {}
    NamedObject(const NamedObject&) = delete;
    NamedObject& operator=(const NamedObject&) = delete;

    // IUnknown.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch) && id != __uuidof(IAccessible))
            return E_NOINTERFACE;
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++m_references); }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = --m_references;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    // IDispatch.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        return m_inner->GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** info) override {
        return m_inner->GetTypeInfo(index, language, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID language,
                                            DISPID* numbers) override {
        return m_inner->GetIDsOfNames(id, names, count, language, numbers);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID id, LCID language, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argument) override {
        return m_inner->Invoke(number, id, language, flags, parameters, result, exception, argument);
    }

    // IAccessible.
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        if (child.vt != VT_I4 || child.lVal != CHILDID_SELF) return m_inner->get_accName(child, name);
        *name = TheApi().makeText(m_name.data(), static_cast<UINT>(m_name.size()));
        return *name ? S_OK : E_OUTOFMEMORY;
    }
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        return m_inner->get_accParent(parent);
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        return m_inner->get_accChildCount(count);
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override {
        return m_inner->get_accChild(child, object);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return m_inner->get_accValue(child, value);
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* text) override {
        return m_inner->get_accDescription(child, text);
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return m_inner->get_accRole(child, role);
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        return m_inner->get_accState(child, state);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* text) override {
        return m_inner->get_accHelp(child, text);
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
        return m_inner->get_accHelpTopic(file, child, topic);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* key) override {
        return m_inner->get_accKeyboardShortcut(child, key);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override { return m_inner->get_accFocus(child); }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        return m_inner->get_accSelection(children);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return m_inner->get_accDefaultAction(child, action);
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
        return m_inner->accSelect(flags, child);
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override {
        return m_inner->accLocation(left, top, width, height, child);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        return m_inner->accNavigate(direction, start, end);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
        return m_inner->accHitTest(left, top, child);
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        return m_inner->accDoDefaultAction(child);
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override {
        return m_inner->put_accName(child, name);
    }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
        return m_inner->put_accValue(child, value);
    }

private:
    ~NamedObject() { m_inner->Release(); }

    IAccessible* const m_inner;
    const std::wstring m_name;
    LONG m_references = 1;  // all calls come on the window's thread
};

}  // namespace

LRESULT AnswerWithName(HWND window, WPARAM flags, const std::wstring& name) {
    const Api& api = TheApi();
    if (!api.IsWhole()) return 0;
    void* standard = nullptr;
    if (FAILED(api.createStandard(window, OBJID_CLIENT, __uuidof(IAccessible), &standard)) || !standard)
        return 0;
    auto* const named = new NamedObject(static_cast<IAccessible*>(standard), name);
    const LRESULT answer = api.answerWith(__uuidof(IAccessible), flags, named);
    named->Release();  // the answer holds one of its own
    return answer > 0 ? answer : 0;
}

#include "tests/support/system/ScreenReader.h"

#include <ole2.h>
#include <oleacc.h>

namespace plotvane::test {
namespace {

std::wstring TakeText(BSTR text) {
    const std::wstring taken = text ? std::wstring(text, ::SysStringLen(text)) : std::wstring();
    ::SysFreeString(text);
    return taken;
}

VARIANT Self() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

}  // namespace

ScreenReader::ScreenReader() {
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
}

ScreenReader::~ScreenReader() {
    ::CoUninitialize();
}

Spoken ScreenReader::Read(HWND window) const {
    Spoken spoken;
    void* found = nullptr;
    if (FAILED(::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                            &found)) ||
        !found) {
        return spoken;
    }
    auto* const object = static_cast<IAccessible*>(found);
    spoken.isThere = true;
    BSTR text = nullptr;
    if (object->get_accName(Self(), &text) == S_OK) spoken.name = TakeText(text);
    text = nullptr;
    if (object->get_accValue(Self(), &text) == S_OK) spoken.value = TakeText(text);
    VARIANT number{};
    if (object->get_accRole(Self(), &number) == S_OK && number.vt == VT_I4) spoken.role = number.lVal;
    if (object->get_accState(Self(), &number) == S_OK && number.vt == VT_I4) spoken.state = number.lVal;
    object->Release();
    return spoken;
}

}  // namespace plotvane::test

#include "Accessibility.h"

#include <oleacc.h>

namespace ui {

Told toldAbout(HWND window) {
    Told told;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    void* object = nullptr;
    VARIANT self{};
    self.vt = VT_I4;
    if (AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object) == S_OK) {
        auto* accessible = static_cast<IAccessible*>(object);
        BSTR name = nullptr;
        if (accessible->get_accName(self, &name) == S_OK && name)
            told.name = name;
        SysFreeString(name);
        VARIANT role{};
        accessible->get_accRole(self, &role);
        told.role = role.lVal;
        accessible->Release();
    }
    CoUninitialize();
    return told;
}

} // namespace ui

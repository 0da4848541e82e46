#include "StandardAccessible.h"

#include <objbase.h>

void StandardAccessible::disconnect() {
    m_standard.reset();
    ::CoDisconnectObject(this, 0);
}

template <class Question, class... Arguments>
HRESULT StandardAccessible::ask(Question question, Arguments&... arguments) {
    if (!m_standard)
        return CO_E_OBJNOTCONNECTED;
    // An action may end the window, and with it this object's own reference.
    m_standard->AddRef();
    const AccessibleHolder standard(m_standard.get());
    return (standard.get()->*question)(arguments...);
}

HRESULT StandardAccessible::QueryInterface(REFIID id, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch) && id != __uuidof(IAccessible))
        return E_NOINTERFACE;
    *object = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
}

ULONG StandardAccessible::AddRef() {
    return static_cast<ULONG>(::InterlockedIncrement(&m_references));
}

ULONG StandardAccessible::Release() {
    const LONG left = ::InterlockedDecrement(&m_references);
    if (left == 0)
        delete this;
    return static_cast<ULONG>(left);
}

HRESULT StandardAccessible::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT StandardAccessible::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return E_NOTIMPL;
}

HRESULT StandardAccessible::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return E_NOTIMPL;
}

HRESULT StandardAccessible::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
    return E_NOTIMPL;
}

HRESULT StandardAccessible::get_accParent(IDispatch** parent) {
    return ask(&IAccessible::get_accParent, parent);
}

HRESULT StandardAccessible::get_accChildCount(long* count) {
    return ask(&IAccessible::get_accChildCount, count);
}

HRESULT StandardAccessible::get_accChild(VARIANT child, IDispatch** object) {
    return ask(&IAccessible::get_accChild, child, object);
}

HRESULT StandardAccessible::get_accName(VARIANT child, BSTR* name) {
    return ask(&IAccessible::get_accName, child, name);
}

HRESULT StandardAccessible::get_accValue(VARIANT child, BSTR* value) {
    return ask(&IAccessible::get_accValue, child, value);
}

HRESULT StandardAccessible::get_accDescription(VARIANT child, BSTR* description) {
    return ask(&IAccessible::get_accDescription, child, description);
}

HRESULT StandardAccessible::get_accRole(VARIANT child, VARIANT* role) {
    return ask(&IAccessible::get_accRole, child, role);
}

HRESULT StandardAccessible::get_accState(VARIANT child, VARIANT* state) {
    return ask(&IAccessible::get_accState, child, state);
}

HRESULT StandardAccessible::get_accHelp(VARIANT child, BSTR* help) {
    return ask(&IAccessible::get_accHelp, child, help);
}

HRESULT StandardAccessible::get_accHelpTopic(BSTR* file, VARIANT child, long* topic) {
    return ask(&IAccessible::get_accHelpTopic, file, child, topic);
}

HRESULT StandardAccessible::get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) {
    return ask(&IAccessible::get_accKeyboardShortcut, child, shortcut);
}

HRESULT StandardAccessible::get_accFocus(VARIANT* child) {
    return ask(&IAccessible::get_accFocus, child);
}

HRESULT StandardAccessible::get_accSelection(VARIANT* children) {
    return ask(&IAccessible::get_accSelection, children);
}

HRESULT StandardAccessible::get_accDefaultAction(VARIANT child, BSTR* action) {
    return ask(&IAccessible::get_accDefaultAction, child, action);
}

HRESULT StandardAccessible::accSelect(long flags, VARIANT child) {
    return ask(&IAccessible::accSelect, flags, child);
}

HRESULT StandardAccessible::accLocation(long* left, long* top, long* width, long* height, VARIANT child) {
    return ask(&IAccessible::accLocation, left, top, width, height, child);
}

HRESULT StandardAccessible::accNavigate(long direction, VARIANT start, VARIANT* end) {
    return ask(&IAccessible::accNavigate, direction, start, end);
}

HRESULT StandardAccessible::accHitTest(long left, long top, VARIANT* child) {
    return ask(&IAccessible::accHitTest, left, top, child);
}

HRESULT StandardAccessible::accDoDefaultAction(VARIANT child) {
    return ask(&IAccessible::accDoDefaultAction, child);
}

HRESULT StandardAccessible::put_accName(VARIANT child, BSTR name) {
    return ask(&IAccessible::put_accName, child, name);
}

HRESULT StandardAccessible::put_accValue(VARIANT child, BSTR value) {
    return ask(&IAccessible::put_accValue, child, value);
}

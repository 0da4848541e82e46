// The option --wrap of the linker replaces three entries of this program's import table by functions of ours. Their
// mangled names below are how the linker knows the entries.
#include "FrameworkFaults.h"

#include <afxdllx.h>

#include <new>
#include <utility>

namespace {

using InitExtensionModule = BOOL (*)(AFX_EXTENSION_MODULE&, HMODULE);
using MakeLinkObject = void (*)(CDynLinkLibrary*, AFX_EXTENSION_MODULE&, BOOL);
using LoadStringById = BOOL (*)(CString*, UINT);

FrameworkCall g_failing = FrameworkCall::none;
LackOfMemory g_thrown = LackOfMemory::ofLanguage;
int g_linkObjects = 0;

bool isToFail(FrameworkCall call) {
    if (g_failing != call)
        return false;
    g_failing = FrameworkCall::none;
    return true;
}

[[noreturn]] void throwLackOfMemory() {
    if (g_thrown == LackOfMemory::ofFramework)
        AfxThrowMemoryException();
    throw std::bad_alloc();
}

} // namespace

void failFramework(FrameworkCall call, LackOfMemory thrown) {
    g_failing = call;
    g_thrown = thrown;
}

int linkObjectsMade() {
    return g_linkObjects;
}

extern "C" {

extern InitExtensionModule __real___imp__Z22AfxInitExtensionModuleR20AFX_EXTENSION_MODULEP11HINSTANCE__;
extern MakeLinkObject __real___imp__ZN15CDynLinkLibraryC1ER20AFX_EXTENSION_MODULEi;
extern LoadStringById __real___imp__ZN7CString11LoadStringWEj;

static BOOL initExtensionModule(AFX_EXTENSION_MODULE& record, HMODULE module) {
    if (isToFail(FrameworkCall::initExtensionModule))
        return FALSE;
    return __real___imp__Z22AfxInitExtensionModuleR20AFX_EXTENSION_MODULEP11HINSTANCE__(record, module);
}

static void makeLinkObject(CDynLinkLibrary* object, AFX_EXTENSION_MODULE& record, BOOL isSystem) {
    if (isToFail(FrameworkCall::makeLinkObject))
        throwLackOfMemory();
    ++g_linkObjects;
    __real___imp__ZN15CDynLinkLibraryC1ER20AFX_EXTENSION_MODULEi(object, record, isSystem);
}

static BOOL loadString(CString* text, UINT id) {
    if (isToFail(FrameworkCall::loadString))
        throwLackOfMemory();
    return __real___imp__ZN7CString11LoadStringWEj(text, id);
}

InitExtensionModule __wrap___imp__Z22AfxInitExtensionModuleR20AFX_EXTENSION_MODULEP11HINSTANCE__ = initExtensionModule;
MakeLinkObject __wrap___imp__ZN15CDynLinkLibraryC1ER20AFX_EXTENSION_MODULEi = makeLinkObject;
LoadStringById __wrap___imp__ZN7CString11LoadStringWEj = loadString;
}

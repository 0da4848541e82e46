// An extension DLL, as a module of the program would be one.
#include <afxdllx.h>

namespace {

AFX_EXTENSION_MODULE theModule;

} // namespace

extern "C" BOOL APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(theModule, instance))
            return FALSE;
        new CDynLinkLibrary(theModule);
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(theModule);
    }
    return TRUE;
}

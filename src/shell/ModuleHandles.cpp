#include "ModuleHandles.h"

#include "ResourceModuleName.h"

HINSTANCE g_moduleInstance = nullptr;
HINSTANCE g_resourceModule = nullptr;

HINSTANCE loadResourceModule() {
    wchar_t path[1024];
    const DWORD length = GetModuleFileNameW(g_moduleInstance, path, static_cast<DWORD>(std::size(path)));
    if (length == 0)
        return nullptr;
    return LoadLibraryW(resourceModuleName({path, length}).c_str());
}

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        g_moduleInstance = instance;
    return TRUE;
}

// What the host calls to start and end the module: the load and unload messages, and the version of the interface.
#include "KelRuntime.h"
#include "ModuleHandles.h"
#include "Registration.h"

#include <afxdllx.h>

#include <new>
#include <utility>

namespace {

/// What the framework keeps of an extension module.
AFX_EXTENSION_MODULE extensionModule;

/// Links the module into the framework, which takes the link object over. When that fails, the load goes on: the
/// module's resources are found through CResourceScope.
void joinFramework() {
    if (!AfxInitExtensionModule(extensionModule, g_moduleInstance))
        return;
    try {
        new CDynLinkLibrary(extensionModule, FALSE);
    } catch (CMemoryException* exception) {
        exception->Delete();
    } catch (const std::bad_alloc&) {
        // The framework and the language each have their own exception for lack of memory.
    }
}

int load(void* packet) {
    g_resourceModule = loadResourceModule();
    if (!g_resourceModule)
        return kelrtAnswerLoadFailed;
    if (auto* linker = kelrtCast<KelRtDynamicLinker>(kelrtSystemRegistry()->at(kelrtDynamicLinkerKey)))
        linker->acceptApplication(packet);
    kelrtRegisterAppMDIAware(packet);
    joinFramework();
    registerLayerStateCommand();
    return kelrtAnswerOk;
}

int unload() {
    unregisterLayerStateCommand();
    AfxTermExtensionModule(extensionModule, FALSE);
    if (g_resourceModule)
        FreeLibrary(std::exchange(g_resourceModule, nullptr));
    return kelrtAnswerOk;
}

int answer(unsigned int message, void* packet) {
    switch (message) {
    case kelrtLoadMessage:
        return load(packet);
    case kelrtUnloadMessage:
        return unload();
    default:
        return kelrtAnswerOk;
    }
}

} // namespace

extern "C" int kelrtEntryPoint(unsigned int message, void* packet) {
    try {
        return answer(message, packet);
    } catch (CException* exception) {
        exception->Delete();
    } catch (...) {
        // No exception may reach the host; all that it can be told is that the message failed.
    }
    return kelrtAnswerLoadFailed;
}

extern "C" unsigned int kelrtGetApiVersion() {
    return kelrtApiVersion;
}

// What the host calls to start and end the module: the load and unload messages, and the version of the interface.
#include "KelRuntime.h"
#include "ModuleHandles.h"
#include "NewOrNull.h"
#include "Registration.h"

#include <afxdllx.h>

#include <memory>
#include <utility>

namespace {

/// What the framework keeps of an extension module.
AFX_EXTENSION_MODULE extensionModule;

// A load that ends by an exception has to leave the module as it found it, which is running where this was a second
// load. So its steps are guards, which take back what they did unless they are kept.

/// The resource module, once it is loaded.
class ResourceModuleStep {
  public:
    ResourceModuleStep() : m_before(std::exchange(g_resourceModule, loadResourceModule())) {}
    ~ResourceModuleStep() {
        // The system counts loads, and the unload frees one.
        if (const HINSTANCE spare = m_kept ? m_before : std::exchange(g_resourceModule, m_before))
            FreeLibrary(spare);
    }
    ResourceModuleStep(const ResourceModuleStep&) = delete;
    ResourceModuleStep& operator=(const ResourceModuleStep&) = delete;
    void keep() { m_kept = true; }

  private:
    HINSTANCE m_before;
    bool m_kept = false;
};

/// The module's link into the framework, which takes the link object over. When it can't be made the load goes on: the
/// module's resources are found through CResourceScope.
class FrameworkStep {
  public:
    FrameworkStep() : m_wasLinked(extensionModule.bInitialized) {
        if (AfxInitExtensionModule(extensionModule, g_moduleInstance))
            m_link = newOrNull<CDynLinkLibrary>(extensionModule, FALSE);
    }
    ~FrameworkStep() {
        if (m_kept)
            return;
        m_link.reset();
        if (!m_wasLinked)
            AfxTermExtensionModule(extensionModule, FALSE);
    }
    FrameworkStep(const FrameworkStep&) = delete;
    FrameworkStep& operator=(const FrameworkStep&) = delete;
    void keep() {
        m_link.release();
        m_kept = true;
    }

  private:
    BOOL m_wasLinked;
    std::unique_ptr<CDynLinkLibrary> m_link;
    bool m_kept = false;
};

int load(void* packet) {
    ResourceModuleStep resources;
    if (!g_resourceModule)
        return kelrtAnswerNoResources;
    // What is declared of the packet goes with it when the host drops the module.
    if (auto* linker = kelrtCast<KelRtDynamicLinker>(kelrtSystemRegistry()->at(kelrtDynamicLinkerKey)))
        linker->acceptApplication(packet);
    kelrtRegisterAppMDIAware(packet);
    FrameworkStep framework;
    registerLayerStateCommand();
    framework.keep();
    resources.keep();
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
    return kelrtAnswerFailed;
}

extern "C" unsigned int kelrtGetApiVersion() {
    return kelrtApiVersion;
}

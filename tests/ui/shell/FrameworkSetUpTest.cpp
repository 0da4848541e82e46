// The module's set-up in the framework and its handles, with the module's own sources in this program: what happens
// when the framework can't do its part.
#include <afxwin.h>

#include "FrameworkFaults.h"
#include "HostTest.h"
#include "KelRuntime.h"
#include "LayerStateCommand.h"
#include "ModuleHandles.h"
#include "SystemRegistry.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gmock/gmock.h>

extern "C" int kelrtEntryPoint(unsigned int message, void* packet);
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

// No command is run here, so no dialog is needed.
void runLayerStateCommand() {}

namespace {

using testing::ElementsAre;

class FrameworkSetUp : public ui::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        // The module finds its resource module by the name of this file. Both get the templates, so that a test can see
        // in which of them a template is found.
        copyResources(m_file);
        copyResources(m_resources);
        m_module = LoadLibraryW(m_file.c_str());
        ASSERT_NE(m_module, nullptr);
        g_moduleInstance = m_module;
    }
    void TearDown() override {
        failFramework(FrameworkCall::none);
        EXPECT_EQ(kelrtEntryPoint(kelrtUnloadMessage, this), 0);
        g_moduleInstance = nullptr;
        FreeLibrary(m_module);
        std::filesystem::remove(m_file);
        std::filesystem::remove(m_resources);
        HostTest::TearDown();
    }
    static void copyResources(const std::filesystem::path& to) {
        std::filesystem::copy_file(ui::programFolder() / L"KelLayerAppsRes.dll", to,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    static HINSTANCE placeOfTemplate() { return AfxFindResourceHandle(MAKEINTRESOURCE(IDD_LSTATE_RES), RT_DIALOG); }
    void expectLoaded() {
        EXPECT_EQ(kelrtEntryPoint(kelrtLoadMessage, this), 0);
        EXPECT_TRUE(kelrtServiceIsRegistered(L"KelLayerApps"));
        EXPECT_EQ(runtime::commandStack().count(), 1);
    }

    void expectNothingLeft() {
        EXPECT_FALSE(kelrtServiceIsRegistered(L"KelLayerApps"));
        EXPECT_EQ(runtime::commandStack().count(), 0);
        EXPECT_EQ(GetModuleHandleW(m_resources.c_str()), nullptr);
        EXPECT_NE(placeOfTemplate(), m_module);
    }

    const std::filesystem::path m_file = ui::programFolder() / L"Stand-in.xmod";
    const std::filesystem::path m_resources = ui::programFolder() / L"Stand-inRes.dll";
    HMODULE m_module = nullptr;
    const int m_linkObjectsBefore = linkObjectsMade();
};

TEST_F(FrameworkSetUp, PutsTheModuleIntoTheSearchForResourcesUntilItIsUnloaded) {
    EXPECT_NE(placeOfTemplate(), m_module);
    expectLoaded();
    EXPECT_EQ(linkObjectsMade(), m_linkObjectsBefore + 1);
    EXPECT_EQ(placeOfTemplate(), m_module);
    EXPECT_EQ(kelrtEntryPoint(kelrtUnloadMessage, this), 0);
    EXPECT_NE(placeOfTemplate(), m_module);
}

TEST_F(FrameworkSetUp, ARecordThatCantBeInitialisedLeavesTheLinkObjectOutAndTheLoadGoesOn) {
    failFramework(FrameworkCall::initExtensionModule);
    expectLoaded();
    EXPECT_EQ(linkObjectsMade(), m_linkObjectsBefore);
}

TEST_F(FrameworkSetUp, ALinkObjectThatCantBeMadeDoesntStopTheLoad) {
    failFramework(FrameworkCall::makeLinkObject);
    expectLoaded();
    EXPECT_EQ(linkObjectsMade(), m_linkObjectsBefore);
}

TEST_F(FrameworkSetUp, TheFrameworksOwnExceptionForLackOfMemoryCountsLikeTheLanguages) {
    failFramework(FrameworkCall::loadString, LackOfMemory::ofFramework);
    EXPECT_EQ(kelrtEntryPoint(kelrtLoadMessage, this), kelrtAnswerFailed);
    expectNothingLeft();
    const int linkObjectsBefore = linkObjectsMade();
    failFramework(FrameworkCall::makeLinkObject, LackOfMemory::ofFramework);
    expectLoaded();
    EXPECT_EQ(linkObjectsMade(), linkObjectsBefore);
}

TEST_F(FrameworkSetUp, AnExceptionInTheLoadTakesBackWhatTheLoadHasDone) {
    expectLoaded(); // the module looks up the class record of the stack once, which isn't to be among the calls
    EXPECT_EQ(kelrtEntryPoint(kelrtUnloadMessage, this), 0);
    const int linkObjectsBefore = linkObjectsMade();
    instruments::clearTrace();
    failFramework(FrameworkCall::loadString);
    EXPECT_EQ(kelrtEntryPoint(kelrtLoadMessage, this), kelrtAnswerFailed);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("kelrtSystemRegistry()", "at(\"DynamicLinker\") = object", "acceptApplication(object)",
                            "kelrtRegisterAppMDIAware(object) = true",
                            "kelrtServiceIsRegistered(\"KelLayerApps\") = false",
                            "kelrtRegisterService(\"KelLayerApps\") = object", "kelrtSystemRegistry()",
                            "at(\"VORN_REGISTERED_COMMANDS\") = object",
                            // There is no command yet, and the service is taken out again.
                            "kelrtSystemRegistry()", "at(\"ServiceDictionary\") = object",
                            "remove(\"KelLayerApps\") = object"));
    EXPECT_EQ(linkObjectsMade(), linkObjectsBefore + 1);
    expectNothingLeft();
    expectLoaded();
}

TEST_F(FrameworkSetUp, AnExceptionInASecondLoadLeavesTheModuleRunning) {
    expectLoaded();
    const HINSTANCE resources = g_resourceModule;
    failFramework(FrameworkCall::loadString);
    EXPECT_EQ(kelrtEntryPoint(kelrtLoadMessage, this), kelrtAnswerFailed);
    EXPECT_TRUE(kelrtServiceIsRegistered(L"KelLayerApps"));
    EXPECT_EQ(runtime::commandStack().count(), 1);
    EXPECT_EQ(g_resourceModule, resources);
    EXPECT_EQ(GetModuleHandleW(m_resources.c_str()), resources);
    EXPECT_EQ(placeOfTemplate(), m_module);
    EXPECT_EQ(kelrtEntryPoint(kelrtUnloadMessage, this), 0);
    expectNothingLeft();
}

TEST_F(FrameworkSetUp, ASecondLoadWithoutAResourceModuleLeavesTheModuleRunning) {
    expectLoaded();
    const HINSTANCE resources = g_resourceModule;
    g_moduleInstance = reinterpret_cast<HINSTANCE>(0x1000); // its path can't be told, so there is nothing to load
    EXPECT_EQ(kelrtEntryPoint(kelrtLoadMessage, this), kelrtAnswerNoResources);
    g_moduleInstance = m_module;
    EXPECT_EQ(g_resourceModule, resources);
    EXPECT_EQ(runtime::commandStack().count(), 1);
}

TEST_F(FrameworkSetUp, OneUnloadEndsTwoLoads) {
    expectLoaded();
    EXPECT_EQ(kelrtEntryPoint(kelrtLoadMessage, this), 0);
    EXPECT_EQ(kelrtEntryPoint(kelrtUnloadMessage, this), 0);
    expectNothingLeft();
}

TEST_F(FrameworkSetUp, TheAttachAloneTellsTheModulesHandle) {
    const auto other = reinterpret_cast<HINSTANCE>(0x1000);
    for (const DWORD reason : {DLL_PROCESS_DETACH, DLL_THREAD_ATTACH, DLL_THREAD_DETACH}) {
        EXPECT_TRUE(DllMain(other, reason, nullptr)) << reason;
        EXPECT_EQ(g_moduleInstance, m_module) << reason;
    }
    EXPECT_TRUE(DllMain(other, DLL_PROCESS_ATTACH, nullptr));
    EXPECT_EQ(g_moduleInstance, other);
}

TEST_F(FrameworkSetUp, AModuleWhosePathCantBeToldHasNoResourceModule) {
    // Without a path there is nothing in front of the suffix; a file of that bare name must not be taken.
    const std::filesystem::path trap = ui::programFolder() / L"Res.dll";
    copyResources(trap);
    g_moduleInstance = reinterpret_cast<HINSTANCE>(0x1000);
    EXPECT_EQ(loadResourceModule(), nullptr);
    std::filesystem::remove(trap);
}

} // namespace

// The module's load and unload messages: what it enters into the host's registry, in which order, and what it takes
// out.
#include "KelRuntime.h"
#include "instruments/HostCalls.h"
#include "Runtime.h"
#include "SystemRegistry.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using EntryPoint = int (*)(unsigned int, void*);
using ApiVersion = unsigned int (*)();

std::filesystem::path programFolder() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

/// The module in this process, without the host's loader: the tests send the messages themselves.
class ModuleLife : public testing::Test {
  protected:
    void SetUp() override { open(programFolder() / L"KelLayerApps.xmod"); }

    void TearDown() override {
        if (m_running) {
            EXPECT_EQ(send(kelrtUnloadMessage), 0);
        }
        if (m_library)
            FreeLibrary(m_library);
        EXPECT_EQ(instruments::ledger(), std::vector<std::string>());
        instruments::watch(false);
        runtime::reset();
    }

    void open(const std::filesystem::path& path) {
        m_library = LoadLibraryW(path.c_str());
        ASSERT_NE(m_library, nullptr) << GetLastError();
        m_entry = exported<EntryPoint>("kelrtEntryPoint");
        ASSERT_NE(m_entry, nullptr);
        instruments::watch(true);
    }

    template <class Function> Function exported(const char* name) {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(m_library, name)));
    }

    int send(unsigned int message) {
        const int answer = m_entry(message, this);
        if (message == kelrtLoadMessage && answer == 0)
            m_running = true;
        if (message == kelrtUnloadMessage)
            m_running = false;
        return answer;
    }

    /// The host calls so far, by operation alone.
    static std::vector<std::string> operations() {
        std::vector<std::string> names;
        for (const std::string& line : instruments::trace())
            names.push_back(line.substr(0, line.find('(')));
        return names;
    }

    HMODULE m_library = nullptr;
    EntryPoint m_entry = nullptr;
    bool m_running = false;
};

std::size_t commandCount() {
    return static_cast<std::size_t>(runtime::commandStack().count());
}

bool serviceIsThere() {
    return kelrtServiceIsRegistered(L"KelLayerApps");
}

} // namespace

TEST_F(ModuleLife, IsForVersion17OfTheInterface) {
    EXPECT_EQ(exported<ApiVersion>("kelrtGetApiVersion")(), 0x00110000u);
}

TEST_F(ModuleLife, LoadRegistersTheServiceAndTheCommand) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_TRUE(serviceIsThere());
    ASSERT_EQ(commandCount(), 1u);
    const KelEdCommand* command = runtime::commandStack().at(0);
    EXPECT_STREQ(command->groupName(), L"VORN_KelLayerApps");
    EXPECT_STREQ(command->globalName(), L"LAYERSTATE");
    EXPECT_EQ(command->commandFlags(), 0);
    EXPECT_NE(command->function(), nullptr);
}

TEST_F(ModuleLife, LoadTakesTheCommandsLocalNameFromTheResourceModule) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    wchar_t text[64] = {};
    ASSERT_GT(LoadStringW(GetModuleHandleW(L"KelLayerAppsRes.dll"), 120, text, 64), 0);
    ASSERT_EQ(commandCount(), 1u);
    EXPECT_STREQ(runtime::commandStack().at(0)->localName(), text);
}

TEST_F(ModuleLife, LoadDeclaresItselfToTheLinkerAndForSeveralDocumentsBeforeItRegistersAnything) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_TRUE(runtime::declarationsOf(this).acceptsUnload);
    EXPECT_TRUE(runtime::declarationsOf(this).mdiAware);
    std::vector<std::string> steps;
    for (const std::string& name : operations())
        if (name == "acceptApplication" || name == "kelrtRegisterAppMDIAware" || name == "kelrtServiceIsRegistered" ||
            name == "kelrtRegisterService" || name == "addCommand")
            steps.push_back(name);
    EXPECT_EQ(steps, (std::vector<std::string>{"acceptApplication", "kelrtRegisterAppMDIAware",
                                               "kelrtServiceIsRegistered", "kelrtRegisterService", "addCommand"}));
}

TEST_F(ModuleLife, SecondLoadLeavesTheServiceAloneAndStillAddsTheCommand) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    instruments::clearTrace();
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    const std::vector<std::string> names = operations();
    EXPECT_EQ(std::count(names.begin(), names.end(), "kelrtRegisterService"), 0);
    EXPECT_EQ(std::count(names.begin(), names.end(), "addCommand"), 1);
    EXPECT_EQ(commandCount(), 2u);
    // The one unload that follows gives back one of the two holds on the resource module.
    FreeLibrary(GetModuleHandleW(L"KelLayerAppsRes.dll"));
}

TEST_F(ModuleLife, UnloadTakesTheServiceAndThenTheCommandGroupOut) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    instruments::clearTrace();
    ASSERT_EQ(send(kelrtUnloadMessage), 0);
    const std::vector<std::string> names = operations();
    EXPECT_FALSE(serviceIsThere());
    EXPECT_EQ(commandCount(), 0u);
    const auto removed = std::find(names.begin(), names.end(), "remove");
    ASSERT_NE(removed, names.end());
    EXPECT_NE(std::find(removed, names.end(), "removeGroup"), names.end());
}

TEST_F(ModuleLife, UnloadFreesTheResourceModule) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    ASSERT_NE(GetModuleHandleW(L"KelLayerAppsRes.dll"), nullptr);
    ASSERT_EQ(send(kelrtUnloadMessage), 0);
    EXPECT_EQ(GetModuleHandleW(L"KelLayerAppsRes.dll"), nullptr);
}

TEST_F(ModuleLife, UnloadPassesOverAServiceThatSomeoneElseRemoved) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    auto* services = kelrtCast<KelRtDictionary>(runtime::systemRegistry().at(kelrtServiceDictionaryKey));
    delete services->remove(L"KelLayerApps");
    instruments::clearTrace();
    ASSERT_EQ(send(kelrtUnloadMessage), 0);
    const std::vector<std::string> names = operations();
    EXPECT_EQ(std::count(names.begin(), names.end(), "remove"), 0);
    EXPECT_EQ(commandCount(), 0u);
}

TEST_F(ModuleLife, LoadsAgainAfterAnUnload) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    ASSERT_EQ(send(kelrtUnloadMessage), 0);
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_TRUE(serviceIsThere());
    EXPECT_EQ(commandCount(), 1u);
}

TEST_F(ModuleLife, AnswersZeroToAnUnknownMessageAndChangesNothing) {
    EXPECT_EQ(send(0), 0);
    EXPECT_EQ(send(3), 0);
    EXPECT_EQ(send(0xffffffff), 0);
    EXPECT_EQ(operations(), std::vector<std::string>());
    EXPECT_EQ(commandCount(), 0u);
}

TEST_F(ModuleLife, SurvivesTheFailureOfEachHostCallOfALoad) {
    for (int nth = 1;; ++nth) {
        instruments::failAnyCall(nth);
        const int answer = send(kelrtLoadMessage);
        const bool struck = instruments::faultStruck();
        instruments::clearFaults();
        EXPECT_EQ(answer, 0) << "with call " << nth << " failing";
        ASSERT_EQ(send(kelrtUnloadMessage), 0);
        EXPECT_FALSE(serviceIsThere());
        EXPECT_EQ(commandCount(), 0u);
        if (!struck)
            return;
    }
}

namespace {

/// A copy of the module under a name whose resource module doesn't exist.
class ModuleWithoutResources : public ModuleLife {
  protected:
    void SetUp() override {
        std::filesystem::copy_file(programFolder() / L"KelLayerApps.xmod", m_copy,
                                   std::filesystem::copy_options::overwrite_existing);
        open(m_copy);
    }
    void TearDown() override {
        ModuleLife::TearDown();
        std::error_code ignored;
        std::filesystem::remove(m_copy, ignored);
    }

    std::filesystem::path m_copy = programFolder() / L"WithoutResources.xmod";
};

} // namespace

TEST_F(ModuleWithoutResources, LoadAnswers3AndTouchesNothing) {
    EXPECT_EQ(send(kelrtLoadMessage), 3);
    EXPECT_EQ(operations(), std::vector<std::string>());
    EXPECT_FALSE(serviceIsThere());
    EXPECT_EQ(commandCount(), 0u);
}

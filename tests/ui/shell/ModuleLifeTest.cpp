// The module's load and unload messages: what it enters into the host's registry, what it takes out, and where it
// finds its resources. MessagesTest.cpp has the order of the calls.
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

    /// The host calls so far, by the name of their operation alone.
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

TEST_F(ModuleLife, LoadHandsItsPacketToTheLinkerAndDeclaresItselfForSeveralDocuments) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_TRUE(runtime::declarationsOf(this).acceptsUnload);
    EXPECT_TRUE(runtime::declarationsOf(this).mdiAware);
}

TEST_F(ModuleLife, UnloadLeavesNeitherServiceNorCommand) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    ASSERT_EQ(send(kelrtUnloadMessage), 0);
    EXPECT_FALSE(serviceIsThere());
    EXPECT_EQ(commandCount(), 0u);
}

TEST_F(ModuleLife, AnUnloadWithoutALoadFindsNothingToTakeOut) {
    EXPECT_EQ(send(kelrtUnloadMessage), 0);
    EXPECT_EQ(operations(), (std::vector<std::string>{"kelrtServiceIsRegistered", "kelrtSystemRegistry", "at",
                                                      "kelrtSystemRegistry", "at", "at", "removeGroup"}));
}

namespace {

/// A service that tells when it is deleted.
class WatchedService : public KelRtObject {
  public:
    explicit WatchedService(bool& deleted) : m_deleted(deleted) {}
    ~WatchedService() override { m_deleted = true; }

  private:
    bool& m_deleted;
};

KelRtDictionary& services() {
    return *kelrtCast<KelRtDictionary>(runtime::systemRegistry().at(kelrtServiceDictionaryKey));
}

} // namespace

TEST_F(ModuleLife, AServiceOfItsNameThatIsThereIsLeftAloneAndDeletedAtTheUnload) {
    bool deleted = false;
    auto* service = new WatchedService(deleted);
    services().atPut(L"KelLayerApps", service);
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_FALSE(deleted);
    EXPECT_EQ(services().at(L"KelLayerApps"), service);
    ASSERT_EQ(send(kelrtUnloadMessage), 0);
    EXPECT_TRUE(deleted);
}

TEST_F(ModuleLife, UnloadFreesTheResourceModule) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    ASSERT_NE(GetModuleHandleW(L"KelLayerAppsRes.dll"), nullptr);
    ASSERT_EQ(send(kelrtUnloadMessage), 0);
    EXPECT_EQ(GetModuleHandleW(L"KelLayerAppsRes.dll"), nullptr);
}

TEST_F(ModuleLife, LoadsAgainAfterAnUnload) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    ASSERT_EQ(send(kelrtUnloadMessage), 0);
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_TRUE(serviceIsThere());
    EXPECT_EQ(commandCount(), 1u);
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

/// One of the three things can't be had that lead to the host's commands: the command stack, the host's classes, and
/// the stack's class among them.
class WayToCommands : public ModuleLife, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(EachStep, WayToCommands, testing::Values(1, 2, 3));

} // namespace

TEST_P(WayToCommands, ThatIsBarredLeavesTheServiceAloneAndIsTriedAgainByTheNextLoad) {
    constexpr int kLinkers = 1; // the first one is asked for the linker
    instruments::failCall("at", kLinkers + GetParam());
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_TRUE(instruments::faultStruck());
    instruments::clearFaults();
    EXPECT_TRUE(serviceIsThere());
    EXPECT_EQ(commandCount(), 0u);
    ASSERT_EQ(send(kelrtUnloadMessage), 0);
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_EQ(commandCount(), 1u);
}

TEST_F(ModuleLife, FreesItsResourcesWhicheverHostCallOfAnUnloadFails) {
    bool struck = true;
    for (int nth = 1; struck; ++nth) {
        ASSERT_EQ(send(kelrtLoadMessage), 0);
        instruments::failAnyCall(nth);
        EXPECT_EQ(send(kelrtUnloadMessage), 0) << "with call " << nth << " failing";
        EXPECT_EQ(GetModuleHandleW(L"KelLayerAppsRes.dll"), nullptr) << "with call " << nth << " failing";
        struck = instruments::faultStruck();
        instruments::clearFaults();
        runtime::reset(); // removes what that unload couldn't take out
    }
}

namespace {

namespace fs = std::filesystem;

/// Copies of the module under another name, with files of their own beside it.
class ModuleCopy : public ModuleLife {
  protected:
    void SetUp() override {}
    void TearDown() override {
        ModuleLife::TearDown();
        std::error_code ignored;
        for (const fs::path& file : m_files)
            fs::remove(file, ignored);
    }
    /// Copies a file of the program's folder; the copy goes at the test's end.
    const fs::path& copy(const wchar_t* from, const fs::path& to) {
        fs::create_directories(to.parent_path());
        fs::copy_file(programFolder() / from, to, fs::copy_options::overwrite_existing);
        return m_files.emplace_back(to);
    }

  private:
    std::vector<fs::path> m_files;
};

} // namespace

TEST_F(ModuleCopy, WithoutItsResourceModuleLoadAnswers3AndTouchesNothing) {
    open(copy(L"KelLayerApps.xmod", programFolder() / L"Lonely.xmod"));
    EXPECT_EQ(send(kelrtLoadMessage), 3);
    EXPECT_EQ(operations(), std::vector<std::string>());
    EXPECT_FALSE(serviceIsThere());
    EXPECT_EQ(commandCount(), 0u);
}

TEST_F(ModuleCopy, TheSystemsSearchOrderAndNotItsOwnFolderDecidesWhereItsResourcesComeFrom) {
    const fs::path elsewhere = programFolder() / L"elsewhere";
    open(copy(L"KelLayerApps.xmod", elsewhere / L"Wanderer.xmod"));
    copy(L"KelLayerAppsRes.dll", elsewhere / L"WandererRes.dll");
    EXPECT_EQ(send(kelrtLoadMessage), 3) << "only beside the module, where nobody looks";
    copy(L"KelLayerAppsRes.dll", programFolder() / L"WandererRes.dll");
    EXPECT_EQ(send(kelrtLoadMessage), 0) << "beside the program, where the system looks first";
}

TEST_F(ModuleCopy, TheCommandsLocalNameComesFromTheResourceModuleAndItsGlobalNameDoesnt) {
    open(copy(L"KelLayerApps.xmod", programFolder() / L"Translated.xmod")); // TranslatedRes.dll is built for this test
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    ASSERT_EQ(commandCount(), 1u);
    EXPECT_STREQ(runtime::commandStack().at(0)->globalName(), L"LAYERSTATE");
    EXPECT_STREQ(runtime::commandStack().at(0)->localName(), L"TRANSLATED");
}

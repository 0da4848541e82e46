// The module's load and unload messages by everything that they ask of the host, in order.

#include "HostTest.h"
#include "KelRuntime.h"
#include "SystemRegistry.h"
#include "instruments/HostCalls.h"

#include <gmock/gmock.h>

#include <windows.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Group, global and local name, flags, function, no context, no function code, no resource handle, no pointer back.
constexpr const char* addCommand =
    "addCommand(\"VORN_KelLayerApps\", \"LAYERSTATE\", \"LAYERSTATE\", 0, true, null, -1, null, null) = 0";

class Messages : public ui::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        m_module = LoadLibraryW((ui::programFolder() / L"KelLayerApps.xmod").c_str());
        ASSERT_NE(m_module, nullptr);
        m_entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(m_module, "kelrtEntryPoint")));
        ASSERT_NE(m_entry, nullptr);
    }
    void TearDown() override {
        if (m_loaded) {
            EXPECT_EQ(send(kelrtUnloadMessage), 0);
        }
        FreeLibrary(m_module);
        HostTest::TearDown();
    }
    /// Sends a message, and counts host calls from there on.
    int send(unsigned int message) {
        instruments::clearTrace();
        const int answer = m_entry(message, this);
        m_loaded = message == kelrtLoadMessage || (m_loaded && message != kelrtUnloadMessage);
        return answer;
    }

  private:
    using Entry = int (*)(unsigned int, void*);
    HMODULE m_module = nullptr;
    Entry m_entry = nullptr;
    bool m_loaded = false;
};

TEST_F(Messages, LoadJoinsTheHostRegistersTheServiceAndThenTheCommand) {
    EXPECT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_THAT(instruments::trace(),
                ElementsAre(
                    // The packet goes to the dynamic linker, and the module works with several documents.
                    "kelrtSystemRegistry()", "at(\"DynamicLinker\") = object", "acceptApplication(object)",
                    "kelrtRegisterAppMDIAware(object) = true",
                    // The service.
                    "kelrtServiceIsRegistered(\"KelLayerApps\") = false",
                    "kelrtRegisterService(\"KelLayerApps\") = object",
                    // The command: the class record of the stack is looked up once in the module's life.
                    "kelrtSystemRegistry()", "at(\"VORN_REGISTERED_COMMANDS\") = object", "kelrtSystemRegistry()",
                    "at(\"ClassDictionary\") = object", "at(\"KelEdCommandStack\") = object", addCommand));
}

TEST_F(Messages, ASecondLoadLeavesTheServiceAloneAndAddsTheCommandAgain) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("kelrtSystemRegistry()", "at(\"DynamicLinker\") = object", "acceptApplication(object)",
                            "kelrtRegisterAppMDIAware(object) = true",
                            "kelrtServiceIsRegistered(\"KelLayerApps\") = true", "kelrtSystemRegistry()",
                            "at(\"VORN_REGISTERED_COMMANDS\") = object", addCommand));
}

TEST_F(Messages, UnloadTakesTheServiceOutAndThenTheCommands) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    EXPECT_EQ(send(kelrtUnloadMessage), 0);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("kelrtServiceIsRegistered(\"KelLayerApps\") = true", "kelrtSystemRegistry()",
                            "at(\"ServiceDictionary\") = object", "remove(\"KelLayerApps\") = object",
                            "kelrtSystemRegistry()", "at(\"VORN_REGISTERED_COMMANDS\") = object",
                            "removeGroup(\"VORN_KelLayerApps\") = 0"));
}

TEST_F(Messages, UnloadPassesOverAServiceThatIsGoneAlready) {
    ASSERT_EQ(send(kelrtLoadMessage), 0);
    auto* services = kelrtCast<KelRtDictionary>(runtime::systemRegistry().at(kelrtServiceDictionaryKey));
    ASSERT_NE(services, nullptr);
    delete services->remove(L"KelLayerApps");
    EXPECT_EQ(send(kelrtUnloadMessage), 0);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("kelrtServiceIsRegistered(\"KelLayerApps\") = false", "kelrtSystemRegistry()",
                            "at(\"VORN_REGISTERED_COMMANDS\") = object", "removeGroup(\"VORN_KelLayerApps\") = 0"));
}

TEST_F(Messages, AnUnknownMessageAsksNothingAndIsAnsweredZero) {
    for (const unsigned int message : {0u, 3u, 4u, 0xFFFFFFFFu}) {
        EXPECT_EQ(send(message), 0) << message;
        EXPECT_THAT(instruments::trace(), IsEmpty()) << message;
    }
}

} // namespace

// Exporting a state to a server, by the manager's button.

#include "RemoteManagerTest.h"

#include "OrvUiInternet.h"
#include "RemoteFixture.h"

#include "remote/Timeouts.h"

using testing::ElementsAre;
using testing::HasSubstr;
using ui::Script;
using ui::View;
using namespace std::chrono_literals;

namespace {

class RemoteExport : public RemoteManagerTest {
  protected:
    /// A server that has no such file, and treats an upload as that.
    static TestServer::Behaviour uploads(TestServer::Behaviour treat) {
        return [treat = std::move(treat)](const TestClient& client) {
            if (client.head().starts_with("PUT"))
                return treat(client);
            client.send("HTTP/1.1 404 None\r\nContent-Length: 0\r\n\r\n");
            client.finish();
        };
    }
    static Script failed() { return answerMessage(resourceText(IDS_LSTATE_EXPORT_FAILED)); }
    static Script untilUploaded() {
        Script script;
        return script.waitUntil("it is uploaded", [](const View&) { return transfers().size() == 2; });
    }
};

TEST_F(RemoteExport, ToANewFileArrivesAsItIsWrittenHere) {
    manage(exportTo(nginx::address(L"uploads/one.las")).then(untilUploaded()).then(unchanged()));
    EXPECT_THAT(transfers(), ElementsAre(20012, 20000));
    ASSERT_EQ(states().exportLayerState(L"One", file(L"here.las").c_str()), Vorn::eOk);
    EXPECT_EQ(::bytesOf(nginx::file(L"uploads/one.las")), ::bytesOf(std::filesystem::path(file(L"here.las"))));
    EXPECT_EQ(told, L"");
}

TEST_F(RemoteExport, OverAFileThatIsThereIsRefusedAndTheFileStays) {
    ::writeBytes(nginx::file(L"uploads/one.las"), "another");
    manage(exportTo(nginx::address(L"uploads/one.las")).then(failed()).then(unchanged()));
    EXPECT_THAT(transfers(), ElementsAre(20000));
    EXPECT_EQ(::bytesOf(nginx::file(L"uploads/one.las")), "another");
}

TEST_F(RemoteExport, WhereTheServerRefusesItIsTold) {
    manage(exportTo(nginx::address(L"read-only/one.las")).then(failed()).then(unchanged()));
    EXPECT_THAT(transfers(), ElementsAre(20012, 20014));
    EXPECT_FALSE(exists(nginx::file(L"read-only/one.las")));
    EXPECT_THAT(told, HasSubstr(L"its server refuses it (405)"));
}

TEST_F(RemoteExport, ThatIsCutOffIsTold) {
    const TestServer server(uploads([](const TestClient&) {}));
    manage(exportTo(server.address()).then(failed()).then(unchanged()));
    ASSERT_THAT(transfers(), testing::SizeIs(2));
    // Not every system's client tells it from an answer that isn't HTTP.
    EXPECT_THAT(transfers()[1], testing::AnyOf(int{eInetCutOff}, int{eInetNotUnderstood}));
}

TEST_F(RemoteExport, ToAServerThatIsSilentEndsByItself) {
    remote::setTimeouts({.receive = 300ms});
    const TestServer server(uploads([](const TestClient& client) { client.ignore(); }));
    manage(exportTo(server.address()).then(failed()).then(unchanged()));
    EXPECT_THAT(transfers(), ElementsAre(20012, 20007));
    EXPECT_THAT(told, HasSubstr(L"doesn't answer in time"));
}

TEST_F(RemoteExport, CanBeCancelled) {
    const TestServer server(uploads([](const TestClient& client) { client.ignore(); }));
    manage(exportTo(server.address()).then(cancelTransfer()).then(failed()).then(unchanged()));
    EXPECT_THAT(transfers(), ElementsAre(20012, 20023));
    EXPECT_THAT(told, HasSubstr(L"it was cancelled"));
}

TEST_F(RemoteExport, ThatIsCancelledWhileItAsksUploadsNothing) {
    const TestServer server([](const TestClient& client) { client.ignore(); });
    manage(exportTo(server.address()).then(cancelTransfer()).then(failed()).then(unchanged()));
    EXPECT_THAT(transfers(), ElementsAre(20023));
    EXPECT_THAT(server.requests(), ElementsAre("HEAD /plan.las HTTP/1.1"));
}

} // namespace

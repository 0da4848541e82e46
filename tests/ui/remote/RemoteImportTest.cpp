// Importing states from a server, by the manager's button: from a layer states file, and from a drawing.

#include "RemoteManagerTest.h"

#include "OrvUiInternet.h"
#include "RemoteFixture.h"

#include "progress/ProgressIds.h"
#include "remote/Timeouts.h"

#include <future>

using testing::ElementsAre;
using testing::HasSubstr;
using ui::Script;
using ui::View;
using namespace std::chrono_literals;

namespace {

class RemoteImport : public RemoteManagerTest {
  protected:
    static Script unreadable(const std::wstring& url) {
        CString text;
        text.Format(resourceText(IDS_LSTATE_DRAWING_UNOPENED).c_str(), url.c_str());
        return answerMessage(text.GetString());
    }
    static Script notImported() { return leaveTaskDialog(kCannotRestore).then(backInManager({L"One", L"Two"}, L"")); }
};

/// A server that sends the head of a file, and then a byte now and then for as long as somebody takes it.
TestServer::Behaviour dripping(std::promise<void>& end) {
    return [waiting = end.get_future().share()](const TestClient& client) {
        client.send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
        while (client.send("x") && waiting.wait_for(10ms) == std::future_status::timeout) {
        }
    };
}

const char* const kHalf = "HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n{\"name\"";

TEST_F(RemoteImport, OfANewStateFromAFile) {
    serveState(L"three.las");
    manage(importFrom(nginx::address(L"three.las"))
               .then(leaveTaskDialog(kImported))
               .then(backInManager({L"One", L"Two", L"Three"}, L"Three")));
    EXPECT_THAT(transfers(), ElementsAre(20000));
    EXPECT_EQ(told, L"");
}

TEST_F(RemoteImport, OfAStateThatIsThereAsks) {
    saveStateFile(L"one.las", ui::TestDrawing().state(L"One", MaskOn, L"of another"), L"One");
    std::filesystem::copy_file(file(L"one.las"), nginx::file(L"one.las"));
    manage(importFrom(nginx::address(L"one.las"))
               .then(answerQuestion(L"One", false))
               .then(backInManager({L"One", L"Two"}, L"")));
}

TEST_F(RemoteImport, OfAFileThatIsntThereOrIsRefusedIsTold) {
    for (const wchar_t* name : {L"none.las", L"forbidden/a.las", L"secret/a.las"})
        manage(importFrom(nginx::address(name)).then(notImported()));
    EXPECT_THAT(told, HasSubstr(L"doesn't exist (404)"));
    EXPECT_THAT(told, HasSubstr(L"its server refuses it (403)"));
    EXPECT_THAT(told, HasSubstr(L"signing in"));
}

TEST_F(RemoteImport, OfAFileThatIsCutOffIsTold) {
    const TestServer server(answers(kHalf));
    manage(importFrom(server.address()).then(notImported()));
    EXPECT_THAT(transfers(), ElementsAre(20008));
}

TEST_F(RemoteImport, FromAServerThatIsTooSlowEndsByItself) {
    std::promise<void> end;
    remote::setTimeouts({.receive = 20s, .leastPace = {100'000, 300ms}});
    const TestServer server(dripping(end));
    manage(importFrom(server.address()).then(notImported()));
    EXPECT_THAT(transfers(), ElementsAre(20007));
    EXPECT_THAT(told, HasSubstr(L"the line to its server is too slow"));
    end.set_value();
}

TEST_F(RemoteImport, OfAHeadThatComesByteByByteEndsByItself) {
    std::promise<void> end;
    // Not every system's client waits for the head of the answer only when it is asked for.
    remote::setTimeouts({.begin = 300ms, .receive = 300ms});
    const TestServer server([waiting = end.get_future().share()](const TestClient& client) {
        client.send("HTTP/1.1 200 OK\r\nX: ");
        while (client.send("x") && waiting.wait_for(10ms) == std::future_status::timeout) {
        }
    });
    manage(importFrom(server.address()).then(notImported()));
    EXPECT_THAT(transfers(), ElementsAre(20007));
    end.set_value();
}

TEST_F(RemoteImport, CanBeCancelledAndShowsHowFarItIs) {
    std::promise<void> end;
    remote::setTimeouts({.receive = 20s, .leastPace = {0, 90s}});
    const TestServer server(dripping(end));
    Script script = importFrom(server.address());
    script
        .waitUntil("some of it has come",
                   [](const View& view) {
                       return view.text(IDC_PROGRESS_AMOUNT).ends_with(L" of 98 KB") &&
                              !view.text(IDC_PROGRESS_AMOUNT).starts_with(L"0");
                   })
        .look("the window",
              [&server](const View& view) {
                  EXPECT_EQ(view.title(), L"Fetching File");
                  EXPECT_EQ(view.text(IDC_PROGRESS_TEXT), server.address());
              })
        .then(cancelTransfer())
        .then(notImported());
    manage(script);
    EXPECT_THAT(transfers(), ElementsAre(20023));
    end.set_value();
}

TEST_F(RemoteImport, FromADrawingTakesWhatIsTicked) {
    serveDrawing(L"other.zdr");
    Script script = importFrom(nginx::address(L"other.zdr"));
    manage(script.then(takeTicked()).then(backInManager({L"One", L"Two", L"Three"}, L"")));
    EXPECT_THAT(transfers(), ElementsAre(20000, 20000, 20000)) << "one for each reading";
}

TEST_F(RemoteImport, FromADrawingThatIsntThereIsRefusedOrCutOffIsTold) {
    const TestServer cutting(answers(kHalf));
    for (const std::wstring& url :
         {nginx::address(L"none.zdr"), nginx::address(L"forbidden/a.zdr"), cutting.address(L"/a.zdr")})
        manage(importFrom(url).then(unreadable(url)).then(unchanged()));
}

TEST_F(RemoteImport, FromADrawingCanBeCancelled) {
    const TestServer silent([](const TestClient& client) { client.ignore(); });
    const std::wstring url = silent.address(L"/a.zdr");
    manage(importFrom(url).then(cancelTransfer()).then(unreadable(url)).then(unchanged()));
    EXPECT_THAT(transfers(), ElementsAre(20023));
}

TEST_F(RemoteImport, ThatIsCancelledAfterTheChoiceLeavesTheStatesAsTheyWere) {
    serveDrawing(L"other.zdr");
    const std::string drawing = ::bytesOf(nginx::file(L"other.zdr"));
    const std::string whole =
        "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(drawing.size()) + "\r\n\r\n" + drawing;
    int requests = 0;
    const TestServer server([&](const TestClient& client) {
        if (++requests == 3)
            return client.ignore();
        client.send(whole);
        client.finish();
    });
    Script script = importFrom(server.address(L"/other.zdr"));
    manage(script.then(takeTicked())
               .then(cancelTransfer())
               .then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED)))
               .then(unchanged()));
    EXPECT_THAT(transfers(), ElementsAre(20000, 20000, 20023));
}

} // namespace

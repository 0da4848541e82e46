// What the user is told of a transfer that failed, on the command line: why, and what to do.

#include "CommandLineOutput.h"
#include "Nginx.h"
#include "RemoteFixture.h"
#include "TestServer.h"

#include "remote/Timeouts.h"

using testing::EndsWith;
using testing::HasSubstr;

namespace {

class Report : public RemoteTest {
  protected:
    Report() { writeBytes(local, "old"); }

    /// The last failure was told once, with the advice at the end.
    void expectTold(const std::wstring& advice) {
        EXPECT_EQ(printedLines, problem() + L"\n");
        EXPECT_THAT(problem(), EndsWith(L". " + advice));
        printedLines.clear();
    }
};

TEST_F(Report, aTransferThatFailsIsToldOnce) {
    const std::wstring url = nginx::address(L"forbidden/a.las");
    EXPECT_EQ(fetch(url), eInetRefused);
    EXPECT_EQ(printedLines,
              L"The address \"" + url +
                  L"\" wasn't transferred: its server refuses it (403). Ask those who run the server whether "
                  L"files may be read and written there.\n");
}

TEST_F(Report, whatCallersExpectIsntTold) {
    EXPECT_EQ(fetch(nginx::address(L"no such.las")), eInetTargetAbsent);
    EXPECT_EQ(fetch(L"C:\\plans\\a.las"), eInetNotRemote);
    OrvXREFString name;
    EXPECT_EQ(service.CreateInternetTempFile(L"a.las", name), eInetNotRemote);
    EXPECT_EQ(service.CreateInternetTempFile(L"http://h/a.las", name), eInetOk);
    EXPECT_EQ(upload(nginx::address(L"uploads/a.las")), eInetOk);
    EXPECT_EQ(printedLines, L"");
}

TEST_F(Report, aMistakeInAnAddressIsToldForAllOperations) {
    const std::wstring advice = L"Correct it; an address is made up like https://server/folder/plan.las.";
    EXPECT_EQ(fetch(L"http://h:0/a.las"), eInetBadAddress);
    expectTold(advice);
    EXPECT_EQ(upload(L"http://h:0/a.las"), eInetBadAddress);
    expectTold(advice);
    OrvXREFString name;
    EXPECT_EQ(service.CreateInternetTempFile(L"http://h:0/a.las", name), eInetBadAddress);
    expectTold(advice);
    EXPECT_EQ(fetch(L"ftp://h/a.las"), eInetUnknownScheme);
    expectTold(L"Give one that begins with http:// or https://, or the path of a file.");
}

TEST_F(Report, whereAServerAsksWhoItIsAnotherPlaceIsAdvised) {
    EXPECT_EQ(upload(nginx::address(L"secret/a.las")), eInetSignInNeeded);
    expectTold(L"Use a place that needs no sign-in, or transfer the file with a program that signs in.");
}

TEST_F(Report, whereTheServerIsntFoundItsNameIsToBeChecked) {
    EXPECT_EQ(fetch(L"http://no-such-server.invalid/a.las"), eInetHostNotFound);
    expectTold(L"Check the server's name and this computer's connection to the network.");
    const ClosedPort port;
    EXPECT_EQ(fetch(port.address()), eInetNoConnection);
    expectTold(L"Check this computer's connection to the network, and the port if the address has one; otherwise the "
               L"server isn't running.");
}

TEST_F(Report, whereTheServerIsSilentItIsTriedLater) {
    using namespace std::chrono_literals;
    remote::setTimeouts({.resolve = 2s, .connect = 2s, .send = 200ms, .receive = 200ms});
    const TestServer server([](const TestClient& client) { client.ignore(); });
    EXPECT_EQ(fetch(server.address()), eInetTimedOut);
    expectTold(L"Try again later; if that doesn't help, ask those who run the server.");
}

TEST_F(Report, aCertificateThatIsntTrustedIsForTheServersOwners) {
    EXPECT_EQ(fetch(nginx::address(L"plan.las", nginx::Door::Unsigned)), eInetNotSecure);
    expectTold(L"Check this computer's date; if it is right, ask those who run the server for a valid certificate.");
}

TEST_F(Report, anAnswerIsFollowedByWhatToDoAboutIt) {
    struct Row {
        const char* status;
        bool isUpload;
        int expected;
        const wchar_t* advice;
    };
    const Row rows[] = {
        {"409 Conflict", true, eInetFolderAbsent, L"Make the folder there first, or choose one that is there."},
        {"503 Busy", true, eInetServerFailed, L"Try again later; if that doesn't help, ask those who run the server."},
        {"507 No Room", true, eInetServerFull, L"Make room there, or choose another server."},
        {"302 Found", false, eInetBadRedirect, L"Ask those who run the server for the file's own address."},
        {"206 Partial", false, eInetNotUnderstood, L"Check that the address is that of a file on a web server."},
    };
    for (const Row& row : rows) {
        const TestServer server(answers("HTTP/1.1 " + std::string(row.status) + "\r\nContent-Length: 0\r\n\r\n"));
        EXPECT_EQ(row.isUpload ? upload(server.address()) : fetch(server.address()), row.expected) << row.status;
        expectTold(row.advice);
    }
    const TestServer server(answers("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf"));
    EXPECT_EQ(fetch(server.address()), eInetCutOff);
    expectTold(L"Try again.");
}

TEST_F(Report, whatIsWrongWithALocalFileIsToldToo) {
    std::filesystem::remove(local);
    EXPECT_EQ(upload(nginx::address(L"uploads/a.las")), eInetLocalUnreadable);
    EXPECT_EQ(printedLines, L"The file \"" + local.wstring() + L"\" doesn't exist.\n");
}

TEST_F(Report, withoutACommandLineIsKeptAllTheSame) {
    runtime::setOutputSink({});
    EXPECT_EQ(fetch(nginx::address(L"forbidden/a.las")), eInetRefused);
    EXPECT_THAT(printed(problem()), HasSubstr("(403)"));
}

} // namespace

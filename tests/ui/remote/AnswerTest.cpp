// Which status each answer of a server becomes, and what the requests to it look like.

#include "RemoteFixture.h"
#include "TestServer.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

class Answer : public RemoteTest {
  protected:
    static TestServer::Behaviour of(int status) {
        return answers("HTTP/1.1 " + std::to_string(status) + " Reason\r\nContent-Length: 4\r\n\r\nplan");
    }
};

TEST_F(Answer, ofAFetch) {
    const std::pair<int, int> rows[] = {
        {200, eInetOk},          {201, eInetNotUnderstood}, {204, eInetNotUnderstood}, {206, eInetNotUnderstood},
        {300, eInetBadRedirect}, {304, eInetBadRedirect},   {400, eInetRefused},       {401, eInetSignInNeeded},
        {403, eInetRefused},     {404, eInetTargetAbsent},  {405, eInetRefused},       {407, eInetSignInNeeded},
        {409, eInetRefused},     {410, eInetTargetAbsent},  {413, eInetTooLarge},      {414, eInetRefused},
        {429, eInetRefused},     {500, eInetServerFailed},  {502, eInetServerFailed},  {503, eInetServerFailed},
        {507, eInetServerFull},  {599, eInetServerFailed},  {600, eInetNotUnderstood}, {999, eInetNotUnderstood},
    };
    for (const auto& [status, expected] : rows) {
        const TestServer server(of(status));
        EXPECT_EQ(fetch(server.address()), expected) << status;
        EXPECT_EQ(exists(local), expected == eInetOk) << status;
        remove(local);
    }
}

TEST_F(Answer, ofAnUpload) {
    const std::pair<int, int> rows[] = {
        {200, eInetOk},           {201, eInetOk},           {202, eInetNotUnderstood}, {204, eInetOk},
        {301, eInetBadRedirect},  {302, eInetBadRedirect},  {303, eInetBadRedirect},   {400, eInetRefused},
        {401, eInetSignInNeeded}, {403, eInetRefused},      {404, eInetFolderAbsent},  {405, eInetRefused},
        {409, eInetFolderAbsent}, {410, eInetFolderAbsent}, {413, eInetTooLarge},      {423, eInetRefused},
        {500, eInetServerFailed}, {501, eInetServerFailed}, {503, eInetServerFailed},  {507, eInetServerFull},
    };
    writeBytes(local, "plan");
    for (const auto& [status, expected] : rows) {
        const TestServer server(of(status));
        EXPECT_EQ(upload(server.address()), expected) << status;
        EXPECT_EQ(bytesOf(local), "plan");
    }
}

/// Asks whether the file is there: a fetch to nowhere.
int question(CProxyInet& service, const std::wstring& url) {
    OrvXREFString nowhere;
    const int status = service.TransferFile(url.c_str(), nowhere, kInetFetch, 1);
    EXPECT_STREQ(nowhere, L"");
    return status;
}

TEST_F(Answer, ofAQuestionComesWithoutTheContent) {
    const std::pair<int, int> rows[] = {
        {200, eInetOk},      {404, eInetTargetAbsent}, {410, eInetTargetAbsent}, {401, eInetSignInNeeded},
        {403, eInetRefused}, {500, eInetServerFailed}, {302, eInetBadRedirect},
    };
    for (const auto& [status, expected] : rows) {
        // The head tells of content that isn't sent: whoever waited for it would be cut off.
        const TestServer server(answers("HTTP/1.1 " + std::to_string(status) + " x\r\nContent-Length: 1000\r\n\r\n"));
        EXPECT_EQ(question(service, server.address()), expected) << status;
        EXPECT_THAT(server.requests(), ElementsAre("HEAD /plan.las HTTP/1.1")) << status;
    }
}

TEST_F(Answer, ofAQuestionIsAskedForOtherwiseWhereTheServerDoesntKnowTheVerb) {
    for (const char* refusal : {"405 Not Allowed", "501 Not Implemented"}) {
        const TestServer server([refusal](const TestClient& client) {
            const bool isHead = client.head().starts_with("HEAD");
            client.send(std::string("HTTP/1.1 ") + (isHead ? refusal : "404 None") + "\r\nContent-Length: 0\r\n\r\n");
            client.finish();
        });
        EXPECT_EQ(question(service, server.address()), eInetTargetAbsent);
        EXPECT_THAT(server.requests(), ElementsAre("HEAD /plan.las HTTP/1.1", "GET /plan.las HTTP/1.1"));
    }
}

TEST_F(Answer, ofAQuestionIsLookedForWhereTheServerSendsOn) {
    const TestServer target(of(200));
    const TestServer server(answers(
        "HTTP/1.1 301 Moved\r\nContent-Length: 0\r\nLocation: " + printed(target.address(L"/moved.las")) + "\r\n\r\n"));
    EXPECT_EQ(question(service, server.address()), eInetOk) << printed(problem());
    EXPECT_THAT(target.requests(), ElementsAre("HEAD /moved.las HTTP/1.1"));
}

TEST_F(Answer, theTargetIsSentAsItWasEncodedAndNothingOfTheUserIs) {
    std::string head;
    const TestServer server([&head](const TestClient& client) {
        head = client.head();
        client.send("HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=\"x\"\r\nWWW-Authenticate: NTLM\r\n"
                    "Set-Cookie: a=b\r\nContent-Length: 0\r\n\r\n");
        client.finish();
    });
    EXPECT_EQ(fetch(server.address(L"/a b/\u00e4?q=%20 %C3%A4#part")), eInetSignInNeeded);
    EXPECT_EQ(fetch(server.address(L"/again")), eInetSignInNeeded);
    EXPECT_THAT(server.requests(), ElementsAre("GET /a%20b/%C3%A4?q=%20%20%C3%A4 HTTP/1.1", "GET /again HTTP/1.1"));
    EXPECT_THAT(head, HasSubstr("no-cache"));
    EXPECT_THAT(head, Not(HasSubstr("Cookie")));
    EXPECT_THAT(head, Not(HasSubstr("Authorization")));
}

TEST_F(Answer, anUploadTellsItsLengthBeforehand) {
    writeBytes(local, "plan");
    std::string head;
    const TestServer server([&head](const TestClient& client) {
        head = client.head();
        client.send("HTTP/1.1 201 Created\r\nContent-Length: 0\r\n\r\n");
        client.finish();
    });
    EXPECT_EQ(upload(server.address(L"/a.las")), eInetOk) << printed(problem());
    EXPECT_THAT(server.requests(), ElementsAre("PUT /a.las HTTP/1.1"));
    EXPECT_THAT(head, HasSubstr("Content-Length: 4\r\n"));
    EXPECT_THAT(head, Not(HasSubstr("chunked")));
}

} // namespace

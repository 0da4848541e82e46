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

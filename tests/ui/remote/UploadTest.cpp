// Uploading to a real server with WebDAV.

#include "Nginx.h"
#include "RemoteFixture.h"
#include "TestServer.h"

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Upload = RemoteTest;

TEST_F(Upload, theFileArrivesByteForByte) {
    writeBytes(local, "{\"name\": \"Plan\"}\r\n");
    EXPECT_EQ(upload(nginx::address(L"uploads/new.las")), 20000) << printed(problem());
    EXPECT_EQ(bytesOf(nginx::file(L"uploads/new.las")), "{\"name\": \"Plan\"}\r\n");
    EXPECT_TRUE(exists(local));
}

TEST_F(Upload, aLargeFileArrivesByteForByte) {
    const std::string bytes = manyBytes(10'000'001);
    writeBytes(local, bytes);
    EXPECT_EQ(upload(nginx::address(L"uploads/large.las")), eInetOk) << printed(problem());
    EXPECT_TRUE(bytesOf(nginx::file(L"uploads/large.las")) == bytes);
}

TEST_F(Upload, anEmptyFileArrives) {
    writeBytes(local, "");
    EXPECT_EQ(upload(nginx::address(L"uploads/empty.las")), eInetOk) << printed(problem());
    EXPECT_TRUE(exists(nginx::file(L"uploads/empty.las")));
    EXPECT_EQ(file_size(nginx::file(L"uploads/empty.las")), 0u);
}

TEST_F(Upload, aFileThatIsThereIsReplaced) {
    writeBytes(nginx::file(L"uploads/there.las"), "much longer than what comes");
    writeBytes(local, "short");
    EXPECT_EQ(upload(nginx::address(L"uploads/there.las")), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(nginx::file(L"uploads/there.las")), "short");
}

TEST_F(Upload, blanksAndLettersOfAllTonguesArrive) {
    const std::wstring names[] = {L"uploads/ground floor.las", L"uploads/Gr\u00fcn \u00df.las",
                                  L"uploads/\u5e73\u9762\u56f3.las", L"uploads/\U0001F3E0.las"};
    for (const std::wstring& name : names) {
        writeBytes(local, printed(name));
        EXPECT_EQ(upload(nginx::address(name)), eInetOk) << printed(problem());
        EXPECT_EQ(bytesOf(nginx::file(name)), printed(name));
    }
}

TEST_F(Upload, intoAFolderThatIsntThereFails) {
    writeBytes(local, "plan");
    // WebDAV asks for 409 here, which would be eInetFolderAbsent; nginx notices the missing folder too late and answers
    // 500.
    EXPECT_EQ(upload(nginx::address(L"no/such/folder/a.las")), eInetServerFailed);
    EXPECT_THAT(printed(problem()), HasSubstr("its server failed (500)."));
    EXPECT_FALSE(exists(nginx::file(L"no")));
}

TEST_F(Upload, refusalsOfTheServerAreToldApart) {
    writeBytes(local, std::string(2000, 'x'));
    EXPECT_EQ(upload(nginx::address(L"read-only/a.las")), eInetRefused);
    EXPECT_THAT(printed(problem()), HasSubstr("(405)"));
    EXPECT_EQ(upload(nginx::address(L"forbidden/a.las")), eInetRefused);
    EXPECT_THAT(printed(problem()), HasSubstr("(403)"));
    EXPECT_EQ(upload(nginx::address(L"secret/a.las")), eInetSignInNeeded);
    EXPECT_EQ(upload(nginx::address(L"small/a.las")), eInetTooLarge);
    EXPECT_THAT(printed(problem()), HasSubstr("larger than its server takes (413)"));
    EXPECT_FALSE(exists(nginx::file(L"read-only/a.las")));
    EXPECT_FALSE(exists(nginx::file(L"forbidden/a.las")));
    EXPECT_FALSE(exists(nginx::file(L"secret/a.las")));
    EXPECT_FALSE(exists(nginx::file(L"small/a.las")));
}

TEST_F(Upload, aRedirectThatKeepsTheRequestIsFollowedWithTheWholeFile) {
    const std::string bytes = manyBytes(200'000);
    writeBytes(local, bytes);
    EXPECT_EQ(upload(nginx::address(L"moved-by-307/moved.las")), eInetOk) << printed(problem());
    EXPECT_TRUE(bytesOf(nginx::file(L"uploads/moved.las")) == bytes);
}

TEST_F(Upload, aRedirectThatMakesItAQuestionIsntFollowed) {
    writeBytes(local, "plan");
    EXPECT_EQ(upload(nginx::address(L"moved-by-301/a.las")), eInetBadRedirect);
    EXPECT_THAT(printed(problem()), HasSubstr("(301)"));
    EXPECT_FALSE(exists(nginx::file(L"uploads/a.las")));
}

/// A server that sends every request on to that address.
TestServer::Behaviour sendsOnTo(const std::wstring& location) {
    return answers("HTTP/1.1 307 Elsewhere\r\nContent-Length: 0\r\nLocation: " + printed(location) + "\r\n\r\n");
}

TEST_F(Upload, neverGoesToAnotherServerThanTheOneThatWasTyped) {
    writeBytes(local, "plan");
    const TestServer stranger(answers("HTTP/1.1 201 Created\r\nContent-Length: 0\r\n\r\n"));
    const TestServer typed(sendsOnTo(stranger.address(L"/a.las")));
    EXPECT_EQ(upload(typed.address()), eInetBadRedirect);
    EXPECT_THAT(stranger.requests(), IsEmpty());
    EXPECT_THAT(problem(), HasSubstr(L"its server sends the file on to \"" + stranger.address(L"/a.las") +
                                     L"\", which is another server, port or scheme."));
    // A fetch gives nothing away, so it follows.
    EXPECT_NE(fetch(typed.address()), eInetBadRedirect);
    EXPECT_THAT(stranger.requests(), testing::ElementsAre("GET /a.las HTTP/1.1"));
}

TEST_F(Upload, neverGoesToAnotherScheme) {
    writeBytes(local, "plan");
    const TestServer typed(sendsOnTo(nginx::address(L"uploads/a.las", nginx::Door::Good)));
    EXPECT_EQ(upload(typed.address()), eInetBadRedirect);
    EXPECT_FALSE(exists(nginx::file(L"uploads/a.las")));
}

TEST_F(Upload, aServersTextIsToldShortAndInOneLine) {
    writeBytes(local, "plan");
    const TestServer typed(sendsOnTo(L"ftp://h/\t" + std::wstring(5000, L'x')));
    EXPECT_EQ(upload(typed.address()), eInetBadRedirect);
    EXPECT_LT(problem().size(), 700u);
    EXPECT_THAT(problem(), testing::Each(testing::Ge(L' ')));
    EXPECT_THAT(problem(), HasSubstr(L"xxx...\", which has a control character"));
}

TEST_F(Upload, theRoadOfAnExportToANewRemoteFile) {
    const std::wstring url = nginx::address(L"uploads/exported.las");
    OrvXREFString name;
    ASSERT_EQ(service.TransferFile(url.c_str(), name, 1, 1), 20012);
    EXPECT_STREQ(name, L"");
    ASSERT_EQ(service.CreateInternetTempFile(url.c_str(), name), 20000);
    writeBytes(static_cast<const wchar_t*>(name), "exported");
    EXPECT_EQ(service.TransferFile(url.c_str(), name, 4, 1), 20000);
    EXPECT_EQ(bytesOf(nginx::file(L"uploads/exported.las")), "exported");
}

} // namespace

// Fetching from a real server.

#include "Nginx.h"
#include "RemoteFixture.h"

using testing::HasSubstr;

namespace {

using Fetch = RemoteTest;

TEST_F(Fetch, theFileComesByteForByte) {
    writeBytes(nginx::file(L"plan.las"), "{\"name\": \"Plan\"}\r\n");
    EXPECT_EQ(fetch(nginx::address(L"plan.las")), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "{\"name\": \"Plan\"}\r\n");
}

TEST_F(Fetch, aLargeFileComesByteForByte) {
    const std::string bytes = manyBytes(10'000'001);
    writeBytes(nginx::file(L"large.las"), bytes);
    EXPECT_EQ(fetch(nginx::address(L"large.las")), eInetOk) << printed(problem());
    EXPECT_TRUE(bytesOf(local) == bytes);
}

TEST_F(Fetch, anEmptyFileIsAFile) {
    writeBytes(nginx::file(L"empty.las"), "");
    writeBytes(local, "old");
    EXPECT_EQ(fetch(nginx::address(L"empty.las")), eInetOk) << printed(problem());
    EXPECT_TRUE(exists(local));
    EXPECT_EQ(bytesOf(local), "");
}

TEST_F(Fetch, whatWasThereIsReplacedAsAWhole) {
    writeBytes(local, "much longer than what comes");
    writeBytes(nginx::file(L"short.las"), "short");
    EXPECT_EQ(fetch(nginx::address(L"short.las")), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "short");
    EXPECT_EQ(entries(), 1u);
}

TEST_F(Fetch, blanksAndLettersOfAllTonguesAreFound) {
    const std::wstring names[] = {L"ground floor.las",
                                  L"Gr\u00fcn \u00df.las",
                                  L"\u5e73\u9762\u56f3.las",
                                  L"\U0001F3E0.las",
                                  L"a+b&c=d;e,f'g(h)[i]{j}^k`l~m.las",
                                  L"a@b!$.las"};
    for (const std::wstring& name : names) {
        writeBytes(nginx::file(name), printed(name));
        EXPECT_EQ(fetch(nginx::address(name)), eInetOk) << printed(problem());
        EXPECT_EQ(bytesOf(local), printed(name));
    }
}

TEST_F(Fetch, aPercentSignIsFoundInItsEncoding) {
    writeBytes(nginx::file(L"100%25.las"), "percent 25");
    writeBytes(nginx::file(L"100%.las"), "percent");
    EXPECT_EQ(fetch(nginx::address(L"100%25.las")), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "percent");
    EXPECT_EQ(fetch(nginx::address(L"100%.las")), eInetBadAddress);
}

TEST_F(Fetch, theSchemeIsReadInAnyCaseAndTheFragmentStaysHere) {
    writeBytes(nginx::file(L"plan.las"), "plan");
    EXPECT_EQ(fetch(L"HtTp" + nginx::address(L"plan.las").substr(4) + L"?a=b#part"), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "plan");
}

TEST_F(Fetch, aFileThatIsntThereIsTheOneStatusOfAnAbsentTarget) {
    writeBytes(local, "old");
    EXPECT_EQ(fetch(nginx::address(L"no such.las")), 20012);
    EXPECT_EQ(fetch(nginx::address(L"no/such/folder/a.las")), eInetTargetAbsent);
    EXPECT_EQ(fetch(nginx::address(L"gone.las")), eInetTargetAbsent);
    EXPECT_EQ(problem(), L"The address \"" + nginx::address(L"gone.las") + L"\" doesn't exist (410).");
    EXPECT_EQ(bytesOf(local), "old");
    EXPECT_EQ(entries(), 1u);
}

TEST_F(Fetch, theSentenceIsAboutTheLastTransfer) {
    writeBytes(nginx::file(L"plan.las"), "plan");
    EXPECT_EQ(fetch(nginx::address(L"no such.las")), eInetTargetAbsent);
    EXPECT_FALSE(problem().empty());
    EXPECT_EQ(fetch(nginx::address(L"plan.las")), eInetOk);
    EXPECT_EQ(problem(), L"");
}

TEST_F(Fetch, refusalsOfTheServerAreToldApart) {
    writeBytes(nginx::file(L"forbidden/a.las"), "secret");
    writeBytes(nginx::file(L"secret/a.las"), "secret");
    EXPECT_EQ(fetch(nginx::address(L"forbidden/a.las")), eInetRefused);
    EXPECT_THAT(printed(problem()), HasSubstr("refuses it (403)."));
    EXPECT_EQ(fetch(nginx::address(L"secret/a.las")), eInetSignInNeeded);
    EXPECT_THAT(printed(problem()), HasSubstr("signing in"));
    EXPECT_FALSE(exists(local));
}

TEST_F(Fetch, aFileThatMovedIsFollowed) {
    writeBytes(nginx::file(L"ground floor.las"), "moved");
    EXPECT_EQ(fetch(nginx::address(L"moved/ground floor.las")), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "moved");
}

TEST_F(Fetch, aServerThatSendsOnForEverIsLeft) {
    EXPECT_EQ(fetch(nginx::address(L"to-loop.las")), eInetBadRedirect);
    EXPECT_THAT(printed(problem()), HasSubstr("again and again"));
}

TEST_F(Fetch, aServerThatSendsOutOfHttpIsntFollowed) {
    EXPECT_EQ(fetch(nginx::address(L"to-ftp.las")), eInetBadRedirect);
    EXPECT_THAT(bytesOf(local), "");
    EXPECT_THAT(printed(problem()), HasSubstr("sends on to \"ftp://localhost/plan.las\", which is neither"));
}

} // namespace

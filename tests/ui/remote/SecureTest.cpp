// HTTPS, and what is refused there. Under Wine the system's client gives the same error for all of these refusals, so
// what tells them apart is only that the servers differ in nothing but their certificate.

#include "Nginx.h"
#include "RemoteFixture.h"
#include "TestServer.h"

#include "remote/Timeouts.h"

using nginx::Door;
using testing::HasSubstr;

namespace {

class Secure : public RemoteTest {
  protected:
    Secure() { writeBytes(nginx::file(L"plan.las"), "plan"); }

    /// Neither fetching nor uploading works with the server at that door.
    void expectRefusal(Door door) {
        writeBytes(local, "old");
        EXPECT_EQ(fetch(nginx::address(L"plan.las", door)), eInetNotSecure);
        EXPECT_THAT(printed(problem()), HasSubstr("there is no secure connection"));
        EXPECT_EQ(bytesOf(local), "old");
        EXPECT_EQ(upload(nginx::address(L"insecure.las", door)), eInetNotSecure);
        EXPECT_FALSE(exists(nginx::file(L"insecure.las")));
        EXPECT_EQ(entries(), 1u);
    }
};

TEST_F(Secure, aTrustedServerIsFetchedFromAndUploadedTo) {
    EXPECT_EQ(fetch(nginx::address(L"plan.las", Door::Good)), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "plan");
    const std::string bytes = manyBytes(3'000'001);
    writeBytes(local, bytes);
    EXPECT_EQ(upload(nginx::address(L"uploads/secure.las", Door::Good)), eInetOk) << printed(problem());
    EXPECT_TRUE(bytesOf(nginx::file(L"uploads/secure.las")) == bytes);
    EXPECT_EQ(fetch(nginx::address(L"uploads/secure.las", Door::Good)), eInetOk) << printed(problem());
    EXPECT_TRUE(bytesOf(local) == bytes);
}

TEST_F(Secure, aFileThatIsntThereIsAbsentHereToo) {
    EXPECT_EQ(fetch(nginx::address(L"no such.las", Door::Good)), eInetTargetAbsent);
}

TEST_F(Secure, aCertificateForAnotherNameIsRefused) {
    expectRefusal(Door::OtherName);
}
TEST_F(Secure, anExpiredCertificateIsRefused) {
    expectRefusal(Door::Expired);
}
TEST_F(Secure, aCertificateThatNobodyTrustedSignedIsRefused) {
    expectRefusal(Door::Unsigned);
}

TEST_F(Secure, aServerThatDoesntSpeakTlsIsRefused) {
    using namespace std::chrono_literals;
    remote::setTimeouts({.resolve = 2s, .connect = 2s, .send = 200ms, .receive = 200ms});
    const TestServer server(answers("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nplan"));
    EXPECT_EQ(fetch(L"https" + server.address().substr(4)), eInetNotSecure);
    EXPECT_FALSE(exists(local));
}

TEST_F(Secure, aRedirectIntoHttpsIsFollowed) {
    EXPECT_EQ(fetch(nginx::address(L"to-safety.las")), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "plan");
}

TEST_F(Secure, aRedirectOutOfHttpsIsntFollowed) {
    EXPECT_EQ(fetch(nginx::address(L"to-danger.las", Door::Good)), eInetBadRedirect);
    EXPECT_THAT(printed(problem()), HasSubstr("isn't an https:// address as the one before"));
    EXPECT_FALSE(exists(local));
}

} // namespace

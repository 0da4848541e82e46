// Servers that can't be reached, don't answer, cut the line, or answer nonsense. Whatever they do, what was in the
// local file stays, and nothing is left beside it.

#include "RemoteFixture.h"
#include "TestServer.h"

#include "remote/Timeouts.h"

#include <chrono>
#include <future>

using testing::AnyOf;
using testing::Contains;
using testing::Eq;
using testing::HasSubstr;
using testing::StartsWith;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

namespace {

// The wait that a test is about lasts kShort and every other one kNever, and a transfer has to end within kBound. So no
// test fails because the computer is loaded, and one does when a wait has no bound.
constexpr std::chrono::milliseconds kShort = 200ms;
constexpr std::chrono::milliseconds kNever = 90s;
constexpr std::chrono::milliseconds kBound = 30s;

class BadServer : public RemoteTest {
  protected:
    BadServer() { writeBytes(local, "old"); }

    void expectNothingHarmed() {
        EXPECT_EQ(bytesOf(local), "old");
        EXPECT_EQ(entries(), 1u);
    }
    int fetchFrom(const TestServer::Behaviour& behaviour) {
        const TestServer server(behaviour);
        const int status = fetch(server.address());
        expectNothingHarmed();
        return status;
    }
    int uploadTo(const TestServer::Behaviour& behaviour) {
        const TestServer server(behaviour);
        return upload(server.address());
    }
};

void closeAtOnce(const TestClient&) {}
void answerNothing(const TestClient& client) {
    client.ignore();
}

TEST_F(BadServer, aClosedPort) {
    const ClosedPort port;
    const std::wstring url = port.address();
    EXPECT_EQ(fetch(url), eInetNoConnection);
    EXPECT_THAT(problem(), StartsWith(L"The address \"" + url +
                                      L"\" can't be reached: there is no connection to its server. Check "));
    EXPECT_EQ(upload(url), eInetNoConnection);
    expectNothingHarmed();
}

TEST_F(BadServer, aNameThatNobodyHas) {
    EXPECT_EQ(fetch(L"http://no-such-server.invalid/plan.las"), eInetHostNotFound);
    EXPECT_THAT(printed(problem()), HasSubstr("no server of that name"));
    EXPECT_EQ(fetch(L"http://pl\u00e4ne.invalid/plan.las"), eInetHostNotFound);
    expectNothingHarmed();
}

TEST_F(BadServer, oneThatNeverAnswersIsLeftInTime) {
    remote::setTimeouts({.resolve = kNever, .connect = kNever, .send = kNever, .receive = kShort});
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(fetchFrom(answerNothing), eInetTimedOut);
    EXPECT_THAT(printed(problem()), HasSubstr("doesn't answer in time"));
    EXPECT_EQ(uploadTo(answerNothing), eInetTimedOut);
    EXPECT_LT(Clock::now() - start, kBound);
}

TEST_F(BadServer, oneThatNeverTakesTheLineIsLeftInTime) {
    remote::setTimeouts({.resolve = kNever, .connect = kShort, .send = kNever, .receive = kNever});
    const FullPort port;
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(fetch(port.address()), eInetTimedOut);
    EXPECT_LT(Clock::now() - start, kBound);
    expectNothingHarmed();
}

TEST_F(BadServer, oneThatStopsTakingTheFileIsLeftInTime) {
    remote::setTimeouts({.resolve = kNever, .connect = kNever, .send = kShort, .receive = kNever});
    writeBytes(local, std::string(30'000'000, 'x')); // more than any system keeps on the way
    std::promise<void> isOver;
    const TestServer server([&isOver](const TestClient&) { isOver.get_future().wait_for(kNever); });
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(upload(server.address()), eInetTimedOut);
    EXPECT_LT(Clock::now() - start, kBound);
    isOver.set_value();
}

TEST_F(BadServer, oneThatFallsSilentInTheMiddleIsLeftInTime) {
    remote::setTimeouts({.resolve = kNever, .connect = kNever, .send = kNever, .receive = kShort});
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(fetchFrom([](const TestClient& client) {
                  client.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf");
                  client.ignore();
              }),
              eInetTimedOut);
    EXPECT_LT(Clock::now() - start, kBound);
}

TEST_F(BadServer, aLineThatIsCutWithinTheFile) {
    EXPECT_EQ(fetchFrom(answers("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf")), eInetCutOff);
    EXPECT_THAT(printed(problem()), HasSubstr("cut before the end of the file"));
    EXPECT_EQ(fetchFrom(answers("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n")), eInetCutOff);
    EXPECT_EQ(fetchFrom(answers("HTTP/1.1 200 OK\r\nContent-Length: 1000001\r\n\r\n" + std::string(1'000'000, 'x'))),
              eInetCutOff);
}

TEST_F(BadServer, aLineThatIsCutInTheHeadOfTheAnswer) {
    const auto isRefused = AnyOf(Eq(eInetCutOff), Eq(eInetNotUnderstood));
    EXPECT_THAT(fetchFrom(answers("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n")), isRefused);
    EXPECT_THAT(fetchFrom(answers("HTTP/1.1 200 OK\r\nContent-Le")), isRefused);
    EXPECT_THAT(fetchFrom(answers("HTTP/1.1 20")), isRefused);
    EXPECT_THAT(fetchFrom(answers("HT")), isRefused);
    EXPECT_THAT(uploadTo(answers("HTTP/1.1 20")), isRefused);
}

TEST_F(BadServer, aLineThatIsCutAtOnce) {
    // Not every system's client tells it from an answer that isn't HTTP.
    const auto isRefused = AnyOf(Eq(eInetCutOff), Eq(eInetNotUnderstood));
    EXPECT_THAT(fetchFrom(closeAtOnce), isRefused);
    EXPECT_THAT(uploadTo(closeAtOnce), isRefused);
    writeBytes(local, std::string(5'000'000, 'x'));
    EXPECT_THAT(uploadTo(closeAtOnce), isRefused);
}

TEST_F(BadServer, oneThatAnswersBeforeItHasTheFileIsHeard) {
    writeBytes(local, std::string(5'000'000, 'x'));
    EXPECT_EQ(uploadTo(answers("HTTP/1.1 507 No Room\r\nContent-Length: 0\r\n\r\n")), eInetServerFull);
}

TEST_F(BadServer, anAnswerThatIsntHttp) {
    EXPECT_EQ(fetchFrom(answers("220 plans.example FTP server ready\r\n\r\n")), eInetNotUnderstood);
    EXPECT_EQ(fetchFrom(answers(std::string("\0\1\2\377\r\n\r\n\0", 9))), eInetNotUnderstood);
    EXPECT_EQ(fetchFrom(answers(manyBytes(5000))), eInetNotUnderstood);
    EXPECT_EQ(uploadTo(answers("SSH-2.0-OpenSSH\r\n")), eInetNotUnderstood);
}

TEST_F(BadServer, anEndlessHeadIsntRead) {
    std::string head = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n";
    for (int line = 0; head.size() < 100'000; ++line)
        head += "X-" + std::to_string(line) + ": " + std::string(60, 'x') + "\r\n";
    EXPECT_EQ(fetchFrom(answers(head + "\r\nplan")), eInetNotUnderstood);
}

TEST_F(BadServer, aFileWhoseLengthIsntToldBeforehandIsntTaken) {
    EXPECT_EQ(fetchFrom(answers("HTTP/1.1 200 OK\r\n\r\nplan")), eInetNotUnderstood);
    EXPECT_THAT(printed(problem()), HasSubstr("doesn't say beforehand how long the file is"));
    const std::string chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nplan\r\n";
    EXPECT_EQ(fetchFrom(answers(chunked)), eInetNotUnderstood);
    EXPECT_EQ(fetchFrom(answers(chunked + "0\r\n\r\n")), eInetNotUnderstood);
    EXPECT_EQ(fetchFrom(answers(
                  "HTTP/1.1 200 OK\r\nContent-Length: 4\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nplan\r\n0\r\n")),
              eInetNotUnderstood);
}

TEST_F(BadServer, aLengthThatIsNone) {
    for (const char* length : {"-1", "4x", "0x4", "4.0", "four", "4, 5"})
        EXPECT_EQ(fetchFrom(answers("HTTP/1.1 200 OK\r\nContent-Length: " + std::string(length) + "\r\n\r\nplan")),
                  eInetNotUnderstood)
            << length;
}

TEST_F(BadServer, aFileThatIsTooLargeIsntBegun) {
    for (const char* length : {"4294967295", "5000000000", "99999999999999999999999999"})
        EXPECT_EQ(fetchFrom(answers("HTTP/1.1 200 OK\r\nContent-Length: " + std::string(length) + "\r\n\r\nplan")),
                  eInetTooLarge)
            << length;
    // One that is just not too large is believed until the line is cut.
    EXPECT_EQ(fetchFrom(answers("HTTP/1.1 200 OK\r\nContent-Length: 4294967294\r\n\r\nplan")), eInetCutOff);
}

TEST_F(BadServer, whatComesBehindTheFileIsNoPartOfIt) {
    const TestServer server(answers("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nplanHTTP/1.1 200 OK\r\n\r\n"));
    EXPECT_EQ(fetch(server.address()), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "plan");
}

TEST_F(BadServer, oneThatNeverStopsSendingIsLeft) {
    const auto goOnBehind = [](const char* head) {
        return [head](const TestClient& client) {
            client.send(head);
            while (client.send(std::string(10'000, 'x'))) {
            }
        };
    };
    EXPECT_EQ(fetchFrom(goOnBehind("HTTP/1.1 404 Not Found\r\n\r\n")), eInetTargetAbsent);
    EXPECT_EQ(fetchFrom(goOnBehind("HTTP/1.1 200 OK\r\n\r\n")), eInetNotUnderstood);
    EXPECT_EQ(uploadTo(goOnBehind("HTTP/1.1 503 Busy\r\n\r\n")), eInetServerFailed);
    const TestServer server(goOnBehind("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n"));
    EXPECT_EQ(fetch(server.address()), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "xxxx");
}

TEST_F(BadServer, redirectsThatLeadNowhere) {
    EXPECT_EQ(fetchFrom(answers("HTTP/1.1 302 Found\r\nContent-Length: 0\r\n\r\n")), eInetBadRedirect);
    EXPECT_THAT(printed(problem()), HasSubstr("without saying where"));
    for (const char* location : {"http://", "http://user:secret@h/", "//", "file:///C:/a.las", "http://h:0/", "/a%00"})
        EXPECT_EQ(fetchFrom(answers("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + std::string(location) +
                                    "\r\n\r\n")),
                  eInetBadRedirect)
            << location;
    EXPECT_EQ(problem().find(L"secret"), std::wstring::npos);
}

TEST_F(BadServer, aServerThatSendsOnForEverIsAskedElevenTimes) {
    const TestServer server(answers("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: /on\r\n\r\n"));
    EXPECT_EQ(fetch(server.address()), eInetBadRedirect);
    EXPECT_EQ(server.requests().size(), 11u);
    expectNothingHarmed();
}

TEST_F(BadServer, anAnswerOfIpv6IsTheSame) {
    const TestServer server(answers("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nplan"), AF_INET6);
    if (!server.listens())
        GTEST_SKIP() << "this computer has no IPv6";
    EXPECT_EQ(fetch(server.address()), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(local), "plan");
}

} // namespace

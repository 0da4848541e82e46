// The trace, planned failures, and what is held of the system.

#include "HandleCount.h"
#include "Nginx.h"
#include "RemoteFixture.h"
#include "TestServer.h"

#include "instruments/HostCalls.h"

#include <windows.h>

#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

using Instruments = RemoteTest;

TEST_F(Instruments, theTraceHoldsEachCallWithItsArgumentsAndItsAnswer) {
    instruments::clearTrace();
    CProxyInet* const found = CProxyInet::GetProxyInet();
    OrvXREFString name(L"C:\\a.las");
    found->TransferFile(L"C:\\b.las", name, 1, 1);
    found->CreateInternetTempFile(L"http:", name);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("CProxyInet.GetProxyInet() = object",
                            "CProxyInet.TransferFile(\"C:\\\\b.las\", \"C:\\\\a.las\", 1, 1) = 20001, "
                            "localName=\"C:\\\\a.las\"",
                            "CProxyInet.CreateInternetTempFile(\"http:\") = 20002, localName=\"C:\\\\a.las\""));
}

TEST_F(Instruments, aPlannedFailureOfTheServiceLeavesNone) {
    instruments::failCall("CProxyInet.GetProxyInet", 1);
    EXPECT_EQ(CProxyInet::GetProxyInet(), nullptr);
    EXPECT_EQ(CProxyInet::GetProxyInet(), &service);
}

TEST_F(Instruments, aPlannedFailureOfATransferIsItsAnswerAndTransfersNothing) {
    const TestServer server(answers("HTTP/1.1 201 Created\r\nContent-Length: 0\r\n\r\n"));
    writeBytes(local, "plan");
    instruments::failCall("CProxyInet.TransferFile", 1, static_cast<Vorn::ErrorStatus>(eInetTargetAbsent));
    instruments::failCall("CProxyInet.TransferFile", 2);
    EXPECT_EQ(fetch(server.address()), 20012);
    EXPECT_EQ(upload(server.address()), Vorn::eInvalidInput);
    EXPECT_THAT(server.requests(), IsEmpty());
    EXPECT_EQ(upload(server.address()), eInetOk);
}

TEST_F(Instruments, aPlannedFailureOfATemporaryFileMakesNone) {
    instruments::failCall("CProxyInet.CreateInternetTempFile", 1);
    OrvXREFString name(L"before");
    EXPECT_EQ(service.CreateInternetTempFile(L"http://h/a.las", name), Vorn::eInvalidInput);
    EXPECT_STREQ(name, L"before");
}

TEST_F(Instruments, theCountOfHandlesIsTrue) {
    const auto before = countHandles();
    ASSERT_TRUE(before) << "handles can't be counted here";
    std::vector<HANDLE> events;
    for (int i = 0; i < 20; ++i)
        events.push_back(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    EXPECT_EQ(countHandles(), *before + 20);
    for (const HANDLE event : events)
        CloseHandle(event);
    EXPECT_EQ(countHandles(), before);
}

TEST_F(Instruments, transfersHoldOnToNothing) {
    writeBytes(nginx::file(L"plan.las"), manyBytes(100'000));
    const ClosedPort closed;
    const auto transferAll = [&] {
        EXPECT_EQ(fetch(nginx::address(L"plan.las")), eInetOk) << printed(problem());
        EXPECT_EQ(upload(nginx::address(L"uploads/again.las")), eInetOk) << printed(problem());
        EXPECT_EQ(fetch(nginx::address(L"plan.las", nginx::Door::Good)), eInetOk) << printed(problem());
        EXPECT_EQ(fetch(nginx::address(L"no such.las")), eInetTargetAbsent);
        EXPECT_EQ(fetch(nginx::address(L"plan.las", nginx::Door::Unsigned)), eInetNotSecure);
        EXPECT_EQ(fetch(closed.address()), eInetNoConnection);
    };
    // The system's client looks names up in threads of a pool, which come and go.
    constexpr unsigned poolThreads = 4;
    transferAll(); // what the system keeps from the first time on
    const auto before = countHandles();
    ASSERT_TRUE(before);
    for (int i = 0; i < 50; ++i)
        transferAll();
    EXPECT_LE(countHandles(), *before + poolThreads);
}

} // namespace

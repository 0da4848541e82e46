// Local files that can't be written or read.

#include "Nginx.h"
#include "RemoteFixture.h"
#include "TestServer.h"

#include <windows.h>

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class LocalFile : public RemoteTest {
  protected:
    static int transfer(const std::wstring& path, int mode, const std::wstring& url) {
        OrvXREFString name(path.c_str());
        return CProxyInet::GetProxyInet()->TransferFile(url.c_str(), name, mode, 1);
    }
};

TEST_F(LocalFile, aFetchIntoWhatCantBeWrittenIsTold) {
    writeBytes(nginx::file(L"plan.las"), "plan");
    const std::wstring url = nginx::address(L"plan.las");
    writeBytes(local, "protected");
    ASSERT_TRUE(SetFileAttributesW(local.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(fetch(url), eInetLocalUnwritable);
    EXPECT_THAT(problem(), testing::StartsWith(L"The file \"" + local.wstring() + L"\" can't be written: "));
    EXPECT_EQ(bytesOf(local), "protected");
    ASSERT_TRUE(SetFileAttributesW(local.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(transfer(folder.wstring(), kInetFetch, url), eInetLocalUnwritable);
    EXPECT_EQ(transfer((folder / L"none" / L"a.las").wstring(), kInetFetch, url), eInetLocalUnwritable);
    EXPECT_EQ(transfer((folder / L"a?b.las").wstring(), kInetFetch, url), eInetLocalUnwritable);
    EXPECT_EQ(transfer(L"NUL", kInetFetch, url), eInetLocalUnwritable);
    EXPECT_EQ(entries(), 1u);
}

TEST_F(LocalFile, anUploadOfWhatCantBeReadIsToldWithoutAsking) {
    const TestServer server(answers("HTTP/1.1 201 Created\r\nContent-Length: 0\r\n\r\n"));
    EXPECT_EQ(upload(server.address()), eInetLocalUnreadable);
    EXPECT_EQ(problem(), L"The file \"" + local.wstring() + L"\" doesn't exist.");
    EXPECT_EQ(transfer(folder.wstring(), kInetUpload, server.address()), eInetLocalUnreadable);
    EXPECT_EQ(transfer(L"", kInetUpload, server.address()), eInetLocalUnreadable);
    EXPECT_EQ(transfer(std::wstring(100'000, L'a'), kInetUpload, server.address()), eInetLocalUnreadable);
    EXPECT_THAT(server.requests(), IsEmpty());
}

/// Makes a file longer or shorter without writing what is in it.
void setSize(const std::filesystem::path& path, long long size) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    LARGE_INTEGER end;
    end.QuadPart = size;
    EXPECT_TRUE(SetFilePointerEx(file, end, nullptr, FILE_BEGIN) && SetEndOfFile(file));
    CloseHandle(file);
}

TEST_F(LocalFile, oneThatIsTooLargeIsToldWithoutAsking) {
    const TestServer server(answers("HTTP/1.1 201 Created\r\nContent-Length: 0\r\n\r\n"));
    for (const long long size : {0xFFFFFFFFLL, 0x100000000LL, 0x140000000LL}) {
        setSize(local, size);
        EXPECT_EQ(upload(server.address()), eInetTooLarge) << size;
    }
    EXPECT_THAT(printed(problem()), HasSubstr("4 GiB"));
    EXPECT_THAT(server.requests(), IsEmpty());
}

TEST_F(LocalFile, oneThatBecomesShorterDuringItsUploadIsTold) {
    setSize(local, 50'000'000);
    const TestServer server([this](const TestClient& client) {
        setSize(local, 10);
        client.ignore();
    });
    EXPECT_EQ(upload(server.address()), eInetLocalUnreadable);
    EXPECT_THAT(printed(problem()), HasSubstr("became shorter meanwhile"));
}

TEST_F(LocalFile, somebodyElseMayReadItMeanwhile) {
    writeBytes(local, "plan");
    const HANDLE reader =
        CreateFileW(local.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_EQ(upload(nginx::address(L"uploads/shared.las")), eInetOk) << printed(problem());
    CloseHandle(reader);
}

} // namespace

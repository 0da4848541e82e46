// Temporary files: where they are, how they are named, and who deletes them when.

#include "Nginx.h"
#include "RemoteFixture.h"
#include "TestServer.h"

#include <windows.h>

#include <set>

namespace fs = std::filesystem;

namespace {

class TemporaryFile : public RemoteTest {
  protected:
    fs::path make(const std::wstring& url) {
        OrvXREFString name;
        EXPECT_EQ(service.CreateInternetTempFile(url.c_str(), name), eInetOk) << printed(problem());
        return static_cast<const wchar_t*>(name);
    }
    int upload(const fs::path& path, const std::wstring& url) {
        OrvXREFString name(path.c_str());
        return service.TransferFile(url.c_str(), name, kInetUpload, 1);
    }
};

TEST_F(TemporaryFile, isAnEmptyFileInTheUsersTemporaryFolder) {
    const fs::path path = make(L"http://no-such-server.invalid/plan.las");
    EXPECT_TRUE(fs::is_regular_file(path));
    EXPECT_EQ(fs::file_size(path), 0u);
    EXPECT_EQ(path.parent_path() / L"", fs::temp_directory_path() / L"");
    EXPECT_LE(path.wstring().size(), 1023u);
}

TEST_F(TemporaryFile, hasTheExtensionOfTheFileAtTheAddress) {
    EXPECT_EQ(make(L"http://h/plan.las").extension(), L".las");
    EXPECT_EQ(make(L"https://h/a/Plan.LAS?x=y.zdr").extension(), L".LAS");
    EXPECT_EQ(make(L"http://h/plan").extension(), L"");
    EXPECT_EQ(make(L"http://h/plan.l%2F..%2Fs").extension(), L"");
}

TEST_F(TemporaryFile, isAnotherOneEachTime) {
    std::set<fs::path> paths;
    for (int i = 0; i < 50; ++i)
        paths.insert(make(L"http://h/plan.las"));
    EXPECT_EQ(paths.size(), 50u);
    for (const fs::path& path : paths)
        EXPECT_TRUE(fs::exists(path));
}

TEST_F(TemporaryFile, isDeletedAfterItsUpload) {
    const fs::path path = make(nginx::address(L"uploads/temporary.las"));
    writeBytes(path, "plan");
    EXPECT_EQ(upload(path, nginx::address(L"uploads/temporary.las")), eInetOk) << printed(problem());
    EXPECT_FALSE(fs::exists(path));
    EXPECT_EQ(bytesOf(nginx::file(L"uploads/temporary.las")), "plan");
}

TEST_F(TemporaryFile, isDeletedAfterAnUploadThatFailedToo) {
    const TestServer cutting([](const TestClient&) {});
    for (const std::wstring& url : {nginx::address(L"read-only/temporary.las"), cutting.address(),
                                    std::wstring(L"http://no-such-server.invalid/temporary.las")}) {
        const fs::path path = make(url);
        writeBytes(path, "plan");
        const int status = upload(path, url);
        EXPECT_NE(status, eInetOk);
        EXPECT_EQ(status == eInetRefused, url == nginx::address(L"read-only/temporary.las"));
        EXPECT_FALSE(fs::exists(path)) << printed(url);
    }
}

TEST_F(TemporaryFile, thatSomebodyReadsIsDeletedTheNextTime) {
    const std::wstring url = nginx::address(L"uploads/temporary.las");
    const fs::path path = make(url);
    const HANDLE reader = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_EQ(upload(path, url), eInetOk) << printed(problem());
    EXPECT_TRUE(fs::exists(path));
    CloseHandle(reader);
    EXPECT_EQ(upload(path, url), eInetOk) << printed(problem());
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(TemporaryFile, aFileOfTheUsersIsNeverDeleted) {
    writeBytes(local, "plan");
    EXPECT_EQ(upload(local, nginx::address(L"uploads/own.las")), eInetOk) << printed(problem());
    EXPECT_TRUE(fs::exists(local));
}

TEST_F(TemporaryFile, isReplacedByWhatIsFetchedIntoIt) {
    writeBytes(nginx::file(L"plan.las"), "plan");
    const std::wstring url = nginx::address(L"plan.las");
    const fs::path path = make(url);
    OrvXREFString name(path.c_str());
    EXPECT_EQ(service.TransferFile(url.c_str(), name, kInetFetch, 1), eInetOk) << printed(problem());
    EXPECT_EQ(bytesOf(path), "plan");
}

std::set<fs::path> temporaryFiles() {
    std::set<fs::path> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(fs::temp_directory_path()))
        paths.insert(entry.path());
    return paths;
}

TEST_F(TemporaryFile, isntMadeByAQuestion) {
    writeBytes(nginx::file(L"plan.las"), "plan");
    const std::set<fs::path> before = temporaryFiles();
    OrvXREFString name;
    EXPECT_EQ(service.TransferFile(nginx::address(L"plan.las").c_str(), name, kInetFetch, 1), eInetOk);
    EXPECT_EQ(service.TransferFile(nginx::address(L"no such.las").c_str(), name, kInetFetch, 1), eInetTargetAbsent);
    EXPECT_STREQ(name, L"");
    EXPECT_EQ(temporaryFiles(), before);
}

/// Points the temporary folder elsewhere for as long as it lives.
class TemporaryFolderAt {
  public:
    explicit TemporaryFolderAt(const fs::path& folder) : m_before(fs::temp_directory_path()) { set(folder); }
    ~TemporaryFolderAt() { set(m_before); }
    TemporaryFolderAt(const TemporaryFolderAt&) = delete;
    TemporaryFolderAt& operator=(const TemporaryFolderAt&) = delete;

  private:
    static void set(const fs::path& folder) {
        SetEnvironmentVariableW(L"TMP", folder.c_str());
        SetEnvironmentVariableW(L"TEMP", folder.c_str());
    }
    fs::path m_before;
};

TEST_F(TemporaryFile, withoutATemporaryFolderThereIsNone) {
    const TemporaryFolderAt nowhere(folder / L"none");
    OrvXREFString name(L"before");
    EXPECT_EQ(service.CreateInternetTempFile(L"http://h/plan.las", name), eInetLocalUnwritable);
    EXPECT_STREQ(name, L"before");
    EXPECT_THAT(printed(problem()), testing::HasSubstr("can't be given a temporary file in"));
}

TEST_F(TemporaryFile, isDeletedWhenTheProgramEnds) {
    const fs::path told = folder / L"told.txt";
    std::wstring self(MAX_PATH, L'\0');
    self.resize(GetModuleFileNameW(nullptr, self.data(), MAX_PATH));
    std::wstring line = L"\"" + self + L"\" --make-temporary \"" + told.wstring() + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 30'000), WAIT_OBJECT_0);
    DWORD code = 1;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    EXPECT_EQ(code, 0u) << "the program found no temporary file that was there";
    const fs::path path = bytesOf(told);
    EXPECT_EQ(path.extension(), L".las");
    EXPECT_FALSE(fs::exists(path));
}

} // namespace

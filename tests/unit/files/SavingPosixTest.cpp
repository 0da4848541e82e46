// What saving does about links, permissions and full disks on POSIX systems.
#include "DrawingDifference.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace zdr;
using testing::HasSubstr;

namespace {

/// No file grows beyond `bytes` while it lives: the same as a full disk, but for this program only.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit m_before{};
    void (*m_signal)(int);
};

} // namespace

TEST(SavingOnPosix, aFullDiskLeavesTheOldFileAndNothingBesideIt) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    std::wstring reason;
    FileStamp stamp;
    ASSERT_EQ(writeDrawingFile(path, plainDrawing(), reason, stamp), Vorn::eOk);
    const FileStamp before = stamp;
    const std::vector<std::byte> old = bytesOf(path);
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(writeDrawingFile(path, sampleDrawing(), reason, stamp), Vorn::eFileWriteFailed);
    }
    EXPECT_THAT(toUtf8(reason), HasSubstr("can't be written: writing failed, because of \"File too large\""));
    EXPECT_EQ(bytesOf(path), old);
    EXPECT_EQ(folder.entries(), 1u);
    EXPECT_EQ(stamp.content, before.content);
    EXPECT_EQ(writeDrawingFile(path, sampleDrawing(), reason, stamp), Vorn::eOk) << toUtf8(reason);
}

TEST(SavingOnPosix, aLinkStaysALinkAndItsFileIsReplaced) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "real");
    const std::wstring real = folder.file(L"real\\drawing.zdr"), link = folder.file(L"link.zdr");
    std::wstring reason;
    FileStamp stamp;
    ASSERT_EQ(writeDrawingFile(real, plainDrawing(), reason, stamp), Vorn::eOk);
    std::filesystem::create_symlink(systemPath(real), systemPath(link));
    ASSERT_EQ(writeDrawingFile(link, sampleDrawing(), reason, stamp), Vorn::eOk) << toUtf8(reason);
    EXPECT_TRUE(std::filesystem::is_symlink(systemPath(link)));
    Drawing drawing;
    ASSERT_EQ(readDrawingFile(real, drawing, reason), Vorn::eOk);
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
}

TEST(SavingOnPosix, theNewFileHasThePermissionsOfTheOldOne) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    std::wstring reason;
    FileStamp stamp;
    ASSERT_EQ(writeDrawingFile(path, plainDrawing(), reason, stamp), Vorn::eOk);
    ASSERT_EQ(chmod(systemPath(path).c_str(), 0640), 0);
    ASSERT_EQ(writeDrawingFile(path, plainDrawing(), reason, stamp), Vorn::eOk);
    struct stat status {};
    ASSERT_EQ(stat(systemPath(path).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST(SavingOnPosix, aPipeIsRefusedWithoutWaitingForIt) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"pipe");
    ASSERT_EQ(mkfifo(systemPath(path).c_str(), 0600), 0);
    Drawing drawing;
    std::wstring reason;
    EXPECT_EQ(readDrawingFile(path, drawing, reason), Vorn::eFileUnreadable);
    EXPECT_THAT(toUtf8(reason), HasSubstr("it isn't a file"));
}

TEST(SavingOnPosix, aProgramKilledWhileItSavesLeavesAWholeDrawing) {
    const char* quick = std::getenv("KEL_TEST_QUICK");
    const int kills = quick && std::string_view(quick) == "1" ? 10 : 60;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    std::wstring reason;
    FileStamp stamp;
    ASSERT_EQ(writeDrawingFile(path, plainDrawing(), reason, stamp), Vorn::eOk);
    int leftBehind = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            for (;;)
                if (writeDrawingFile(path, sampleDrawing(), reason, stamp, Overwrite::Always) != Vorn::eOk)
                    _exit(1);
        usleep(static_cast<useconds_t>(1000 + kill * 37 % 5000));
        ::kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "saving failed by itself";
        Drawing drawing;
        ASSERT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
        leftBehind += folder.entries() > 1;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            if (entry.path().extension() == ".tmp")
                std::filesystem::remove(entry.path());
    }
    EXPECT_GT(leftBehind, 0) << "no save was interrupted, so nothing was tried";
}

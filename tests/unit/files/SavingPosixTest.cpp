// What saving does about links and permissions on POSIX systems.
#include "DrawingDifference.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace zdr;
using testing::HasSubstr;

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

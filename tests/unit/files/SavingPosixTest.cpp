// What saving does about links, open files and signals on POSIX systems.
#include "DrawingDifference.h"
#include "FailingCalls.h"
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

TEST(SavingOnPosix, aLinkThatLeadsNowhereIsRefusedAndStays) {
    const TemporaryFolder folder;
    const std::wstring link = folder.file(L"link.zdr");
    const std::filesystem::path path = systemPath(link);
    std::wstring reason;
    FileStamp stamp;
    for (const char* target : {"missing.zdr", "missing/drawing.zdr", "link.zdr"}) {
        SCOPED_TRACE(target);
        std::filesystem::remove(path);
        std::filesystem::create_symlink(target, path);
        EXPECT_EQ(writeDrawingFile(link, plainDrawing(), reason, stamp), Vorn::eFileWriteFailed);
        EXPECT_THAT(toUtf8(reason), HasSubstr("can't be written: following the link failed, because of \""));
        EXPECT_EQ(std::filesystem::read_symlink(path), target);
        EXPECT_EQ(folder.entries(), 1u);
    }
}

TEST(SavingOnPosix, noFileStaysOpenWhateverIsRefused) {
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    Drawing drawing;
    std::wstring reason;
    FileStamp stamp;
    const auto before = openFiles();
    EXPECT_EQ(writeDrawingFile(path, plainDrawing(), reason, stamp), Vorn::eOk);
    EXPECT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk);
    EXPECT_EQ(readDrawingFile(folder.file(L""), drawing, reason), Vorn::eFileUnreadable);
    EXPECT_EQ(writeDrawingFile(folder.file(L""), drawing, reason, stamp), Vorn::eFileWriteFailed);
    {
        const FailingCalls failing("fsync", EIO);
        EXPECT_EQ(writeDrawingFile(path, plainDrawing(), reason, stamp, Overwrite::Always), Vorn::eFileWriteFailed);
    }
    EXPECT_EQ(openFiles(), before);
}

TEST(SavingOnPosix, aFileThatCantBeReadAnyMoreCountsAsChanged) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    std::wstring reason;
    FileStamp stamp;
    ASSERT_EQ(writeDrawingFile(path, plainDrawing(), reason, stamp), Vorn::eOk);
    // Just now it was written, so that its time tells nothing and its content is read.
    const FailingCalls failing("read", EIO);
    EXPECT_EQ(writeDrawingFile(path, sampleDrawing(), reason, stamp), Vorn::eFileChangedOnDisk);
    EXPECT_EQ(failing.count(), 1);
}

TEST(SavingOnPosix, goesOnWhereASignalHasInterruptedIt) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    std::wstring reason;
    FileStamp stamp;
    {
        const FailingCalls failing("write", failingAt(1, EINTR));
        ASSERT_EQ(writeDrawingFile(path, sampleDrawing(), reason, stamp), Vorn::eOk) << toUtf8(reason);
        EXPECT_GT(failing.count(), 1);
    }
    Drawing drawing;
    ASSERT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
}

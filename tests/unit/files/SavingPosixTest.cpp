// What saving does about links and open files on POSIX systems, and reading about pipes; and both when the system stops
// them on the way.
#include "DrawingDifference.h"
#include "FailingCalls.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <utility>

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

TEST(SavingOnPosix, aPipeIsRefusedWithoutWaitingForIt) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"pipe");
    ASSERT_EQ(mkfifo(systemPath(path).c_str(), 0600), 0);
    Drawing drawing;
    std::wstring reason;
    EXPECT_EQ(readDrawingFile(path, drawing, reason), Vorn::eFileUnreadable);
    EXPECT_THAT(toUtf8(reason), HasSubstr("it isn't a file"));
}

namespace {

/// A drawing in a file, to be read while calls fail.
class ReadingOnPosix : public testing::Test {
  protected:
    void SetUp() override {
        FileStamp stamp;
        ASSERT_EQ(writeDrawingFile(path, sampleDrawing(), reason, stamp), Vorn::eOk);
    }
    void appendTo() const { std::ofstream(systemPath(path), std::ios::app) << "more"; }

    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    Drawing drawing;
    std::wstring reason;
};

/// An error at the first call only.
std::function<std::optional<int>()> once(int error) {
    return [error, left = 1]() mutable { return left-- > 0 ? std::optional(error) : std::nullopt; };
}

} // namespace

TEST_F(ReadingOnPosix, goesOnWhereASignalHasInterruptedIt) {
    const FailingCalls failing("read", once(EINTR));
    ASSERT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
    EXPECT_GT(failing.count(), 1);
}

TEST_F(ReadingOnPosix, tellsWhatTheDiskSays) {
    for (const char* function : {"read", "fstat"}) {
        const FailingCalls failing(function, [calls = 0]() mutable { // the first fstat() is that of opening the file
            return ++calls == 2 ? std::optional(EIO) : std::nullopt;
        });
        EXPECT_EQ(readDrawingFile(path, drawing, reason), Vorn::eFileUnreadable);
        EXPECT_THAT(toUtf8(reason), HasSubstr("can't be read: \"Input/output error\""));
    }
}

TEST_F(ReadingOnPosix, refusesAFileThatIsWrittenMeanwhile) {
    bool written = false;
    const FailingCalls watched("read", [&]() -> std::optional<int> {
        if (!std::exchange(written, true))
            appendTo();
        return std::nullopt;
    });
    EXPECT_EQ(readDrawingFile(path, drawing, reason), Vorn::eFileUnreadable);
    EXPECT_THAT(toUtf8(reason), HasSubstr("it is being written by another program"));
    EXPECT_TRUE(written);
}

TEST_F(ReadingOnPosix, refusesAFileThatEndsBeforeItsSize) {
    const FailingCalls cut("read", 0);
    EXPECT_EQ(readDrawingFile(path, drawing, reason), Vorn::eFileUnreadable);
    EXPECT_THAT(toUtf8(reason), HasSubstr("it is being written by another program"));
}

TEST_F(ReadingOnPosix, refusesAFileThatIsLargerThanADrawingCanBe) {
    // A file with a hole, which takes no room on the disk.
    std::filesystem::resize_file(systemPath(path), std::uintmax_t{1} << 31);
    EXPECT_EQ(readDrawingFile(path, drawing, reason), Vorn::eFileCutOff);
    EXPECT_THAT(toUtf8(reason), HasSubstr("is larger than a drawing file can be"));
}

TEST(SavingOnPosix, goesOnWhereASignalHasInterruptedIt) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    std::wstring reason;
    FileStamp stamp;
    {
        const FailingCalls failing("write", once(EINTR));
        ASSERT_EQ(writeDrawingFile(path, sampleDrawing(), reason, stamp), Vorn::eOk) << toUtf8(reason);
        EXPECT_GT(failing.count(), 1);
    }
    Drawing drawing;
    ASSERT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
}

TEST(PathsOnPosix, aNameThatIsNotUtf8IsShownByteByByte) {
    EXPECT_EQ(widePath("plans/\xC3\x9F.zdr"), L"plans/\x00DF.zdr");
    EXPECT_EQ(widePath("plans/\xDF.zdr"), L"plans/\x00DF.zdr");
}

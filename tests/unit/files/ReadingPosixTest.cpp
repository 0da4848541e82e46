// What reading does about pipes, signals and what the system says on POSIX systems.
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

namespace {

/// A drawing in a file, to be read while calls fail.
class ReadingOnPosix : public testing::Test {
  protected:
    void SetUp() override {
        FileStamp stamp;
        ASSERT_EQ(writeDrawingFile(path, sampleDrawing(), reason, stamp), Vorn::eOk);
    }

    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    Drawing drawing;
    std::wstring reason;
};

} // namespace

TEST_F(ReadingOnPosix, goesOnWhereASignalHasInterruptedIt) {
    const FailingCalls failing("read", failingAt(1, EINTR));
    ASSERT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
    EXPECT_GT(failing.count(), 1);
}

TEST_F(ReadingOnPosix, tellsWhatTheDiskSays) {
    for (const char* function : {"read", "fstat"}) {
        const FailingCalls failing(function, failingAt(2, EIO)); // the first fstat() is that of opening the file
        EXPECT_EQ(readDrawingFile(path, drawing, reason), Vorn::eFileUnreadable);
        EXPECT_THAT(toUtf8(reason), HasSubstr("can't be read: \"Input/output error\""));
    }
}

TEST_F(ReadingOnPosix, refusesAFileThatIsWrittenMeanwhile) {
    bool written = false;
    const FailingCalls watched("read", [&]() -> std::optional<int> {
        if (!std::exchange(written, true))
            std::ofstream(systemPath(path), std::ios::app) << "more";
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

TEST_F(ReadingOnPosix, refusesAPipeWithoutWaitingForIt) {
    const std::wstring pipe = folder.file(L"pipe");
    ASSERT_EQ(mkfifo(systemPath(pipe).c_str(), 0600), 0);
    EXPECT_EQ(readDrawingFile(pipe, drawing, reason), Vorn::eFileUnreadable);
    EXPECT_THAT(toUtf8(reason), HasSubstr("it isn't a file"));
}

TEST(PathsOnPosix, aNameThatIsNotUtf8IsShownByteByByte) {
    EXPECT_EQ(widePath("plans/\xC3\x9F.zdr"), L"plans/\x00DF.zdr");
    EXPECT_EQ(widePath("plans/\xDF.zdr"), L"plans/\x00DF.zdr");
}

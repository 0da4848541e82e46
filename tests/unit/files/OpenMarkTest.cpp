// Marks of files that are open in a program, seen by another one. Two marks of one program stand for those of two.
#include "TemporaryFolder.h"
#include "files/SystemFile.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

using zdr::OpenMark;

namespace {

class OpenMarkTest : public testing::Test {
  protected:
    TemporaryFolder folder;
    std::wstring plan = folder.file(L"plan.zdr");
    bool hasMark() const { return std::filesystem::exists(zdr::systemPath(plan + zdr::kMarkEnding)); }
};

} // namespace

TEST_F(OpenMarkTest, theSecondIsToldOfTheFirst) {
    const OpenMark first(plan);
    EXPECT_FALSE(first.isOthers());
    EXPECT_TRUE(hasMark());
    EXPECT_TRUE(OpenMark(plan).isOthers());
    EXPECT_TRUE(OpenMark(plan).isOthers()) << "one that isn't given leaves the first alone";
    EXPECT_FALSE(OpenMark(folder.file(L"other.zdr")).isOthers());
}

TEST_F(OpenMarkTest, goesWithItsObject) {
    OpenMark(plan).isOthers();
    EXPECT_FALSE(hasMark());
    EXPECT_EQ(folder.entries(), 0u);
    EXPECT_FALSE(OpenMark(plan).isOthers());
}

TEST_F(OpenMarkTest, isMoved) {
    OpenMark mark(plan);
    OpenMark moved(std::move(mark));
    EXPECT_TRUE(OpenMark(plan).isOthers());
    moved = {};
    EXPECT_FALSE(hasMark());
}

TEST_F(OpenMarkTest, oneThatWasLeftBehindCountsForNothing) {
    writeBytes(plan + zdr::kMarkEnding, {});
    {
        const OpenMark mark(plan);
        EXPECT_FALSE(mark.isOthers());
        EXPECT_TRUE(OpenMark(plan).isOthers());
    }
    EXPECT_FALSE(hasMark());
}

TEST_F(OpenMarkTest, aFolderThatCantHoldItHasNone) {
    EXPECT_FALSE(OpenMark(folder.file(L"missing/plan.zdr")).isOthers());
}

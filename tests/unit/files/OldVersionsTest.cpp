// Files of every version that was ever written stay readable. When the version grows, a file of the new one joins these
// and none is written anew.
#include "DrawingDifference.h"
#include "SampleDrawing.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

using namespace zdr;

TEST(OldVersions, theFirstIsReadAsItWasWritten) {
    Drawing drawing;
    std::wstring reason;
    const std::wstring path = widePath(TEST_DATA) + L"/version1.zdr";
    ASSERT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
}

// The linetype scale in drawing files: which version holds it, and which scales are refused.
#include "DrawingDifference.h"
#include "FilePatch.h"
#include "SampleDrawing.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

using namespace zdr;
using testing::HasSubstr;

namespace {

constexpr double kRefused[] = {0,
                               -1,
                               0.99 * kSmallestLinetypeScale,
                               1.01 * kLargestLinetypeScale,
                               1e300,
                               std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()};
constexpr const char* kReason = "the linetype scale isn't a number from 0.0001 to 1000000";

} // namespace

TEST(LinetypeScaleInFiles, isWrittenAndRead) {
    for (const double scale : {kSmallestLinetypeScale, 0.5, 25.4, kLargestLinetypeScale}) {
        Drawing drawing = sampleDrawing(), read;
        drawing.linetypeScale = scale;
        std::wstring reason;
        ASSERT_EQ(readDrawingBytes(FilePatch(drawing).bytes(), L"test", read, reason), Vorn::eOk) << toUtf8(reason);
        EXPECT_EQ(read.linetypeScale, scale);
        EXPECT_EQ(difference(read, drawing), "");
    }
}

TEST(LinetypeScaleInFiles, makesAFileOfTheThirdVersionUnlessItIsOne) {
    EXPECT_EQ(FilePatch(linetypeScaleDrawing()).root().version(), 3u);
    EXPECT_EQ(FilePatch(sampleDrawing()).root().version(), 1u);
    Drawing both = namedColorsDrawing();
    EXPECT_EQ(FilePatch(both).root().version(), 2u);
    both.linetypeScale = 2;
    EXPECT_EQ(FilePatch(both).root().version(), 3u);
}

TEST(LinetypeScaleInFiles, isRefusedBeyondItsBoundsWhenItIsRead) {
    for (const double scale : kRefused) {
        FilePatch file(linetypeScaleDrawing());
        file.set(&file.root(), file::Drawing::VT_LINETYPE_SCALE, scale);
        Drawing read;
        std::wstring reason;
        EXPECT_EQ(readDrawingBytes(file.bytes(), L"test", read, reason), Vorn::eFileCutOff) << scale;
        EXPECT_THAT(toUtf8(reason), HasSubstr(kReason));
    }
}

TEST(LinetypeScaleInFiles, isRefusedBeyondItsBoundsWhenItIsWritten) {
    for (const double scale : kRefused) {
        Drawing drawing = sampleDrawing();
        drawing.linetypeScale = scale;
        std::vector<std::byte> bytes;
        std::wstring reason;
        EXPECT_EQ(drawingBytes(drawing, bytes, reason), Vorn::eInvalidInput) << scale;
        EXPECT_THAT(toUtf8(reason), HasSubstr(kReason));
    }
}

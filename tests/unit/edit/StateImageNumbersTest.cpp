// Which image stands for which value.

#include "StateImageNumbers.h"

#include "GridColumns.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Images = std::array<int, 3>;

Images imagesOf(int kind) {
    return {stateImageNumber(kind, 0), stateImageNumber(kind, 1), stateImageNumber(kind, 2)};
}

} // namespace

TEST(StateImageNumbers, HaveAnImageForEachValueOfEachFlag) {
    EXPECT_EQ(imagesOf(1), (Images{9, 2, 18}));
    EXPECT_EQ(imagesOf(2), (Images{6, 0, 22}));
    EXPECT_EQ(imagesOf(3), (Images{8, 5, 19}));
    EXPECT_EQ(imagesOf(8), (Images{36, 35, 37}));
    EXPECT_EQ(imagesOf(10), (Images{13, 12, 20}));
}

TEST(StateImageNumbers, FallBackForEverythingElse) {
    for (const int kind : {-1, 0, 4, 5, 6, 7, 9, 11})
        for (const int value : {0, 1, 2})
            EXPECT_EQ(stateImageNumber(kind, value), 23) << kind << ", " << value;
    for (const int kind : {1, 2, 3, 8, 10})
        for (const int value : {-1, 3, 4})
            EXPECT_EQ(stateImageNumber(kind, value), 23) << kind << ", " << value;
}

TEST(StateImageNumbers, TellTheCurrentLayersRowFromTheOthers) {
    EXPECT_EQ(kRowMarkImage, 25);
    EXPECT_EQ(kCurrentRowMarkImage, 26);
}

TEST(GridColumnsTest, EachHasItsKindAndNineIsLeftOut) {
    EXPECT_EQ(std::vector<int>(std::begin(columnKind), std::end(columnKind)),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 10}));
}

TEST(GridColumnsTest, EachHasItsHeadingAndItsWidth) {
    std::vector<unsigned int> headings;
    std::vector<int> widths;
    for (const GridColumnShape& column : kGridColumns) {
        headings.push_back(column.headingId);
        widths.push_back(column.width);
    }
    EXPECT_EQ(headings, (std::vector<unsigned int>{114, 176, 167, 172, 166, 168, 169, 175, 174, 173}));
    EXPECT_EQ(widths, (std::vector<int>{150, 24, 24, 24, 24, 60, 60, 60, 24, 24}));
}

TEST(GridColumnsTest, FlagsAreTiedToTheirKinds) {
    EXPECT_EQ(flagOfKind(onKind), &CLayerRcd::m_isOff);
    EXPECT_EQ(flagOfKind(freezeKind), &CLayerRcd::m_isFrozen);
    EXPECT_EQ(flagOfKind(lockKind), &CLayerRcd::m_isLocked);
    EXPECT_EQ(flagOfKind(plotKind), &CLayerRcd::m_isPlottable);
    EXPECT_EQ(flagOfKind(newVpFreezeKind), &CLayerRcd::m_isNewVpFrozen);
    for (const int kind : {0, 4, 5, 6, 7, 9, 11})
        EXPECT_EQ(flagOfKind(kind), nullptr) << kind;
}

TEST(GridColumnsTest, AFlagIsKeptAsOneOrNought) {
    EXPECT_STREQ(flagText(true), L"1");
    EXPECT_STREQ(flagText(false), L"0");
}

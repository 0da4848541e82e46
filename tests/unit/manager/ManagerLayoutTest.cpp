// The manager's measures.
#include "ManagerLayout.h"

#include <gtest/gtest.h>

#include <iterator>

TEST(ManagerColumns, AreNameSpaceSameAndDescriptionWithTheirShares) {
    ASSERT_EQ(std::size(kManagerColumns), 4u);
    EXPECT_EQ(kManagerColumns[0].headingId, 114u);
    EXPECT_EQ(kManagerColumns[1].headingId, 115u);
    EXPECT_EQ(kManagerColumns[2].headingId, 132u);
    EXPECT_EQ(kManagerColumns[3].headingId, 116u);
    EXPECT_EQ(kManagerColumns[0].fraction, 0.4);
    EXPECT_EQ(kManagerColumns[1].fraction, 0.14);
    EXPECT_EQ(kManagerColumns[2].fraction, 0.1);
    EXPECT_EQ(kManagerColumns[3].fraction, 0.35);
}

TEST(ColumnWidth, IsCutTowardsZero) {
    EXPECT_EQ(columnWidth(450, 0.4), 180);
    EXPECT_EQ(columnWidth(459, 0.1), 45);
    EXPECT_EQ(columnWidth(459, 0.35), 160);
    EXPECT_EQ(columnWidth(0, 0.4), 0);
}

TEST(PanelWidth, IsTheDistanceOfTheRightEdges) {
    EXPECT_EQ(panelWidthFrom(747, 541), 206);
}

TEST(RowToSelect, IsTheRowOfTheName) {
    EXPECT_EQ(rowToSelect(5, 3), 3);
    EXPECT_EQ(rowToSelect(5, 0), 0);
}

TEST(RowToSelect, IsTheFirstWhenTheNameHasNoRow) {
    EXPECT_EQ(rowToSelect(5, -1), 0);
}

TEST(RowToSelect, IsNoneInAnEmptyList) {
    EXPECT_EQ(rowToSelect(0, -1), -1);
}

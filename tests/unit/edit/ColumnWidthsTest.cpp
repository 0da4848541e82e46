// The widths that the grid's columns need, as drawing tells them.

#include "ColumnWidths.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(ColumnWidths, GrowWithTheWidestRowAndNeverShrink) {
    ColumnWidths widths;
    noteWidth(widths, 5, 40);
    noteWidth(widths, 5, 90);
    noteWidth(widths, 5, 60);
    noteWidth(widths, 6, 20);
    EXPECT_THAT(widths, ElementsAre(Pair(5, 90), Pair(6, 20)));
}

TEST(ColumnWidths, FollowTheRowDrawnLastInTheColumnOfNames) {
    ColumnWidths widths;
    noteNameWidth(widths, 90);
    noteNameWidth(widths, 40);
    EXPECT_THAT(widths, ElementsAre(Pair(0, 40)));
}

TEST(ColumnWidths, AreForgottenButForTheirColumns) {
    ColumnWidths widths{{0, 80}, {5, 90}};
    zeroWidths(widths);
    EXPECT_THAT(widths, ElementsAre(Pair(0, 0), Pair(5, 0)));
    ColumnWidths none;
    zeroWidths(none);
    EXPECT_THAT(none, IsEmpty());
}

TEST(ColumnWidths, CutContentOffWhereTheyAreMoreThanTheColumnHas) {
    ColumnWidths widths{{5, 90}};
    EXPECT_TRUE(isCutOff(widths, 5, 89));
    EXPECT_FALSE(isCutOff(widths, 5, 90));
}

TEST(ColumnWidths, OfAColumnThatWasNeverDrawnCutNothingOff) {
    ColumnWidths widths;
    EXPECT_FALSE(isCutOff(widths, 7, 0));
    EXPECT_THAT(widths, ElementsAre(Pair(7, 0)));
}

} // namespace

// The field of the palette's cells, and the arrow keys on it.

#include "PaletteLayout.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

using pickers::cellOfIndex;
using pickers::indexAtCell;
using pickers::movedIndex;
using pickers::PaletteCell;
using pickers::PaletteMove;

TEST(PaletteLayout, eachOfThe255ColorsHasACellOfItsOwn) {
    std::set<std::pair<int, int>> cells;
    for (int index = 1; index <= 255; ++index) {
        const auto cell = cellOfIndex(index);
        ASSERT_TRUE(cell) << index;
        EXPECT_EQ(indexAtCell(*cell), index);
        cells.emplace(cell->column, cell->row);
    }
    EXPECT_EQ(cells.size(), 255u);
}

TEST(PaletteLayout, byBlockAndByLayerAndWhatIsBeyondHaveNone) {
    for (const int index : {-1, 0, 256, 1000})
        EXPECT_EQ(cellOfIndex(index), std::nullopt) << index;
}

TEST(PaletteLayout, outsideTheFieldAndInTheGapIsNoColor) {
    EXPECT_EQ(indexAtCell({-1, 0}), std::nullopt);
    EXPECT_EQ(indexAtCell({0, -1}), std::nullopt);
    EXPECT_EQ(indexAtCell({pickers::kPaletteColumns, 1}), std::nullopt);
    EXPECT_EQ(indexAtCell({0, pickers::kPaletteRows}), std::nullopt);
    EXPECT_EQ(indexAtCell({9, 0}), std::nullopt);
    EXPECT_EQ(indexAtCell({17, 0}), std::nullopt);
}

TEST(PaletteLayout, fullShadesStandAbovePaleOnes) {
    EXPECT_EQ(cellOfIndex(10), (PaletteCell{0, 1}));
    EXPECT_EQ(cellOfIndex(18), (PaletteCell{0, 5}));
    EXPECT_EQ(cellOfIndex(11), (PaletteCell{0, 6}));
    EXPECT_EQ(cellOfIndex(249), (PaletteCell{23, 10}));
}

TEST(PaletteMoves, goToTheNeighbours) {
    EXPECT_EQ(movedIndex(10, PaletteMove::right), 20);
    EXPECT_EQ(movedIndex(20, PaletteMove::left), 10);
    EXPECT_EQ(movedIndex(10, PaletteMove::down), 12);
    EXPECT_EQ(movedIndex(18, PaletteMove::down), 11);
    EXPECT_EQ(movedIndex(11, PaletteMove::up), 18);
    EXPECT_EQ(movedIndex(10, PaletteMove::up), 1);
}

TEST(PaletteMoves, stayAtTheEdges) {
    EXPECT_EQ(movedIndex(1, PaletteMove::left), 1);
    EXPECT_EQ(movedIndex(1, PaletteMove::up), 1);
    EXPECT_EQ(movedIndex(255, PaletteMove::right), 255);
    EXPECT_EQ(movedIndex(249, PaletteMove::down), 249);
}

TEST(PaletteMoves, stepOverTheGap) {
    EXPECT_EQ(movedIndex(9, PaletteMove::right), 250);
    EXPECT_EQ(movedIndex(250, PaletteMove::left), 9);
    EXPECT_EQ(movedIndex(10 + 9 * 10, PaletteMove::up), 9);
    EXPECT_EQ(movedIndex(10 + 17 * 10, PaletteMove::up), 250);
}

TEST(PaletteMoves, reachTheEndsOfTheRowAndOfTheField) {
    EXPECT_EQ(movedIndex(50, PaletteMove::rowStart), 10);
    EXPECT_EQ(movedIndex(50, PaletteMove::rowEnd), 240);
    EXPECT_EQ(movedIndex(5, PaletteMove::rowEnd), 255);
    EXPECT_EQ(movedIndex(50, PaletteMove::first), 1);
    EXPECT_EQ(movedIndex(50, PaletteMove::last), 249);
}

TEST(PaletteMoves, fromNoColorOfTheFieldLeadToTheFirst) {
    EXPECT_EQ(movedIndex(256, PaletteMove::left), 1);
    EXPECT_EQ(movedIndex(0, PaletteMove::last), 1);
}

TEST(PaletteMoves, everyColorIsReachedByArrowsAlone) {
    std::set<int> reached{1};
    std::set<int> fresh{1};
    while (!fresh.empty()) {
        std::set<int> next;
        for (const int index : fresh)
            for (const auto move : {PaletteMove::left, PaletteMove::right, PaletteMove::up, PaletteMove::down})
                if (const int to = movedIndex(index, move); reached.insert(to).second)
                    next.insert(to);
        fresh = next;
    }
    EXPECT_EQ(reached.size(), 255u);
}

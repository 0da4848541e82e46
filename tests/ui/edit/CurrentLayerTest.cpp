// Which layer is the state's current one: a double click on a name changes it.

#include "EditClicksTest.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

constexpr int kBase = 9;

class CurrentLayer : public EditClicksTest {
  protected:
    Script expectCurrent(int row) {
        return look("the current layer",
                    [=, this] { EXPECT_THAT(rowsWith(&CLayerRcd::m_isCurrent), ElementsAre(row)); })
            .waitUntil("the marks show it", [row](const View& view) { return rowMarkedOnScreen(view) == row; });
    }
    /// The only row whose mark looks unlike the others'; -1 when there is no single one.
    static int rowMarkedOnScreen(const View& view) {
        std::vector<std::vector<COLORREF>> marks;
        for (int row = 0; row < view.rowCount(grid); ++row)
            marks.push_back(markPixels(view, row));
        int found = -1;
        for (std::size_t row = 0; row < marks.size(); ++row) {
            if (std::count(marks.begin(), marks.end(), marks[row]) > 1)
                continue;
            if (found >= 0)
                return -1;
            found = static_cast<int>(row);
        }
        return found;
    }
    Script expectUnchanged() {
        return look("nothing", [this] {
            EXPECT_THAT(rowsWith(&CLayerRcd::m_isCurrent), ElementsAre(kBase));
            EXPECT_THAT(markedRows(), IsEmpty());
        });
    }
};

TEST_F(CurrentLayer, BecomesTheOneWhoseNameIsDoubleClicked) {
    open(tenRows());
    run(expectCurrent(kBase)
            .then(countFromHere())
            .doubleClickCell(grid, 4, nameGridColumn)
            .then(expectCurrent(4))
            .then(look("only the new one is marked", [this] {
                EXPECT_THAT(markedRows(), ElementsAre(4));
                EXPECT_THAT(callsBesideDrawing(), IsEmpty());
            })));
}

TEST_F(CurrentLayer, MovesOnWithTheNextDoubleClickSoThatThereIsAlwaysOne) {
    open(tenRows());
    run(Script()
            .doubleClickCell(grid, 4, nameGridColumn)
            .then(expectCurrent(4))
            .doubleClickCell(grid, 6, nameGridColumn)
            .then(expectCurrent(6))
            .doubleClickCell(grid, 4, nameGridColumn)
            .then(expectCurrent(4))
            .doubleClickCell(grid, 4, nameGridColumn)
            .then(expectCurrent(4))
            .then(look("marked once for good", [this] { EXPECT_THAT(markedRows(), ElementsAre(4, 6)); })));
}

TEST_F(CurrentLayer, IsWrittenByOkAsAChangeOfTheNewOneAlone) {
    open(house());
    edit(Script().doubleClickCell(grid, 1, nameGridColumn).click(IDOK));
    EXPECT_THAT(ui::callsOf("imp.updateLayerStateLayer"),
                ElementsAre("imp.updateLayerStateLayer(\"Ground floor\", object, true) = true"));
    EXPECT_THAT(ui::callsOf("record.setName"), ElementsAre("record.setName(null, \"Doors\") = 0"));
    const zdr::LayerState state = *stored(L"Ground floor");
    EXPECT_EQ(state.currentLayer, state.layers->names[2]);
}

TEST_F(CurrentLayer, CantBeAFrozenOne) {
    open(tenRows([](zdr::LayerColumns& columns) { columns.flags.set(indexOfRow(4), zdr::kLayerFrozen); }));
    run(Script()
            .doubleClickCell(grid, 4, nameGridColumn)
            .then(refusalIsShown(IDS_LSTATE_FROZEN_NOT_CURRENT))
            .then(expectUnchanged()));
}

TEST_F(CurrentLayer, CantBeOneOfAReference) {
    open(tenRows());
    run(look("of a reference", [this] { record(4).m_isDependent = true; })
            .doubleClickCell(grid, 4, nameGridColumn)
            .then(refusalIsShown(IDS_LSTATE_DEPENDENT_NOT_CURRENT))
            .then(expectUnchanged()));
}

TEST_F(CurrentLayer, OfAReferenceAndFrozenIsRefusedAsFrozenAlone) {
    open(tenRows());
    run(look("both", [this] { record(4).m_isDependent = record(4).m_isFrozen = true; })
            .doubleClickCell(grid, 4, nameGridColumn)
            .then(refusalIsShown(IDS_LSTATE_FROZEN_NOT_CURRENT))
            .look("no other message", [](const View& view) { EXPECT_TRUE(view.has(grid)); })
            .then(expectUnchanged()));
}

TEST_F(CurrentLayer, CanBeOneThatIsOffAndLocked) {
    open(tenRows());
    run(look("off and locked", [this] { record(4).m_isOff = record(4).m_isLocked = true; })
            .doubleClickCell(grid, 4, nameGridColumn)
            .then(expectCurrent(4)));
}

TEST_F(CurrentLayer, IsNotChangedByADoubleClickOnAnyOtherColumn) {
    open(tenRows());
    Script script;
    for (const int column : {onGridColumn, freezeGridColumn, lockGridColumn, plotGridColumn, newVpFreezeGridColumn})
        script.doubleClickCell(grid, 4, column);
    run(script.then(expectCurrent(kBase)));
}

TEST_F(CurrentLayer, IsNotChangedByADoubleClickBelowAllRows) {
    open(tenRows());
    run(Script().then(select({4})).doubleClickEmptySpace(grid).then(expectUnchanged()));
}

TEST_F(CurrentLayer, IsTheFirstSelectedOneWhenControlIsHeld) {
    // The first click takes row 5 into the selection, and the double click goes by the selection's first row.
    open(tenRows());
    run(Script().then(select({2})).doubleClickCell(grid, 5, nameGridColumn, ui::holdControl).then(expectCurrent(2)));
}

TEST_F(CurrentLayer, CanBeMadeAfterItsRowWasSortedToAnotherPlace) {
    open(tenRows());
    run(Script()
            .clickHeading(grid, nameGridColumn)
            .look("Base is the first row", [](const View& view) { EXPECT_EQ(view.cell(grid, 0, 0), L"Base"); })
            .then(expectCurrent(0))
            .doubleClickCell(grid, 3, nameGridColumn)
            .then(expectCurrent(3))
            .then(look("its record", [this] { EXPECT_EQ(record(3).m_name, L"Row 2"); })));
}

} // namespace

// Which rows a click on a cell changes: every way of pressing and releasing the button over rows that are selected or
// not, with and without keys held.

#include "EditClicksTest.h"

#include <algorithm>
#include <optional>

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

struct Cell {
    int row;
    int column;
};

using Rows = std::vector<int>;

struct Click {
    const char* what;
    Rows before; ///< selected in this order; the last one is where a range with Shift starts
    Cell pressed;
    unsigned held;
    bool keeps;     ///< while the button is down none of the rows can lose its selection
    Rows selection; ///< afterwards
    Rows changed;   ///< the rows whose flags have been turned
    /// Where the button is released, if elsewhere.
    std::optional<Cell> released = std::nullopt;
};

constexpr int kName = nameGridColumn;
constexpr int kLock = lockGridColumn;
constexpr int kOn = onGridColumn;
using ui::holdControl;
using ui::holdNothing;
using ui::holdShift;

const Click clicks[] = {
    {"a cell of no selected row", {}, {4, kLock}, holdNothing, false, {4}, {4}},
    {"a cell of the one selected row", {4}, {4, kLock}, holdNothing, false, {4}, {4}},
    {"a cell beside the one selected row", {4}, {6, kLock}, holdNothing, false, {6}, {6}},
    {"a cell of one of several", {2, 5, 7}, {5, kLock}, holdNothing, true, {2, 5, 7}, {2, 5, 7}},
    {"a cell of the first of several", {2, 5, 7}, {2, kLock}, holdNothing, true, {2, 5, 7}, {2, 5, 7}},
    {"a cell of the first row of all", {0, 3}, {0, kLock}, holdNothing, true, {0, 3}, {0, 3}},
    {"a cell of the last of several", {2, 5, 7}, {7, kLock}, holdNothing, true, {2, 5, 7}, {2, 5, 7}},
    {"a cell outside several", {2, 5, 7}, {9, kLock}, holdNothing, false, {9}, {9}},
    {"a name outside several", {2, 5, 7}, {9, kName}, holdNothing, false, {9}, {}},
    {"a name of one of several", {2, 5, 7}, {5, kName}, holdNothing, false, {5}, {}},
    {"a name, none selected", {}, {5, kName}, holdNothing, false, {5}, {}},
    {"Ctrl, a cell of no selected row", {}, {4, kLock}, holdControl, false, {4}, {4}},
    {"Ctrl, a cell of the one selected row", {4}, {4, kLock}, holdControl, false, {}, {}},
    {"Ctrl, a cell below the one selected row", {4}, {6, kLock}, holdControl, false, {4, 6}, {4}},
    {"Ctrl, a cell above the one selected row", {4}, {1, kLock}, holdControl, false, {1, 4}, {1}},
    {"Ctrl, a cell of one of several", {2, 5, 7}, {5, kLock}, holdControl, true, {2, 5, 7}, {2, 5, 7}},
    {"Ctrl, a cell of the first of several", {2, 5, 7}, {2, kLock}, holdControl, true, {2, 5, 7}, {2, 5, 7}},
    {"Ctrl, a cell below several", {2, 5, 7}, {9, kLock}, holdControl, false, {2, 5, 7, 9}, {2, 5, 7}},
    {"Ctrl, a cell above several", {2, 5, 7}, {0, kLock}, holdControl, false, {0, 2, 5, 7}, {0}},
    {"Ctrl, a name of one of several", {2, 5, 7}, {5, kName}, holdControl, false, {2, 7}, {}},
    {"Ctrl, a name outside several", {2, 5, 7}, {4, kName}, holdControl, false, {2, 4, 5, 7}, {}},
    {"Shift, a cell below the one selected row", {2}, {5, kLock}, holdShift, false, {2, 3, 4, 5}, {2}},
    {"Shift, a cell above the one selected row", {4}, {2, kLock}, holdShift, false, {2, 3, 4}, {2}},
    {"Shift, a cell of one of several", {2, 5, 7}, {5, kLock}, holdShift, true, {2, 5, 6, 7}, {2, 5, 7}},
    {"Shift, a cell below several", {2, 5, 7}, {9, kLock}, holdShift, false, {7, 8, 9}, {2, 5, 7}},
    {"Shift, a cell above several", {7, 5, 2}, {0, kLock}, holdShift, false, {0, 1, 2}, {0}},
    {"Shift, a name of one of several", {2, 5, 7}, {5, kName}, holdShift, false, {5, 6, 7}, {}},
    {"Ctrl and Shift, a cell below several", {2, 5}, {7, kLock}, holdControl | holdShift, false, {2, 5, 6, 7}, {2, 5}},
    {"Ctrl and Shift, a cell of one of several",
     {2, 7, 5},
     {7, kLock},
     holdControl | holdShift,
     true,
     {2, 5, 6, 7},
     {2, 5, 7}},
    // With the button released elsewhere it is the row of the press and the column of the release that count. A list of
    // Windows takes the way to another row for the beginning of a drag, and tells of no click; Wine's does.
    {"released on another cell of the row", {2, 5}, {5, kOn}, holdNothing, true, {2, 5}, {2, 5}, Cell{5, kLock}},
    {"released on the name", {2, 5}, {5, kLock}, holdNothing, true, {2, 5}, {}, Cell{5, kName}},
    {"released on another row", {2, 5}, {5, kLock}, holdNothing, true, {2, 5}, {2, 5}, Cell{8, kLock}},
    {"released on another row, one selected", {}, {5, kLock}, holdNothing, false, {5}, {5}, Cell{8, kLock}},
    {"released on another of several rows", {2, 5}, {2, kLock}, holdNothing, true, {2, 5}, {2, 5}, Cell{5, kLock}},
};

class SelectionGame : public EditClicksTest {
  protected:
    Script forget() {
        return look("all rows unchanged", [this] {
            for (int row = 0; row < 10; ++row) {
                record(row).m_isLocked = record(row).m_isOff = record(row).m_isModified = false;
                dialog().m_layerGrid.SetItemText(row, kLock, L"0");
                dialog().m_layerGrid.SetItemText(row, kOn, L"0");
            }
        });
    }
    Script play(const Click& click) {
        const Cell up = click.released.value_or(click.pressed);
        Rows before = click.before;
        std::sort(before.begin(), before.end());
        return Script()
            .then(forget())
            .then(select(click.before))
            .pressCell(grid, click.pressed.row, click.pressed.column, click.held)
            .then(look(click.what,
                       [=, this] {
                           EXPECT_THAT(dialog().m_selectedRows, ElementsAreArray(before)) << click.what;
                           EXPECT_EQ(dialog().m_keepSelection, click.keeps) << click.what;
                           EXPECT_THAT(markedRows(), IsEmpty()) << click.what << ": nothing before the release";
                       }))
            .releaseOverCell(grid, up.row, up.column)
            .look(click.what, [=, this](const View& view) {
                EXPECT_THAT(view.selectedRows(grid), ElementsAreArray(click.selection)) << click.what;
                EXPECT_FALSE(dialog().m_keepSelection) << click.what;
                EXPECT_THAT(rowsWith(&CLayerRcd::m_isLocked), ElementsAreArray(click.changed)) << click.what;
                EXPECT_THAT(rowsShowing(kLock, L"1"), ElementsAreArray(click.changed)) << click.what;
                EXPECT_THAT(markedRows(), ElementsAreArray(click.changed)) << click.what;
                EXPECT_THAT(rowsWith(&CLayerRcd::m_isOff), IsEmpty()) << click.what;
            });
    }
};

TEST_F(SelectionGame, ChangesTheRowsOfTheTable) {
    open(tenRows());
    Script script;
    for (const Click& click : clicks)
        script.then(play(click));
    run(script);
}

TEST_F(SelectionGame, APressOnANameGivesUpTheOthersAtOnce) {
    open(tenRows());
    run(Script()
            .then(select({2, 5, 7}))
            .pressCell(grid, 5, kName)
            .then(expectSelected({5}))
            .releaseOverCell(grid, 5, kName));
}

TEST_F(SelectionGame, APressOnOneOfSeveralGivesTheGridTheFocusAndOnlyThatRowItsFrame) {
    open(tenRows());
    run(Script()
            .then(select({2, 5, 7}))
            .press(VK_TAB)
            .look("elsewhere", [](const View& view) { EXPECT_NE(view.focusedControl(), grid); })
            .pressCell(grid, 5, kLock)
            .look("the grid",
                  [](const View& view) {
                      EXPECT_EQ(view.focusedControl(), grid);
                      EXPECT_EQ(view.focusedRow(grid), 5);
                  })
            .releaseOverCell(grid, 5, kLock));
}

TEST_F(SelectionGame, APressOnOneOfSeveralFocusesTheGridBeforeARowChanges) {
    open(tenRows());
    run(Script()
            .then(select({2, 5, 7}))
            .press(VK_TAB)
            .then(look("elsewhere", [this] { dialog().notifications.clear(); }))
            .pressCell(grid, 5, kName)
            .then(look("the order",
                       [this] {
                           std::erase_if(dialog().notifications, [](UINT code) {
                               return code != static_cast<UINT>(NM_SETFOCUS) && code != LVN_ITEMCHANGING;
                           });
                           ASSERT_THAT(dialog().notifications, testing::Contains(LVN_ITEMCHANGING));
                           EXPECT_EQ(dialog().notifications.front(), static_cast<UINT>(NM_SETFOCUS));
                       }))
            .releaseOverCell(grid, 5, kName));
}

TEST_F(SelectionGame, AClickThatIsToldWithoutARowEndsTheVetoAndEditsNothing) {
    // On Windows the list tells of the click in the midst of the press, and the release isn't seen.
    open(tenRows());
    run(Script().then(select({2, 5})).then(look("such a click", [this] {
        dialog().m_keepSelection = true;
        NMITEMACTIVATE click = {};
        click.hdr = {dialog().m_layerGrid.m_hWnd, IDC_LAYER_GRID, static_cast<UINT>(NM_CLICK)};
        click.iItem = -1;
        dialog().SendMessage(WM_NOTIFY, IDC_LAYER_GRID, reinterpret_cast<LPARAM>(&click));
        EXPECT_FALSE(dialog().m_keepSelection);
        EXPECT_THAT(markedRows(), IsEmpty());
    })));
}

TEST_F(SelectionGame, TheSelectionCanBeGivenUpAgainAfterAClickThatHasKeptIt) {
    open(tenRows());
    run(Script()
            .then(select({2, 5, 7}))
            .clickCell(grid, 5, kLock)
            .then(expectSelected({2, 5, 7}))
            .clickEmptySpace(grid)
            .then(expectSelected({})));
}

TEST_F(SelectionGame, AClickBelowAllRowsChangesNothing) {
    open(tenRows());
    run(Script().then(select({2, 5})).clickEmptySpace(grid).then(expectSelected({})).then(look("nothing", [this] {
        EXPECT_THAT(markedRows(), IsEmpty());
        EXPECT_THAT(dialog().m_selectedRows, testing::ElementsAre(2, 5)) << "the snapshot is from the press";
    })));
}

TEST_F(SelectionGame, RowsThatAreRemovedBeforeTheReleaseAreLeftOut) {
    open(tenRows());
    run(Script()
            .then(select({0, 7, 9}))
            .pressCell(grid, 0, kLock)
            .pressMnemonicOf(IDC_REMOVE_LAYERS)
            .waitUntil("three rows are gone", [](const View& view) { return view.rowCount(grid) == 7; })
            .press('A', holdControl)
            .then(look("the rows of the press",
                       [this] { EXPECT_THAT(dialog().m_selectedRows, testing::ElementsAre(0, 7, 9)); }))
            .releaseOverCell(grid, 0, kLock)
            .then(look("the one that is left", [this] {
                EXPECT_THAT(rowsWith(&CLayerRcd::m_isLocked), testing::ElementsAre(0));
                EXPECT_THAT(markedRows(), testing::ElementsAre(0));
            })));
}

} // namespace

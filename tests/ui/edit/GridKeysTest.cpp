// Keys in the dialog, and the double click on a divider between headings.

#include "EditClicksTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

const std::vector<int> kAll = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};

class GridKeys : public EditClicksTest {
  protected:
    Script expectKeysOfGrid(const std::vector<WORD>& keys) {
        return look("the keys that the grid has got", [=, this] { EXPECT_EQ(dialog().keysOfGrid, keys); });
    }
    static Script selectedAll() {
        return expectSelected(kAll).look("the focus", [](const View& view) { EXPECT_EQ(view.focusedControl(), grid); });
    }
};

TEST_F(GridKeys, CtrlASelectsAllRowsAndGoesNoFurther) {
    open(tenRows());
    run(Script()
            .then(select({4}))
            .then(countFromHere())
            .press(L'A', ui::holdControl)
            .then(selectedAll())
            .then(expectKeysOfGrid({VK_CONTROL}))
            .then(look("nothing else", [this] {
                EXPECT_THAT(markedRows(), IsEmpty());
                EXPECT_THAT(callsBesideDrawing(), IsEmpty());
            })));
}

TEST_F(GridKeys, CtrlASelectsAllRowsFromEveryOtherControlAndGivesTheGridTheFocus) {
    open(tenRows());
    Script script;
    for (const int control : {IDC_ADD_LAYERS, IDC_REMOVE_LAYERS, IDOK, IDCANCEL, ID_HELP})
        script.then(select({4}))
            .waitUntil("the focus is there",
                       [control](const View& view) {
                           SetFocus(view.control(control));
                           return view.focusedControl() == control;
                       })
            .press(L'A', ui::holdControl)
            .then(selectedAll());
    run(script);
}

TEST_F(GridKeys, CtrlAWithAnEmptyGridIsTakenAndSelectsNothing) {
    open(tenRows());
    run(Script()
            .look("no rows", [](const View& view) { ASSERT_EQ(view.rowCount(grid), 0); })
            .clickEmptySpace(grid)
            .press(L'A', ui::holdControl)
            .then(expectSelected({}))
            .then(expectKeysOfGrid({VK_CONTROL}))
            .look("the focus", [](const View& view) { EXPECT_EQ(view.focusedControl(), grid); }),
        L"No such state");
}

TEST_F(GridKeys, CtrlAThenAClickOnACellChangesAllRows) {
    open(tenRows());
    run(Script().press(L'A', ui::holdControl).clickCell(grid, 6, lockGridColumn).then(look("all", [this] {
        EXPECT_EQ(rowsWith(&CLayerRcd::m_isLocked), kAll);
        EXPECT_EQ(markedRows(), kAll);
    })));
}

TEST_F(GridKeys, AWithoutControlGoesOnToTheGrid) {
    open(tenRows());
    run(Script().then(select({4})).press(L'A').then(expectSelected({4})).then(expectKeysOfGrid({L'A'})));
}

TEST_F(GridKeys, NoKeyEditsACellOrRemovesARow) {
    open(tenRows());
    Script script = select({4, 6});
    for (const WORD key : {VK_DELETE, VK_SPACE, VK_F2, VK_INSERT, VK_BACK})
        script.press(key);
    run(script.then(look("nothing", [this] {
        EXPECT_THAT(rowsWith(&CLayerRcd::m_isRemoved), IsEmpty());
        EXPECT_EQ(dialog().m_layerGrid.GetItemCount(), 10);
        EXPECT_THAT(markedRows(), IsEmpty());
    })));
}

TEST_F(GridKeys, ArrowsMoveTheSelectionAndTheNextClickGoesByItAsItIsThen) {
    open(tenRows());
    run(Script()
            .then(select({4}))
            .press(VK_DOWN, ui::holdShift)
            .press(VK_DOWN, ui::holdShift)
            .then(expectSelected({4, 5, 6}))
            .clickCell(grid, 5, lockGridColumn)
            .then(look("three", [this] { EXPECT_THAT(markedRows(), ElementsAre(4, 5, 6)); })));
}

class Dividers : public EditClicksTest {
  protected:
    static Script doubleClickDivider(int column) {
        return Script().doubleClickPoint("the right edge of a heading", [column](const View& view) {
            const std::optional<RECT> heading = view.headingRect(grid, column);
            return heading ? std::optional(POINT{heading->right, (heading->top + heading->bottom) / 2}) : std::nullopt;
        });
    }
    Script waitForWidth(int column, std::function<int()> wanted) {
        return Script().waitUntil("the column is as wide as its content", [=](const View& view) {
            return view.columnWidths(grid)[static_cast<std::size_t>(column)] == wanted();
        });
    }
};

TEST_F(Dividers, GiveAColumnTheWidthThatItsDrawnContentNeeds) {
    open(tenRows());
    Script script;
    for (const int column : {colorGridColumn, linetypeGridColumn, lineWeightGridColumn, plotStyleGridColumn})
        script.waitUntil("the grid is drawn", [this](const View&) { return dialog().m_columnWidths.size() == 10; })
            .then(doubleClickDivider(column))
            .then(waitForWidth(column, [=, this] { return dialog().m_columnWidths.at(column); }));
    run(script);
}

TEST_F(Dividers, GoByWhatIsNotedOfTheColumnAlone) {
    open(tenRows());
    run(look("as if it needed that",
             [this] {
                 dialog().m_columnWidths[nameGridColumn] = 123;
                 dialog().m_columnWidths[linetypeGridColumn] = 234;
             })
            .then(doubleClickDivider(linetypeGridColumn))
            .then(waitForWidth(linetypeGridColumn, [] { return 234; })));
}

TEST_F(Dividers, DrawTheWholeDialogAgainAndMakeNoOtherCall) {
    open(tenRows());
    run(Script()
            .then(countPaintsFromRest())
            .then(countFromHere())
            .then(doubleClickDivider(linetypeGridColumn))
            .then(wholeDialogIsDrawn())
            .then(look("the calls", [this] {
                EXPECT_THAT(callsBesideDrawing(), IsEmpty());
                EXPECT_EQ(dialog().m_sortKey, 0) << "it is no click on the heading";
            })));
}

TEST_F(Dividers, DrawTheWholeDialogAgainAlsoWhereTheWidthIsNotKnown) {
    open(tenRows());
    run(Script()
            .then(countPaintsFromRest())
            .then(look("nothing is known", [this] { dialog().m_columnWidths.clear(); }))
            .then(doubleClickDivider(linetypeGridColumn))
            .then(wholeDialogIsDrawn())
            .then(look("all is known", [this] { EXPECT_EQ(dialog().m_columnWidths.size(), 10u); })));
}

TEST_F(Dividers, LeaveTheWidthToTheListWhereNothingHasBeenDrawn) {
    // With no row there is nothing to draw. The list makes the column as wide as its own texts, here the heading.
    open(tenRows());
    std::vector<int> before;
    run(Script()
            .look("the widths",
                  [&](const View& view) {
                      EXPECT_THAT(dialog().m_columnWidths, IsEmpty());
                      before = view.columnWidths(grid);
                  })
            .then(doubleClickDivider(nameGridColumn))
            .look("no entry is made",
                  [&](const View& view) {
                      EXPECT_THAT(dialog().m_columnWidths, IsEmpty());
                      EXPECT_EQ(view.columnWidths(grid)[1], before[1]);
                  }),
        L"No such state");
}

} // namespace

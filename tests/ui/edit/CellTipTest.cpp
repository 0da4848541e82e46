// The tip that shows the whole text of a cell that is cut off, under a real pointer.

#include "EditTest.h"

#include "GridColumns.h"
#include "engine/DatabaseAccess.h"

#include <commctrl.h>

namespace {

using ui::Script;
using ui::TestDrawing;
using ui::View;

constexpr int kNarrow = 30;
constexpr int kWide = 250;

class CellTip : public EditTest {
  protected:
    static POINT middleOfCell(int row, int column) {
        const View view = View::facing();
        const RECT cell = view.cellRect(grid, row, column).value_or(RECT{});
        return {(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
    }
    static Script pointAtCell(int row, int column) {
        return Script().pointAt([row, column] { return middleOfCell(row, column); });
    }
    static Script setWidth(int column, int width) {
        return Script().look("a column changes its width", [column, width](const View& view) {
            ListView_SetColumnWidth(view.control(grid), column, width);
            UpdateWindow(view.control(grid));
        });
    }
    /// Opens the dialog on the house and on the state, and leaves it by Escape.
    void run(Script script) { edit(script.press(VK_ESCAPE)); }
};

TEST_F(CellTip, ShowsTheWholeTextOfEachColumnThatHasOne) {
    open(house());
    const std::pair<int, const wchar_t*> columns[] = {{nameGridColumn, L"Doors"},
                                                      {colorGridColumn, L"Green"},
                                                      {linetypeGridColumn, L"Continuous"},
                                                      {lineWeightGridColumn, L"Default"},
                                                      {plotStyleGridColumn, L"Color_3"}};
    Script script;
    for (const auto& [column, text] : columns)
        script.then(setWidth(column, kNarrow)).then(pointAtCell(1, column)).waitForTip(text);
    run(script);
}

TEST_F(CellTip, ShowsNothingForAnImageThoughItIsCutOff) {
    open(house());
    Script script;
    for (const int column : {onGridColumn, newVpFreezeGridColumn})
        script.then(setWidth(column, 8)).then(pointAtCell(1, column)).seeNoTip();
    run(script);
}

TEST_F(CellTip, StaysAwayFromATextThatFitsAndGoesOnceItsColumnIsWide) {
    open(house());
    run(Script()
            .then(pointAtCell(1, nameGridColumn))
            .seeNoTip()
            .then(setWidth(linetypeGridColumn, kNarrow))
            .then(pointAtCell(1, linetypeGridColumn))
            .waitForTip(L"Continuous")
            .then(setWidth(linetypeGridColumn, kWide))
            .then(pointAtCell(2, linetypeGridColumn))
            .waitForTip(L"")
            .then(pointAtCell(1, linetypeGridColumn))
            .seeNoTip());
}

TEST_F(CellTip, FollowsThePointerFromCellToCell) {
    open(house());
    run(Script()
            .then(setWidth(nameGridColumn, kNarrow))
            .then(setWidth(colorGridColumn, 25))
            .then(pointAtCell(1, nameGridColumn))
            .waitForTip(L"Doors")
            .then(pointAtCell(2, nameGridColumn))
            .waitForTip(L"Walls")
            .then(pointAtCell(2, colorGridColumn))
            .waitForTip(L"White")
            .then(pointAtCell(0, colorGridColumn))
            .waitForTip(L"Cyan"));
}

TEST_F(CellTip, StaysAwayFromTheHeadingsAndTheSpaceBelowTheRows) {
    open(house());
    run(Script()
            .then(setWidth(nameGridColumn, kNarrow))
            .pointAt([] {
                const RECT heading = View::facing().headingRect(grid, nameGridColumn).value_or(RECT{});
                return POINT{heading.left + 5, (heading.top + heading.bottom) / 2};
            })
            .seeNoTip()
            .then(pointAtCell(3, nameGridColumn))
            .waitForTip(L"Base")
            .pointAt([] { return View::facing().emptySpace(grid).value_or(POINT{}); })
            .waitForTip(L"")
            .seeNoTip());
}

TEST_F(CellTip, GivesWayToAButtonsTip) {
    open(house());
    run(Script()
            .then(setWidth(nameGridColumn, kNarrow))
            .then(pointAtCell(3, nameGridColumn))
            .waitForTip(L"Base")
            .hover(IDC_REMOVE_LAYERS)
            .waitForTip(resourceText(IDS_LSTATE_REMOVE_LAYERS_TIP))
            .then(pointAtCell(2, nameGridColumn))
            .waitForTip(L"Walls"));
}

TEST_F(CellTip, SaysAsMuchAsItHasRoomForOrNothing) {
    const std::wstring fits(79, L'i'), tooLong(80, L'j');
    open(TestDrawing().layer(fits).layer(tooLong).state(L"Ground floor", MaskAllProperties));
    run(Script()
            .then(setWidth(nameGridColumn, kNarrow))
            .then(pointAtCell(1, nameGridColumn))
            .waitForTip(fits)
            .then(pointAtCell(0, nameGridColumn))
            .waitForTip(L"")
            .seeNoTip());
}

TEST_F(CellTip, SaysTheColoursPlotStyleWhereThereAreNoNamedOnesToo) {
    open(house());
    zdr::Drawing drawing = house().drawing();
    drawing.colorDependentPlotStyles = true;
    engine::replaceDrawing(database(), drawing);
    run(Script()
            .then(setWidth(plotStyleGridColumn, kNarrow))
            .then(pointAtCell(0, plotStyleGridColumn))
            .waitForTip(L"Color_4"));
}

TEST_F(CellTip, SaysTheNewTextAfterAnEdit) {
    open(house());
    run(Script()
            .then(setWidth(colorGridColumn, 25))
            .then(pointAtCell(1, colorGridColumn))
            .waitForTip(L"Green")
            .clickHeading(grid, nameGridColumn)
            .then(pointAtCell(1, colorGridColumn))
            .waitForTip(L"Green")
            .then(pointAtCell(2, colorGridColumn))
            .waitForTip(L"Cyan"));
}

TEST_F(CellTip, OfTheSameCellInTheNextDialogIsThatDialogs) {
    open(house().state(L"Other", MaskAllProperties, L"", [](zdr::LayerColumns& columns) { columns.colors.set(2, 1); }));
    const Script tipOf = Script().then(setWidth(colorGridColumn, 25)).then(pointAtCell(1, colorGridColumn));
    edit(Script().then(tipOf).waitForTip(L"Green").press(VK_ESCAPE));
    edit(L"Other", Script().then(tipOf).waitForTip(L"Red").press(VK_ESCAPE));
}

} // namespace

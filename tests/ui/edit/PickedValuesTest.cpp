// The values that are picked for several rows, one kind after the other.

#include "PickingTest.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using ui::Script;
using ui::View;

class Picking : public PickingTest {};

/// Picks the row below the one that a picker's list begins with.
Script pickTheNext() {
    return Script().waitForControl(IDC_PICKER_LIST).press(VK_DOWN).click(IDOK).waitForControl(grid);
}

TEST_F(Picking, AColourGoesToAllRowsAsTheirValueAndText) {
    openDrawing();
    run(Script()
            .then(select({2, 5, 7}))
            .then(countFromHere())
            .clickCell(grid, 5, colorGridColumn)
            .waitForControl(IDC_COLOR_PALETTE)
            .press(VK_LEFT)
            .click(IDOK)
            .waitForControl(grid)
            .then(expectSelected({2, 5, 7}))
            .then(look("the colour", [this] {
                EXPECT_EQ(lineOf("keledSetColorDialogTrueColor"),
                          "keledSetColorDialogTrueColor(color 7, false, color 7, 7) = 1, color=color 6");
                const CString name = record(2).m_color.colorNameForDisplay();
                EXPECT_EQ(name.Find(L"Magenta"), 0);
                for (const int row : {2, 5, 7}) {
                    EXPECT_EQ(record(row).m_color.colorIndex(), 6) << row;
                    EXPECT_EQ(dialog().m_layerGrid.GetItemText(row, colorGridColumn), name) << row;
                }
                EXPECT_THAT(markedRows(), ElementsAre(2, 5, 7));
                EXPECT_THAT(rowsShowing(colorGridColumn, L""), ElementsAre(0, 1, 3, 4, 6, 8, 9));
            })));
}

TEST_F(Picking, AColourBeginsWithThatOfTheFirstRow) {
    openDrawing();
    run(look("another colour", [this] { static_cast<void>(record(2).m_color.setColorIndex(3)); })
            .then(select({2, 5}))
            .then(countFromHere())
            .clickCell(grid, 5, colorGridColumn)
            .waitForControl(IDC_COLOR_PALETTE)
            .press(VK_ESCAPE)
            .waitForControl(grid)
            .then(look("the call", [] {
                EXPECT_EQ(lineOf("keledSetColorDialogTrueColor"),
                          "keledSetColorDialogTrueColor(color 3, false, color 3, 7) = 0");
            })));
}

TEST_F(Picking, ALinetypeGoesToAllRowsWithItsNameAndIdAndTheHostsTextIsFreed) {
    openDrawing();
    run(Script()
            .then(select({2, 5, 7}))
            .then(countFromHere())
            .clickCell(grid, 5, linetypeGridColumn)
            .then(pickTheNext())
            .then(expectSelected({2, 5, 7}))
            .then(look("the linetype", [this] {
                EXPECT_EQ(lineOf("keledLinetypeDialog"),
                          "keledLinetypeDialog(#E0, false) = true, name=\"Dashed\", chosen=#E1");
                EXPECT_THAT(ui::callsOf("kelutDelBuffer"), Contains("kelutDelBuffer(\"Dashed\")"));
                EXPECT_THAT(instruments::ledger(), Not(Contains(HasSubstr("picked linetype"))));
                for (const int row : {2, 5, 7}) {
                    EXPECT_EQ(record(row).m_linetypeName, L"Dashed") << row;
                    EXPECT_EQ(instruments::describe(record(row).m_linetypeId), "#E1") << row;
                }
                EXPECT_THAT(rowsShowing(linetypeGridColumn, L"Dashed"), ElementsAre(2, 5, 7));
                EXPECT_THAT(markedRows(), ElementsAre(2, 5, 7));
            })));
}

TEST_F(Picking, ALineweightGoesToAllRowsAndIntoNoText) {
    openDrawing();
    run(Script()
            .then(select({2, 5, 7}))
            .then(countFromHere())
            .clickCell(grid, 5, lineWeightGridColumn)
            .waitForControl(IDC_PICKER_LIST)
            .clickCellOf(IDC_PICKER_LIST, L"0.13 mm")
            .click(IDOK)
            .waitForControl(grid)
            .then(expectSelected({2, 5, 7}))
            .then(look("the lineweight", [this] {
                EXPECT_EQ(lineOf("keledLineWeightDialog"), "keledLineWeightDialog(-3, false) = true, chosen=13");
                for (const int row : {2, 5, 7})
                    EXPECT_EQ(record(row).m_lineWeight, 13) << row;
                EXPECT_EQ(record(4).m_lineWeight, -3);
                EXPECT_THAT(rowsShowing(lineWeightGridColumn, L""), SizeIs(kRows));
                EXPECT_THAT(markedRows(), ElementsAre(2, 5, 7));
            })));
}

TEST_F(Picking, APlotStyleLeavesOutRowsThatAreRemovedBeforeTheRelease) {
    openDrawing();
    run(Script()
            .then(select({0, 7, 9}))
            .pressCell(grid, 0, plotStyleGridColumn)
            .pressMnemonicOf(IDC_REMOVE_LAYERS)
            .waitUntil("three rows are gone", [](const View& view) { return view.rowCount(grid) == kRows - 3; })
            .press('A', ui::holdControl)
            .then(look("another style", [this] { record(0).m_plotStyleName = L"Fine"; }))
            .releaseOverCell(grid, 0, plotStyleGridColumn)
            .then(pickTheNext())
            .then(look("the one that is left", [this] {
                EXPECT_EQ(record(0).m_plotStyleName, L"Normal");
                EXPECT_THAT(markedRows(), ElementsAre(0));
            })));
}

TEST_F(Picking, APlotStyleGoesToAllRowsWithItsNameAndId) {
    openDrawing();
    run(Script()
            .then(select({2, 5, 7}))
            .then(look("another style", [this] { record(2).m_plotStyleName = L"Fine"; }))
            .then(countFromHere())
            .clickCell(grid, 5, plotStyleGridColumn)
            .then(pickTheNext())
            .then(look("the style of the others",
                       [] {
                           EXPECT_EQ(lineOf("keledPlotstyleDialog"),
                                     "keledPlotstyleDialog(\"Fine\", false) = true, chosen=\"Normal\"");
                       }))
            .clickCell(grid, 5, plotStyleGridColumn)
            .waitForControl(IDC_PICKER_LIST)
            .press(VK_UP)
            .click(IDOK)
            .waitForControl(grid)
            .then(expectSelected({2, 5, 7}))
            .then(look("the plot style", [this] {
                for (const int row : {2, 5, 7}) {
                    EXPECT_EQ(record(row).m_plotStyleName, L"Fine") << row;
                    EXPECT_EQ(instruments::describe(record(row).m_plotStyleId), "#F8") << row;
                }
                EXPECT_THAT(rowsShowing(plotStyleGridColumn, L""), SizeIs(kRows)) << "drawn from the records";
                EXPECT_THAT(markedRows(), ElementsAre(2, 5, 7));
                EXPECT_THAT(instruments::ledger(), Not(Contains(HasSubstr("picked plot style"))));
            })));
}

class FailedLookUp : public PickingTest, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Calls, FailedLookUp, testing::Values("getPlotStyleNameDictionary", "dictionary.getAt"));

TEST_P(FailedLookUp, KeepsAPlotStyleFromTheRecords) {
    openDrawing();
    run(Script()
            .then(select({2, 5}))
            .clickCell(grid, 5, plotStyleGridColumn)
            .waitForControl(IDC_PICKER_LIST)
            .press(VK_UP)
            .then(look("it can't be looked up",
                       [] {
                           instruments::clearTrace();
                           instruments::failCall(GetParam(), 1);
                       }))
            .click(IDOK)
            .waitForControl(grid)
            .then(look("as before", [this] {
                EXPECT_TRUE(instruments::faultStruck());
                expectValuesAsRead(2);
                expectValuesAsRead(5);
                EXPECT_THAT(markedRows(), ElementsAre(2)) << "only the first row";
                EXPECT_THAT(instruments::ledger(), Not(Contains(HasSubstr("picked plot style"))));
            })));
}

TEST_F(Picking, APlotStyleIsNotPickedWhereItFollowsTheColour) {
    openDrawing(true);
    run(Script()
            .then(countFromHere())
            .clickCell(grid, kRow, plotStyleGridColumn)
            .look("nothing", [this](const View& view) {
                EXPECT_TRUE(view.has(grid));
                EXPECT_THAT(callsBesideDrawing(), IsEmpty());
                EXPECT_THAT(markedRows(), IsEmpty());
            }));
}

TEST_F(Picking, CtrlAInAPickerIsNotForTheGrid) {
    openDrawing();
    run(Script()
            .clickCell(grid, kRow, lineWeightGridColumn)
            .waitForControl(IDC_PICKER_LIST)
            .press(L'A', ui::holdControl)
            .press(VK_ESCAPE)
            .waitForControl(grid)
            .then(expectSelected({kRow})));
}

} // namespace

// The cells whose value is picked in one of the host's own dialogs, each answered in its real window.

#include "EditClicksTest.h"

#include "engine/DatabaseAccess.h"
#include "pickers/PickerIds.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using ui::Script;
using ui::View;

constexpr int kRow = 3;
constexpr int kRows = 10;

struct Picker {
    int column;
    const char* operation;
    int control; ///< one that only its window has
    WORD key;    ///< leads from the value that it begins with to a neighbour of it
    /// The line of the trace for row 3 when the user cancels.
    const char* cancelled;
    /// All calls from the choice of that neighbour on; first those by which the picker ends.
    Calls afterChoice;
    /// The call by which OK hands that value of a row over.
    const char* written;
};

const Picker pickers[] = {
    {colorGridColumn,
     "keledSetColorDialogTrueColor",
     IDC_COLOR_PALETTE,
     VK_LEFT,
     "keledSetColorDialogTrueColor(color 7, false, color 7, 7) = 0",
     {},
     "record.setColor(null, color 6)"},
    {linetypeGridColumn,
     "keledLinetypeDialog",
     IDC_PICKER_LIST,
     VK_DOWN,
     "keledLinetypeDialog(#E0, false) = false",
     {"SaveColumnSizes(1401)", "kelutDelBuffer(\"Dashed\")"},
     "record.setLinetypeObjectId(null, #E1)"},
    {lineWeightGridColumn,
     "keledLineWeightDialog",
     IDC_PICKER_LIST,
     VK_DOWN,
     "keledLineWeightDialog(-3, false) = false",
     {"SaveColumnSizes(1401)"},
     "record.setLineWeight(null, 0) = 0"},
    {plotStyleGridColumn,
     "keledPlotstyleDialog",
     IDC_PICKER_LIST,
     VK_UP,
     "keledPlotstyleDialog(\"Normal\", false) = false",
     {"SaveColumnSizes(1401)", "keldbHostApplicationServices()", "workingDatabase() = object",
      "getPlotStyleNameDictionary(0) = 0", "dictionary.getAt(#plotStyles, \"Fine\") = 0, id=#F8",
      "close(#plotStyles) = 0", "kelutDelBuffer(\"Fine\")"},
     "record.setPlotStyleName(null, \"Fine\") = 0"},
};

void PrintTo(const Picker& each, std::ostream* out) {
    *out << each.operation;
}

class PickingTest : public EditClicksTest {
  protected:
    /// Opens a drawing of ten rows with the linetypes Continuous and Dashed and the plot styles Fine and Normal.
    void openDrawing(bool colorDependentPlotStyles = false) {
        open(tenRows());
        zdr::Drawing drawing = ui::TestDrawing(tenRows()).linetype(L"Dashed").drawing();
        drawing.plotStyles.push_back({drawing.names.intern(L"Fine"), kFine});
        drawing.colorDependentPlotStyles = colorDependentPlotStyles;
        engine::replaceDrawing(database(), drawing);
        instruments::clearTrace();
    }
    /// The values that are picked, of row 3 as it was read and has been left.
    void expectValuesAsRead(int row = kRow) const {
        EXPECT_EQ(record(row).m_color.colorIndex(), 7);
        EXPECT_EQ(record(row).m_linetypeName, L"Continuous");
        EXPECT_EQ(record(row).m_lineWeight, -3);
        EXPECT_EQ(record(row).m_plotStyleName, L"Normal");
        EXPECT_EQ(instruments::describe(record(row).m_linetypeId), "#E0");
        EXPECT_EQ(instruments::describe(record(row).m_plotStyleId), "#E8");
    }
    static std::string lineOf(const std::string& operation) {
        const Calls lines = ui::callsOf(operation);
        return lines.size() == 1 ? lines.front() : std::to_string(lines.size()) + " calls";
    }
    /// How often a row has been drawn since the trace was last cleared: each asks for the default lineweight once.
    static std::size_t drawnRows() { return ui::callsOf("keledGetVar").size(); }
    /// Waits until nothing more is drawn, and counts from there.
    static Script countFromRest() {
        return Script()
            .waitUntil("the grid is drawn",
                       [last = std::make_shared<std::size_t>(0)](const View&) {
                           const std::size_t drawn = drawnRows();
                           return std::exchange(*last, drawn) == drawn && drawn > 0;
                       })
            .then(countFromHere());
    }

    static constexpr zdr::Handle kFine = 0xF8;
};

class EachPicker : public PickingTest, public testing::WithParamInterface<Picker> {
  protected:
    /// Picks the neighbour of the value that the picker begins with.
    static Script pick() {
        return Script().waitForControl(GetParam().control).press(GetParam().key).press(VK_RETURN).waitForControl(grid);
    }
    /// The four values of a layer of the state that can be picked.
    static std::vector<long> valuesOf(const zdr::LayerState& state, std::size_t index) {
        const zdr::LayerColumns& columns = state.columns;
        return {static_cast<long>(columns.colors[index]), static_cast<long>(columns.linetypes[index]),
                columns.lineWeights[index], static_cast<long>(columns.plotStyles[index])};
    }
    bool marksAlways() const { return GetParam().column == plotStyleGridColumn; }
};

INSTANTIATE_TEST_SUITE_P(Pickers, EachPicker, testing::ValuesIn(pickers));

TEST_P(EachPicker, CancelledLeavesAllValuesAndMarksTheFirstRowOnlyForAPlotStyle) {
    openDrawing();
    run(Script()
            .then(select({kRow, 5}))
            .then(countFromHere())
            .clickCell(grid, 5, GetParam().column)
            .waitForControl(GetParam().control)
            .press(VK_ESCAPE)
            .waitForControl(grid)
            .then(expectSelected({kRow, 5}))
            .then(look("as before", [this] {
                EXPECT_EQ(lineOf(GetParam().operation), GetParam().cancelled);
                expectValuesAsRead(kRow);
                expectValuesAsRead(5);
                EXPECT_THAT(dialog().m_layerGrid.GetItemText(kRow, colorGridColumn), L"");
                if (marksAlways())
                    EXPECT_THAT(markedRows(), ElementsAre(kRow));
                else
                    EXPECT_THAT(markedRows(), IsEmpty());
            })));
}

TEST_P(EachPicker, FailingDoesAsOneThatIsCancelled) {
    openDrawing();
    run(Script()
            .then(countFromHere())
            .then(look("it will fail", [] { instruments::failCall(GetParam().operation, 1); }))
            .clickCell(grid, kRow, GetParam().column)
            .then(look("as before", [this] {
                EXPECT_TRUE(instruments::faultStruck());
                EXPECT_EQ(lineOf(GetParam().operation), GetParam().cancelled);
                expectValuesAsRead();
                EXPECT_THAT(markedRows(), SizeIs(marksAlways() ? 1 : 0));
            })));
}

TEST_P(EachPicker, IsFollowedByNoCallsButForTheLookUpOfAPlotStyleAndTheReleaseOfTexts) {
    openDrawing();
    run(Script()
            .clickCell(grid, kRow, GetParam().column)
            .waitForControl(GetParam().control)
            .press(GetParam().key)
            .then(countFromHere())
            .press(VK_RETURN)
            .waitForControl(grid)
            .then(look("the calls", [this] {
                EXPECT_EQ(callsBesideDrawing(), GetParam().afterChoice);
                EXPECT_THAT(markedRows(), ElementsAre(kRow));
            })));
}

TEST_P(EachPicker, ShowsItsValueInAllRowsAtOnce) {
    const int column = GetParam().column;
    openDrawing();
    run(Script()
            .then(select({2, 5, 7}))
            .clickCell(grid, 5, column)
            .then(pick())
            .waitUntil("the three rows are drawn alike and unlike the others", [column](const View& view) {
                const auto pixels = [&](int row) { return cellPixels(view, row, column); };
                return pixels(2) == pixels(5) && pixels(2) == pixels(7) && pixels(2) != pixels(4) &&
                       pixels(4) == pixels(6);
            }));
}

TEST_P(EachPicker, HasItsValueWrittenIntoTheStateByOk) {
    openDrawing();
    const zdr::LayerState before = *stored(L"State");
    run(Script().clickCell(grid, kRow, GetParam().column).then(pick()).then(countFromHere()).click(IDOK));
    const zdr::LayerState after = *stored(L"State");
    for (int row = 0; row < kRows; ++row) {
        const std::vector<long> was = valuesOf(before, indexOfRow(row)), is = valuesOf(after, indexOfRow(row));
        for (std::size_t value = 0; value < is.size(); ++value) {
            const bool picked = row == kRow && static_cast<int>(value) == GetParam().column - colorGridColumn;
            EXPECT_EQ(is[value] != was[value], picked) << "row " << row << ", value " << value;
        }
    }
    EXPECT_THAT(instruments::trace(), Contains(GetParam().written));
    EXPECT_THAT(ui::callsOf("imp.updateLayerStateLayer"), SizeIs(1));
}

TEST_P(EachPicker, CancelledHasNothingWrittenByOkButForTheOneUpdateOfAPlotStyle) {
    openDrawing();
    const zdr::LayerState before = *stored(L"State");
    run(Script()
            .clickCell(grid, kRow, GetParam().column)
            .waitForControl(GetParam().control)
            .press(VK_ESCAPE)
            .waitForControl(grid)
            .click(IDOK));
    EXPECT_THAT(ui::callsOf("imp.updateLayerStateLayer"), SizeIs(marksAlways() ? 1 : 0));
    for (int row = 0; row < kRows; ++row)
        EXPECT_EQ(valuesOf(*stored(L"State"), indexOfRow(row)), valuesOf(before, indexOfRow(row))) << row;
}

TEST_P(EachPicker, BelongsToTheDialog) {
    openDrawing();
    run(Script()
            .clickCell(grid, kRow, GetParam().column)
            .waitForControl(GetParam().control)
            .look("its owner",
                  [](const View& view) { EXPECT_TRUE(View(GetWindow(view.window(), GW_OWNER)).has(IDC_ADD_LAYERS)); })
            .press(VK_ESCAPE));
}

TEST_P(EachPicker, OffersNoReferences) {
    openDrawing();
    run(Script()
            .clickCell(grid, kRow, GetParam().column)
            .waitForControl(GetParam().control)
            .look("by layer",
                  [](const View& view) {
                      EXPECT_FALSE(view.isVisible(IDC_COLOR_BYLAYER));
                      EXPECT_EQ(view.rowOf(IDC_PICKER_LIST, L"ByLayer"), -1);
                  })
            .press(VK_ESCAPE));
}

TEST_P(EachPicker, ADoubleClickOpensItOnce) {
    openDrawing();
    run(Script()
            .then(countFromHere())
            .doubleClickCell(grid, kRow, GetParam().column)
            .waitForControl(GetParam().control)
            .press(VK_ESCAPE)
            .waitForControl(grid)
            .then(look("once", [] { EXPECT_THAT(ui::callsOf(GetParam().operation), SizeIs(1)); })));
}

TEST_P(EachPicker, OnlyThoseOfTheLineweightAndThePlotStyleDrawAllRowsAgainWhenTheyFail) {
    openDrawing();
    const bool draws = GetParam().column == lineWeightGridColumn || GetParam().column == plotStyleGridColumn;
    run(Script()
            .clickCell(grid, kRow, nameGridColumn)
            .then(countFromRest())
            .then(look("it will fail", [] { instruments::failCall(GetParam().operation, 1); }))
            .clickCell(grid, kRow, GetParam().column)
            .waitUntil("the call", [](const View&) { return instruments::faultStruck(); })
            .then(draws ? Script().waitUntil("all rows are drawn", [](const View&) { return drawnRows() >= kRows; })
                        : look("not all rows", [] { EXPECT_LT(drawnRows(), 2u); })));
}

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

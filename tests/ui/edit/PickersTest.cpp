// What holds for all of the host's dialogs that a click on a cell opens: the call, the mark, what is shown and written.

#include "PickingTest.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using ui::Script;
using ui::View;

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
                expectValuesAsRead(kRow);
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

TEST_P(EachPicker, OnlyThoseOfTheLineweightAndThePlotStyleDrawTheWholeDialogAgainWhenTheyFail) {
    openDrawing();
    const bool draws = GetParam().column == lineWeightGridColumn || GetParam().column == plotStyleGridColumn;
    run(Script()
            .clickCell(grid, kRow, nameGridColumn)
            .then(countPaintsFromRest())
            .then(look("it will fail", [] { instruments::failCall(GetParam().operation, 1); }))
            .clickCell(grid, kRow, GetParam().column)
            .waitUntil("the call", [](const View&) { return instruments::faultStruck(); })
            .then(draws ? wholeDialogIsDrawn() : dialogIsNotDrawn()));
}

} // namespace

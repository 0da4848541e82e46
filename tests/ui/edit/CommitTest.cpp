// What OK writes into the state, and what Cancel doesn't.

#include "EditTest.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

/// The calls on a state, without their answers.
Calls callsOnState(const Calls& calls) {
    Calls found;
    for (const std::string& line : calls)
        if (line.find("LayerStateLayer") != std::string::npos && !line.starts_with("getLayerStateLayers"))
            found.push_back(line.substr(0, line.rfind(" = ")));
    return found;
}

class EditCommit : public EditTest {
  protected:
    /// A house whose state "Plan" holds Base, Walls and Doors, but not Pipes (#5), which came later.
    static TestDrawing planned() {
        TestDrawing drawing;
        drawing.layer(L"Walls").layer(L"Doors", 3);
        drawing.state(L"Plan", MaskOn | MaskColor);
        return drawing.layer(L"Pipes", 4);
    }
    /// Opens the dialog on the plan, does the steps, ends it with OK, and answers what was called on the state then.
    Calls callsOfOk(const Script& steps) {
        Calls calls;
        edit(L"Plan", Script()
                          .then(steps)
                          .then(countFromHere())
                          .click(IDOK)
                          .waitForControl(IDC_LSTATE_RES_LIST)
                          .look("the calls", [&](const View&) { calls = instruments::trace(); }));
        m_all = withoutPainting(calls);
        // The press of the button may have painted a row; its question for the plot styles is a commit's as well.
        m_all.erase(m_all.begin(), std::find(m_all.begin(), m_all.end(), "getLayerStateManager() = object"));
        return callsOnState(calls);
    }
    static Script remove(const std::wstring& layer) {
        return Script()
            .clickCellOf(grid, layer)
            .click(IDC_REMOVE_LAYERS)
            .waitUntil("it is gone", [=](const View& view) { return view.rowOf(grid, layer) < 0; });
    }
    static Script add(const std::wstring& layer) {
        return Script()
            .click(IDC_ADD_LAYERS)
            .waitUntil("the add layers dialog",
                       [](const View& view) { return view.has(grid) && !view.has(IDC_ADD_LAYERS); })
            .clickCellOf(grid, layer)
            .click(IDOK)
            .waitForControl(IDC_ADD_LAYERS);
    }
    /// Clicks a layer's cell.
    static Script toggle(const std::wstring& layer, int column) {
        return Script().clickPoint("the cell", [=](const View& view) -> std::optional<POINT> {
            const int row = view.rowOf(grid, layer);
            const std::optional<RECT> cell = row < 0 ? std::nullopt : view.cellRect(grid, row, column);
            return cell ? std::optional<POINT>(ui::middleOf(*cell)) : std::nullopt;
        });
    }
    std::vector<std::wstring> layersOfPlan() const {
        KelArray<KelString> names;
        EXPECT_EQ(states().getLayerStateLayers(names, L"Plan", false), Vorn::eOk);
        std::vector<std::wstring> texts;
        for (const KelString& name : names)
            texts.emplace_back(name.kwszPtr());
        return texts;
    }
    /// What the plan holds of a layer.
    engine::LayerValues held(const wchar_t* layer) const {
        const zdr::LayerState plan = stored(L"Plan").value();
        const auto& names = plan.layers->names;
        const auto found = std::find(names.begin(), names.end(), engine::drawingOf(database()).names.find(layer));
        EXPECT_NE(found, names.end());
        return engine::valuesAt(plan.columns, static_cast<std::size_t>(found - names.begin()));
    }

    Calls m_all; ///< of the last OK, but for those of painting
};

constexpr int kOn = 1, kFreeze = 2, kLock = 3;

TEST_F(EditCommit, OfNoChangeCallsNothingOnTheState) {
    open(planned());
    const zdr::Drawing before = engine::drawingOf(database());
    EXPECT_THAT(callsOfOk({}), IsEmpty());
    EXPECT_THAT(m_all, ElementsAreArray(joined(
                           {{"getLayerStateManager() = object", "SaveColumnSizes(16214)", "impDatabase() = object",
                             "getImpLayerStateManager() = object", "keledGetCurViewportObjectId() = null"},
                            callsOfService(),
                            {"compareLayerStateToDb(\"Plan\", null) = true"}})));
    EXPECT_EQ(differenceFrom(before), "");
}

TEST_F(EditCommit, RemovesThenAddsThenWritesWhatChanged) {
    open(planned());
    EXPECT_THAT(callsOfOk(toggle(L"Base", kLock).then(add(L"Pipes")).then(remove(L"Doors"))),
                ElementsAre("removeLayerStateLayers(\"Plan\", [\"Doors\"])", "addLayerStateLayers(\"Plan\", [#5])",
                            "imp.updateLayerStateLayer(\"Plan\", object, true)"));
    EXPECT_THAT(layersOfPlan(), ElementsAre(L"Base", L"Walls", L"Pipes"));
    EXPECT_NE(held(L"Base").flags & zdr::kLayerLocked, 0);
    EXPECT_EQ(held(L"Walls").flags & zdr::kLayerLocked, 0);
    EXPECT_EQ(held(L"Pipes").color, 4u);
    EXPECT_EQ(stored(L"Plan")->mask, MaskOn | MaskColor);
}

TEST_F(EditCommit, WritesAChangeWithAllValuesOfItsRowInThisOrder) {
    open(planned());
    callsOfOk(toggle(L"Doors", kOn));
    const Calls update = {"layerRecord.new()",
                          "record.setName(null, \"Doors\") = 0",
                          "record.setIsFrozen(null, false) = 0",
                          "record.setIsOff(null, true)",
                          "record.setVPDFLT(null, false)",
                          "record.setIsLocked(null, false)",
                          "record.setIsPlottable(null, true) = 0",
                          "record.setColor(null, color 3)",
                          "record.setLinetypeObjectId(null, #E0)",
                          "record.setLineWeight(null, -3) = 0",
                          "plotStyleMode() = false",
                          "record.setPlotStyleName(null, \"Normal\") = 0",
                          "record.setPlotStyleName(null, #E8) = 0",
                          "imp.updateLayerStateLayer(\"Plan\", object, false) = true"};
    EXPECT_THAT(m_all, ElementsAreArray(joined({{"getLayerStateManager() = object", "SaveColumnSizes(16214)",
                                                 "impDatabase() = object", "getImpLayerStateManager() = object"},
                                                update,
                                                {"keledGetCurViewportObjectId() = null"},
                                                callsOfService(),
                                                {"compareLayerStateToDb(\"Plan\", null) = false"}})));
    EXPECT_EQ(held(L"Doors").flags & zdr::kLayerOn, 0);
}

TEST_F(EditCommit, IsTakenBackByOneUndo) {
    open(planned());
    const zdr::Drawing before = engine::drawingOf(database());
    engine::beginUndoGroup(database()); // as around the command
    callsOfOk(toggle(L"Base", kLock).then(add(L"Pipes")).then(remove(L"Doors")));
    engine::endUndoGroup(database());
    EXPECT_NE(differenceFrom(before), "");
    EXPECT_TRUE(engine::undo(database()));
    EXPECT_EQ(differenceFrom(before), "");
    EXPECT_FALSE(engine::canUndo(database()));
}

TEST_F(EditCommit, NeverFollowsACancel) {
    for (const bool byKey : {true, false}) {
        open(planned());
        const zdr::Drawing before = engine::drawingOf(database());
        Calls calls;
        Script script;
        script.then(toggle(L"Base", kLock)).then(add(L"Pipes")).then(remove(L"Doors")).then(countFromHere());
        byKey ? script.press(VK_ESCAPE) : script.click(IDCANCEL);
        edit(L"Plan", script.waitForControl(IDC_LSTATE_RES_LIST).look("the calls", [&](const View&) {
            calls = withoutPainting(instruments::trace());
        }));
        EXPECT_THAT(calls, IsEmpty());
        EXPECT_EQ(differenceFrom(before), "");
    }
}

TEST_F(EditCommit, SendsTheNameOfARowThatCameAndWent) {
    open(planned());
    EXPECT_THAT(callsOfOk(add(L"Pipes").then(remove(L"Pipes"))),
                ElementsAre("removeLayerStateLayers(\"Plan\", [\"Pipes\"])"));
    EXPECT_THAT(layersOfPlan(), ElementsAre(L"Base", L"Walls", L"Doors"));
}

TEST_F(EditCommit, GivesALayerThatWentAndCameAgainItsLiveValues) {
    open(planned());
    engine::LayerValues doors = engine::layerValues(database(), 2);
    doors.color = 6;
    ASSERT_EQ(engine::setLayerValues(database(), 2, doors), Vorn::eOk);
    ASSERT_EQ(held(L"Doors").color, 3u);
    EXPECT_THAT(callsOfOk(remove(L"Doors").then(add(L"Doors"))),
                ElementsAre("removeLayerStateLayers(\"Plan\", [\"Doors\"])", "addLayerStateLayers(\"Plan\", [#3])"));
    EXPECT_EQ(held(L"Doors").color, 6u);
    EXPECT_THAT(layersOfPlan(), ElementsAre(L"Base", L"Walls", L"Doors"));
}

TEST_F(EditCommit, AddsARowAndThenWritesItsChange) {
    open(planned());
    EXPECT_THAT(
        callsOfOk(add(L"Pipes").then(toggle(L"Pipes", kFreeze))),
        ElementsAre("addLayerStateLayers(\"Plan\", [#5])", "imp.updateLayerStateLayer(\"Plan\", object, false)"));
    EXPECT_NE(held(L"Pipes").flags & zdr::kLayerFrozen, 0);
}

TEST_F(EditCommit, ForgetsTheChangeOfARowThatWent) {
    open(planned());
    EXPECT_THAT(callsOfOk(toggle(L"Doors", kLock).then(remove(L"Doors"))),
                ElementsAre("removeLayerStateLayers(\"Plan\", [\"Doors\"])"));
}

TEST_F(EditCommit, OfAllRowsRemovedKeepsTheLayersThatTheDrawingLacks) {
    open(planned());
    ASSERT_EQ(engine::removeLayer(database(), 2), Vorn::eOk); // Doors
    const auto all = Script().clickCell(grid, 0, 0).press(VK_END, ui::holdShift).click(IDC_REMOVE_LAYERS);
    EXPECT_THAT(callsOfOk(all), ElementsAre("removeLayerStateLayers(\"Plan\", [\"Base\", \"Walls\"])"));
    EXPECT_THAT(layersOfPlan(), ElementsAre(L"Doors"));
}

TEST_F(EditCommit, SaysNothingOfTheCurrentLayerWhenItsRowWent) {
    open(planned());
    EXPECT_THAT(callsOfOk(remove(L"Base")), ElementsAre("removeLayerStateLayers(\"Plan\", [\"Base\"])"));
    EXPECT_EQ(stored(L"Plan")->currentLayer, zdr::kNoName);
}

TEST_F(EditCommit, TellsOfTheNewCurrentLayerByItsOwnRowAlone) {
    open(planned());
    const auto doors = Script().doubleClickCell(grid, 0, 0);
    EXPECT_THAT(callsOfOk(doors), ElementsAre("imp.updateLayerStateLayer(\"Plan\", object, true)"));
    EXPECT_EQ(stored(L"Plan")->currentLayer, engine::drawingOf(database()).names.find(L"Doors"));
}

TEST_F(EditCommit, GoesOnAfterWhatTheHostRefusesAndEndsTheDialog) {
    open(planned());
    const auto fail = Script().look("each is refused", [](const View&) {
        for (const char* operation : {"removeLayerStateLayers", "addLayerStateLayers", "imp.updateLayerStateLayer"})
            instruments::failCall(operation, 1);
    });
    EXPECT_EQ(callsOfOk(toggle(L"Base", kLock).then(add(L"Pipes")).then(remove(L"Doors")).then(fail)).size(), 3u);
    EXPECT_THAT(layersOfPlan(), ElementsAre(L"Base", L"Walls", L"Doors"));
}

TEST_F(EditCommit, WithoutAStateServiceStillEndsTheDialogAndWritesTheChanges) {
    open(planned());
    const auto fail =
        Script().look("no service", [](const View&) { instruments::failCall("getLayerStateManager", 1); });
    EXPECT_THAT(callsOfOk(remove(L"Doors").then(toggle(L"Base", kLock)).then(fail)),
                ElementsAre("imp.updateLayerStateLayer(\"Plan\", object, true)"));
}

TEST_F(EditCommit, RemovingKeepsTheOrderOfSortedRows) {
    open(planned());
    edit(L"Plan", Script()
                      .clickHeading(grid, 0)
                      .waitUntil("sorted", [](const View& view) { return view.cell(grid, 1, 0) == L"Doors"; })
                      .then(remove(L"Doors"))
                      .look("the rows",
                            [](const View& view) {
                                EXPECT_THAT(rows(view), ElementsAre(L"Base", L"Walls"));
                                EXPECT_THAT(view.selectedRows(grid), IsEmpty());
                            })
                      .press(VK_ESCAPE));
}

TEST_F(EditCommit, RemovingRowsLeavesTheFocusOnTheNextOneThatIsLeft) {
    open(house());
    edit(
        Script()
            .clickCell(grid, 2, 0)
            .clickCell(grid, 1, 0, ui::holdControl)
            .click(IDC_REMOVE_LAYERS)
            .look("what is left",
                  [](const View& view) {
                      EXPECT_THAT(rows(view), ElementsAre(L"Pipes", L"Base"));
                      EXPECT_EQ(view.focusedRow(grid), 1);
                      EXPECT_THAT(view.selectedRows(grid), IsEmpty());
                  })
            .clickCell(grid, 1, 0)
            .click(IDC_REMOVE_LAYERS)
            .look("the row that is left is the last one", [](const View& view) { EXPECT_EQ(view.focusedRow(grid), 0); })
            .press(VK_ESCAPE));
}

TEST_F(EditCommit, RemovesAllSelectedRowsAndNoOther) {
    open(house());
    edit(Script()
             .clickCellOf(grid, L"Pipes")
             .clickCellOf(grid, L"Walls", ui::holdControl)
             .click(IDC_REMOVE_LAYERS)
             .look("the rows", [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Doors", L"Base")); })
             .press(VK_RETURN));
    EXPECT_EQ(stored(L"Ground floor")->layers->names.size(), 2u);
}

} // namespace

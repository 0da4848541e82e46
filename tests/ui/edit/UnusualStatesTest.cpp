// States and drawings that aren't what one expects: layers that are gone, none at all, very many, very long names.

#include "EditTest.h"

#include "engine/DatabaseAccess.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

constexpr int kMany = 10000;

class UnusualStates : public EditTest {
  protected:
    void erase(const wchar_t* layer) {
        ASSERT_EQ(engine::removeLayer(database(), engine::layerIndex(database(), layer)), Vorn::eOk);
    }
    std::vector<std::wstring> layersOf(const wchar_t* state) const {
        KelArray<KelString> names;
        EXPECT_EQ(states().getLayerStateLayers(names, state, false), Vorn::eOk);
        std::vector<std::wstring> texts;
        for (const KelString& name : names)
            texts.emplace_back(name.kwszPtr());
        return texts;
    }
    /// Opens the dialog on the state, notes its rows, and ends it with OK.
    std::vector<std::wstring> rowsOf(const std::wstring& state) {
        std::vector<std::wstring> found;
        EXPECT_TRUE(
            edit(state, Script().look("the rows", [&](const View& view) { found = rows(view); }).press(VK_RETURN)));
        return found;
    }
};

TEST_F(UnusualStates, LayersThatAreGoneHaveNoRowAndStayInTheState) {
    open(house());
    erase(L"Doors");
    EXPECT_THAT(rowsOf(L"Ground floor"), ElementsAre(L"Pipes", L"Walls", L"Base"));
    EXPECT_THAT(layersOf(L"Ground floor"), ElementsAre(L"Base", L"Walls", L"Doors", L"Pipes"));
}

TEST_F(UnusualStates, OneWhoseLayersAreAllGoneIsAnEmptyGrid) {
    open(TestDrawing().layer(L"Walls").state(L"Plan", MaskColor));
    KelArray<KelString> base;
    base.append(L"Base");
    ASSERT_EQ(states().removeLayerStateLayers(L"Plan", base), Vorn::eOk);
    erase(L"Walls");
    EXPECT_THAT(rowsOf(L"Plan"), IsEmpty());
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Walls"));
}

TEST_F(UnusualStates, AnEmptyOneIsAnEmptyGrid) {
    open(TestDrawing().state(L"Plan", MaskColor));
    KelArray<KelString> base;
    base.append(L"Base");
    ASSERT_EQ(states().removeLayerStateLayers(L"Plan", base), Vorn::eOk);
    const zdr::Drawing before = engine::drawingOf(database());
    EXPECT_THAT(rowsOf(L"Plan"), IsEmpty());
    EXPECT_EQ(differenceFrom(before), "");
}

TEST_F(UnusualStates, RemoveOfNothingDoesNothing) {
    open(TestDrawing().state(L"Plan", MaskColor));
    const zdr::Drawing before = engine::drawingOf(database());
    edit(L"Plan", Script()
                      .click(IDC_REMOVE_LAYERS)
                      .look("the rows", [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Base")); })
                      .press(VK_RETURN));
    EXPECT_EQ(differenceFrom(before), "");
}

TEST_F(UnusualStates, NamesOfTheGreatestLengthAreShownWhole) {
    const std::wstring layer(255, L'L'), state(255, L'S');
    open(TestDrawing().layer(layer).state(state, MaskColor));
    edit(state, Script()
                    .look("the names",
                          [&](const View& view) {
                              EXPECT_THAT(rows(view), ElementsAre(layer, L"Base"));
                              EXPECT_EQ(view.title(), L"Edit Layer State: " + state);
                          })
                    .press(VK_ESCAPE));
}

TEST_F(UnusualStates, PercentSignsAndMnemonicsInANameAreShownAsTheyAre) {
    const std::wstring name = L"100 %s & %d && more";
    open(TestDrawing().layer(name).state(name, MaskColor));
    edit(name, Script()
                   .look("the names",
                         [&](const View& view) {
                             EXPECT_THAT(rows(view), ElementsAre(name, L"Base"));
                             EXPECT_EQ(view.title(), L"Edit Layer State: " + name);
                         })
                   .press(VK_ESCAPE));
}

TEST_F(UnusualStates, LayersOfReferencesHaveRowsToo) {
    open(houseOnSite());
    ASSERT_EQ(states().saveLayerState(L"All", MaskAllProperties), Vorn::eOk);
    const zdr::Drawing before = engine::drawingOf(database());
    EXPECT_THAT(rowsOf(L"All"), ElementsAre(L"site!Trees", L"site!Base", L"Pipes", L"Doors", L"Walls", L"Base"));
    EXPECT_EQ(differenceFrom(before), "");
}

TEST_F(UnusualStates, OneThatCantBeRestoredIsAnEmptyGridWithoutAWord) {
    open(house());
    const zdr::Drawing before = engine::drawingOf(database());
    manage(Script()
               .clickCellOf(IDC_LSTATE_RES_LIST, L"Plumbing plan")
               .look("the restore is to fail",
                     [](const View&) {
                         instruments::clearTrace();
                         instruments::failCall("imp.restoreLayerState", 1, Vorn::eWasOpenForWrite);
                     })
               .click(IDC_LSTATE_RES_EDIT)
               .waitForControl(grid)
               .look("the rows", [](const View& view) { EXPECT_THAT(rows(view), IsEmpty()); })
               .press(VK_RETURN)
               .waitForControl(IDC_LSTATE_RES_LIST)
               .click(IDC_LSTATE_RES_CLOSE));
    EXPECT_EQ(differenceFrom(before), "");
}

TEST_F(UnusualStates, WithoutADrawingTheDialogIsEmptyAndItsButtonsDoNothing) {
    open(house());
    const zdr::Drawing before = engine::drawingOf(database());
    Calls calls;
    manage(Script()
               .look("the dialog is to find no drawing",
                     [](const View&) {
                         instruments::clearTrace();
                         instruments::failCall("workingDatabase", 1);
                     })
               .click(IDC_LSTATE_RES_EDIT)
               .waitForControl(grid)
               .look("the rows", [](const View& view) { EXPECT_THAT(rows(view), IsEmpty()); })
               .click(IDC_REMOVE_LAYERS)
               .click(IDC_ADD_LAYERS)
               .waitUntil("nothing can be added", [](const View& view) { return !view.has(grid); })
               .press(VK_RETURN)
               .waitForControl(IDC_ADD_LAYERS)
               .then(countFromHere())
               .click(IDOK)
               .waitForControl(IDC_LSTATE_RES_LIST)
               .look("the calls", [&](const View&) { calls = withoutPainting(instruments::trace()); })
               .click(IDC_LSTATE_RES_CLOSE));
    EXPECT_THAT(calls,
                ElementsAre("SaveColumnSizes(16214)", "keledGetCurViewportObjectId() = null",
                            "keldbHostApplicationServices()", "workingDatabase() = object",
                            "getLayerStateManager() = object", "compareLayerStateToDb(\"Ground floor\", null) = true"));
    EXPECT_EQ(differenceFrom(before), "");
}

TEST_F(UnusualStates, TenThousandLayersHaveARowEach) {
    TestDrawing drawing;
    for (int layer = 1; layer < kMany; ++layer)
        drawing.layer(L"Layer " + std::to_wstring(layer));
    open(drawing.state(L"Plan", MaskColor));
    edit(L"Plan", Script()
                      .look("the rows",
                            [](const View& view) {
                                ASSERT_EQ(view.rowCount(grid), kMany);
                                EXPECT_EQ(view.cell(grid, 0, 0), L"Layer 9999");
                                EXPECT_EQ(view.cell(grid, kMany - 1, 0), L"Base");
                            })
                      .press(VK_ESCAPE));
}

} // namespace

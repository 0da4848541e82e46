// What the manager shows when it opens: columns, options, the current-state line, the selected row.

#include "ManagerTest.h"

#include "KelEditor.h"

#include <commctrl.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

class Opening : public ManagerTest {
  protected:
    /// The current-state line with that subject.
    static std::wstring currentLine(const std::wstring& subject) {
        std::wstring line = resourceText(IDS_LSTATE_CURRENT_STATE);
        return line.replace(line.find(L"%s"), 2, subject);
    }
};

TEST_F(Opening, AsksTheHostForTheseStepsInThisOrder) {
    TestDrawing drawing;
    drawing.state(L"One", MaskOn, L"described").state(L"Two", MaskColor).lastRestored(L"Two");
    open(drawing);
    std::vector<std::string> calls;
    lookAtOpening([&calls](const View&) { calls = instruments::trace(); });
    const std::vector<std::string> setUp = {
        "lookup(\"LAYERSTATE\") = object",
        // Layers with states of an older tool are looked for first.
        "keldbHostApplicationServices()", "workingDatabase() = object", "getLayerTable(0) = 0",
        "layerTable.newIterator(true, true) = 0", "iterator.done() = false", "iterator.getRecordId() = 0, id=#1",
        "openObject(#1, 0, false) = 0", "getExtendedData(#1, \"ZVH\") = null", "close(#1) = 0",
        "iterator.step(true, true)", "iterator.done() = true", "iterator.delete()", "close(#layerTable) = 0",
        "CKelUiDialog(201)",
        // The name comes before the base's set-up, which restores what was kept under it.
        "SetDialogName(\"KelLayerApps:LayerStatesManager\")", "OnInitDialog()", "SetContextHelpPrefix(\"LAST\")",
        "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")", "SetUseTips(2)",
        "GetDialogData(\"Expanded\") = false", "OnReload(\"IDB_LSTATE_RES_EXPAND\") = true",
        "GetDialogData(\"LayerNotFound\") = false", "GetDialogData(\"RestoreAsOverrides\") = false",
        "GetDialogData(\"ShowXrefs\") = false"};
    const std::vector<std::string> rows = {
        "keldbHostApplicationServices()",
        "workingDatabase() = object",
        "getLayerStateManager() = object",
        "getLayerStateNames(false, true) = 0, names=[\"One\", \"Two\"]",
        "getLayerStateMask(\"One\") = 0, mask=1",
        // The list tells its dialog that the row has changed: no row is selected.
        "keledGetCurViewportObjectId() = null",
        "isDependentLayerState(\"One\") = false",
        "layerStateHasViewportData(\"One\") = false",
        "keldbGetReservedString(10, true) = \"Model\"",
        "keledGetCurViewportObjectId() = null",
        "compareLayerStateToDb(\"One\", null) = true",
        "getLayerStateDescription(\"One\") = 0, description=\"described\"",
        "keldbFree(\"described\")",
        "getLayerStateMask(\"Two\") = 0, mask=32",
        // The list tells its dialog that the row has changed: no row is selected.
        "keledGetCurViewportObjectId() = null",
        "isDependentLayerState(\"Two\") = false",
        "layerStateHasViewportData(\"Two\") = false",
        "keldbGetReservedString(10, true) = \"Model\"",
        "keledGetCurViewportObjectId() = null",
        "compareLayerStateToDb(\"Two\", null) = true",
        "getLayerStateDescription(\"Two\") = 0, description=\"\"",
        "keldbFree(\"\")",
    };
    const std::vector<std::string> currentLine = {
        "keldbHostApplicationServices()",       "workingDatabase() = object",
        "getLayerStateManager() = object",      "getLastRestoredLayerState() = 0, name=\"Two\", id=#3",
        "keledGetCurViewportObjectId() = null", "compareLayerStateToDb(\"Two\", null) = true"};
    const std::vector<std::string> update = {"keledGetCurViewportObjectId() = null",
                                             "keldbHostApplicationServices()",
                                             "workingDatabase() = object",
                                             "getLayerStateManager() = object",
                                             "isDependentLayerState(\"Two\") = false",
                                             "keldbHostApplicationServices()",
                                             "workingDatabase() = object",
                                             "getLayerStateManager() = object",
                                             "getLayerStateMask(\"Two\") = 0, mask=32",
                                             "getLayerStateDescription(\"Two\") = 0, description=\"\"",
                                             "keldbFree(\"\")"};
    // The selection tells the dialog to update its controls, and the set-up ends with doing so.
    std::vector<std::string> expected;
    for (const auto& part : {setUp, rows, currentLine, update, update})
        expected.insert(expected.end(), part.begin(), part.end());
    EXPECT_THAT(calls, testing::ElementsAreArray(expected));
}

TEST_F(Opening, InAViewportEveryStateIsComparedWithWhatTheViewportShows) {
    open(house().lastRestored(L"Bare").inViewport());
    std::vector<std::string> compared;
    lookAtOpening([&compared](const View&) {
        compared = ui::callsOf("compareLayerStateToDb");
        for (std::string& line : compared)
            line.resize(line.find(')') + 1);
    });
    EXPECT_THAT(compared, ElementsAre("compareLayerStateToDb(\"Ground floor\", #F0)",
                                      "compareLayerStateToDb(\"Plumbing plan\", #F0)",
                                      "compareLayerStateToDb(\"Bare\", #F0)", "compareLayerStateToDb(\"Bare\", #F0)"));
}

TEST_F(Opening, TheFirstRunEverHasThePanelClosedAndTheOptionsOn) {
    open(house());
    lookAtOpening([](const View& view) {
        EXPECT_TRUE(view.isTicked(IDC_LSTATE_RES_LAYERNOTFOUND));
        EXPECT_TRUE(view.isTicked(IDC_LSTATE_RES_OVERRIDES));
        EXPECT_FALSE(view.isTicked(IDC_LSTATE_RES_HIDEXREFS));
        EXPECT_FALSE(view.isVisible(IDC_LSTATE_RES_PANEL));
        EXPECT_FALSE(view.isVisible(IDC_LSTATE_RES_SELECTALL));
        EXPECT_FALSE(view.isVisible(IDC_LSTATE_RES_CLEARALL));
        for (const BoxBit& row : propertyBoxes)
            EXPECT_FALSE(view.isVisible(row.box)) << row.box;
        EXPECT_EQ(view.text(IDC_LSTATE_RES_EXPAND), resourceText(IDS_LSTATE_EXPAND));
    });
}

TEST_F(Opening, EachOptionShowsWhatWasKeptOfIt) {
    open(house());
    for (const bool on : {false, true}) {
        for (const wchar_t* key : {L"LayerNotFound", L"RestoreAsOverrides", L"ShowXrefs"})
            keep(managerName, key, on ? 7 : 0); // any value but 0 is on
        lookAtOpening([on](const View& view) {
            EXPECT_EQ(view.isTicked(IDC_LSTATE_RES_LAYERNOTFOUND), on);
            EXPECT_EQ(view.isTicked(IDC_LSTATE_RES_OVERRIDES), on);
            EXPECT_EQ(view.isTicked(IDC_LSTATE_RES_HIDEXREFS), !on);
        });
    }
}

TEST_F(Opening, TheListHasFourColumnsThatShareItsWidth) {
    open(house());
    lookAtOpening([](const View& view) {
        EXPECT_THAT(view.headings(IDC_LSTATE_RES_LIST),
                    ElementsAre(resourceText(114), resourceText(115), resourceText(132), resourceText(116)));
        const RECT list = view.rect(IDC_LSTATE_RES_LIST);
        const double width = list.right - list.left;
        EXPECT_THAT(view.columnWidths(IDC_LSTATE_RES_LIST),
                    ElementsAre(static_cast<int>(width * 0.4), static_cast<int>(width * 0.14),
                                static_cast<int>(width * 0.1), static_cast<int>(width * 0.35)));
        EXPECT_TRUE(view.hasFullRowSelection(IDC_LSTATE_RES_LIST));
        for (int index = 0; index < 4; ++index) {
            LVCOLUMNW column = {};
            column.mask = LVCF_FMT | LVCF_SUBITEM;
            SendMessageW(view.control(IDC_LSTATE_RES_LIST), LVM_GETCOLUMNW, static_cast<WPARAM>(index),
                         reinterpret_cast<LPARAM>(&column));
            EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT) << index;
            EXPECT_EQ(column.iSubItem, index);
        }
    });
}

TEST_F(Opening, EachRowTellsItsSpaceWhetherItMatchesTheDrawingAndItsDescription) {
    TestDrawing site;
    site.layer(L"Trees").state(L"Survey", MaskAllProperties, L"of the site").savedWithViewport();
    open(house().state(L"Sheet", MaskColor).savedWithViewport().reference(L"site", site));
    const std::wstring yes = resourceText(IDS_LSTATE_YES), no = resourceText(IDS_LSTATE_NO);
    const std::wstring model = keldbGetReservedString(10, true);
    lookAtOpening([&](const View& view) {
        ASSERT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 5);
        EXPECT_THAT(view.cells(IDC_LSTATE_RES_LIST, 0), ElementsAre(L"Ground floor", model, yes, L"All that is built"));
        EXPECT_THAT(view.cells(IDC_LSTATE_RES_LIST, 1), ElementsAre(L"Plumbing plan", model, no, L""));
        EXPECT_THAT(view.cells(IDC_LSTATE_RES_LIST, 2), ElementsAre(L"Bare", model, yes, L""));
        EXPECT_THAT(view.cells(IDC_LSTATE_RES_LIST, 3),
                    ElementsAre(L"Sheet", resourceText(IDS_LSTATE_SPACE_VIEWPORT), yes, L""));
        // A state of a reference is shown as one, whether it was saved with a viewport or without.
        EXPECT_THAT(view.cells(IDC_LSTATE_RES_LIST, 4),
                    ElementsAre(L"site!Survey", resourceText(IDS_LSTATE_SPACE_REFERENCE), yes, L"of the site"));
    });
}

TEST_F(Opening, WithNothingRestoredNoStateIsCurrentAndTheFirstRowIsSelected) {
    open(house());
    lookAtOpening([](const View& view) {
        EXPECT_EQ(view.text(IDC_LSTATE_RES_CURRENT), currentLine(resourceText(IDS_LSTATE_NONE)));
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0));
        EXPECT_EQ(view.focusedRow(IDC_LSTATE_RES_LIST), 0);
        EXPECT_EQ(view.focusedControl(), IDC_LSTATE_RES_LIST);
    });
}

TEST_F(Opening, ALastRestoredStateThatMatchesTheDrawingIsTheCurrentOneAndSelected) {
    open(house().state(L"Upper floor", MaskAllProperties).lastRestored(L"Upper floor"));
    lookAtOpening([](const View& view) {
        EXPECT_EQ(view.text(IDC_LSTATE_RES_CURRENT), currentLine(L"Upper floor"));
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(3));
        EXPECT_EQ(view.focusedRow(IDC_LSTATE_RES_LIST), 3);
    });
}

TEST_F(Opening, ALastRestoredStateThatDiffersIsNotCurrentButSelectedAllTheSame) {
    open(house().lastRestored(L"Plumbing plan"));
    lookAtOpening([](const View& view) {
        EXPECT_EQ(view.text(IDC_LSTATE_RES_CURRENT), currentLine(resourceText(IDS_LSTATE_NONE)));
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(1));
    });
}

TEST_F(Opening, ALastRestoredStateFarDownIsScrolledIntoView) {
    TestDrawing drawing = house();
    for (int i = 0; i < 60; ++i)
        drawing.state(L"Storey " + std::to_wstring(i), MaskAllProperties);
    open(drawing.lastRestored(L"Storey 50"));
    lookAtOpening([](const View& view) {
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(53));
        EXPECT_TRUE(view.isRowInView(IDC_LSTATE_RES_LIST, 53));
    });
}

TEST_F(Opening, ALastRestoredStateThatIsHiddenLeavesTheFirstRowSelected) {
    open(houseOnSite().lastRestored(L"site!Survey"));
    keep(managerName, L"ShowXrefs", 0);
    lookAtOpening([](const View& view) {
        EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 3);
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0));
    });
}

TEST_F(Opening, AnEmptyDrawingHasNoRowsAndLeavesOnlyNewAndImport) {
    open(TestDrawing());
    lookAtOpening([](const View& view) {
        EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 0);
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), IsEmpty());
        EXPECT_EQ(view.focusedRow(IDC_LSTATE_RES_LIST), -1);
        EXPECT_EQ(shownMask(view), 0u);
        EXPECT_THAT(enabledControls(view), ElementsAre(IDC_LSTATE_RES_NEW, IDC_LSTATE_RES_IMPORT));
        EXPECT_EQ(view.text(IDC_LSTATE_RES_CURRENT), currentLine(resourceText(IDS_LSTATE_NONE)));
    });
}

TEST_F(Opening, WithoutAStateManagerTheLineStaysAsTheTemplateHasItAndTheSetUpGoesOn) {
    open(house());
    for (int nth = 1; nth <= 20; ++nth)
        instruments::failCall("getLayerStateManager", nth);
    lookAtOpening([](const View& view) {
        EXPECT_EQ(view.text(IDC_LSTATE_RES_CURRENT), L"");
        EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 0);
        EXPECT_EQ(view.headings(IDC_LSTATE_RES_LIST).size(), 4u);
        EXPECT_THAT(enabledControls(view), ElementsAre(IDC_LSTATE_RES_NEW, IDC_LSTATE_RES_IMPORT));
    });
}

TEST_F(Opening, AManagerThatIsMissingOnlyForTheLineLeavesTheListAndItsSelection) {
    open(house().lastRestored(L"Plumbing plan"));
    instruments::failCall("getLayerStateManager", 2); // the first is the list's
    lookAtOpening([](const View& view) {
        EXPECT_EQ(view.text(IDC_LSTATE_RES_CURRENT), L"");
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0));
    });
}

TEST_F(Opening, WithoutADrawingTheManagerIsEmptyAndUsable) {
    lookAtOpening([](const View& view) {
        EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 0);
        EXPECT_THAT(enabledControls(view), ElementsAre(IDC_LSTATE_RES_NEW, IDC_LSTATE_RES_IMPORT));
    });
}

} // namespace

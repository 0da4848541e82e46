// How the dialog opens, and what it leaves behind when it is cancelled.

#include "EditTest.h"

#include "Display.h"
#include "engine/DatabaseAccess.h"

#include <commctrl.h>

#include <regex>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

class EditOpening : public EditTest {
  protected:
    /// Opens the dialog, looks at it and cancels it.
    bool look(std::function<void(const View&)> see) {
        return edit(Script().look("the dialog as it opened", std::move(see)).press(VK_ESCAPE));
    }
};

/// What is asked of a layer with the values of a new one.
Calls callsOfLayer(const std::string& id, const std::string& name) {
    return joined({{"getLayerTable(0) = 0", "layerTable.getAt(\"" + name + "\", 0, false) = 0, id=" + id,
                    "close(#layerTable) = 0", "record.isDependent(" + id + ") = false"},
                   callsOfProperties(id, name, "color 7")});
}

TEST_F(EditOpening, ShowsTheStatesLayersLastFirst) {
    open(house());
    look([](const View& view) {
        EXPECT_THAT(rows(view), ElementsAre(L"Pipes", L"Doors", L"Walls", L"Base"));
        EXPECT_EQ(view.title(), L"Edit Layer State: Ground floor");
    });
}

TEST_F(EditOpening, AsksTheHostForTheseStepsInThisOrder) {
    open(TestDrawing().layer(L"Walls").state(L"One", MaskColor).layer(L"Later"));
    Calls calls;
    edit(L"One", Script().look("the calls", [&](const View&) { calls = instruments::trace(); }).press(VK_ESCAPE));
    for (std::string& line : calls) // each guard has a name of its own
        line = std::regex_replace(line, std::regex("TempState_[0-9]+"), "TempState_N");
    const auto painting = std::find(calls.begin(), calls.end(), "SetPersistency(1)");
    ASSERT_NE(painting, calls.end());
    calls.erase(painting + 1, calls.end());
    const Calls setUp = {"CKelUiDialog(162)",
                         "keldbHostApplicationServices()",
                         "workingDatabase() = object",
                         "SetOrvUiParent(object)",
                         "SetDialogName(\"KelLayerApps:LayerStatesEdit\")",
                         "OnInitDialog()",
                         "SetControlProperty(6)",
                         "SetContextHelpPrefix(\"LAST\")",
                         "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")",
                         "SetUseTips(2)"};
    const Calls restore = {"saveLayerState(\"TempState_N\", 1023) = 0",
                           "impDatabase() = object",
                           "getImpLayerStateManager() = object",
                           "imp.restoreLayerState(\"One\", null, 0, 1023, false) = 0",
                           "getLayerStateManager() = object",
                           "getLayerStateLayers(\"One\", false) = 0, layers=[\"Base\", \"Walls\"]",
                           "clayer() = #1"};
    const Calls putBack = {"keldbHostApplicationServices()", "workingDatabase() = object", "impDatabase() = object",
                           "getImpLayerStateManager() = object",
                           "imp.restoreLayerState(\"TempState_N\", null, 0, 1023, false) = 0"};
    const Calls end = {"deleteLayerState(\"TempState_N\") = 0", "GetColumnSizes(16214)", "SetPersistency(1)"};
    EXPECT_THAT(calls, ElementsAreArray(joined({setUp, callsOfService(), restore, callsOfLayer("#1", "Base"),
                                                callsOfLayer("#2", "Walls"), putBack, callsOfService(), end})));
}

TEST_F(EditOpening, ReadsWithoutTheViewportThatIsCurrent) {
    open(house().inViewport());
    look([](const View&) {
        for (const std::string& line : ui::callsOf("imp.restoreLayerState"))
            EXPECT_NE(line.find(", null, 0, 1023, false) = 0"), std::string::npos) << line;
        EXPECT_EQ(ui::callsOf("imp.restoreLayerState").size(), 2u);
    });
}

TEST_F(EditOpening, ShowsTheValuesOfTheStateAndNotThoseOfTheDrawing) {
    TestDrawing drawing;
    drawing.linetype(L"Dashed").layer(L"Plain").layer(L"Marked");
    drawing.state(L"Plan", MaskOn, L"", [&drawing](zdr::LayerColumns& columns) {
        const std::size_t marked = drawing.indexOf(L"Marked");
        columns.flags.set(marked, zdr::kLayerFrozen | zdr::kLayerLocked | zdr::kLayerNewViewportFrozen);
        columns.linetypes.set(marked, drawing.drawing().names.find(L"Dashed"));
    });
    open(drawing);
    edit(L"Plan", Script()
                      .look("the cells",
                            [](const View& view) {
                                // Off, frozen, locked, plotted, frozen in new viewports; whatever the state's mask.
                                EXPECT_THAT(view.cells(grid, 0), ElementsAre(L"Marked", L"1", L"1", L"1", L"",
                                                                             L"Dashed", L"", L"", L"0", L"1"));
                                EXPECT_THAT(view.cells(grid, 1), ElementsAre(L"Plain", L"0", L"0", L"0", L"",
                                                                             L"Continuous", L"", L"", L"1", L"0"));
                            })
                      .press(VK_ESCAPE));
}

TEST_F(EditOpening, HasTheTenColumnsOfTheGrid) {
    open(house());
    look([](const View& view) {
        std::vector<std::wstring> headings;
        for (const unsigned int id : {114u, 176u, 167u, 172u, 166u, 168u, 169u, 175u, 174u, 173u})
            headings.push_back(resourceText(id));
        EXPECT_THAT(view.headings(grid), ElementsAreArray(headings));
        EXPECT_THAT(view.columnWidths(grid), ElementsAre(150, 24, 24, 24, 24, 60, 60, 60, 24, 24));
        EXPECT_TRUE(view.hasFullRowSelection(grid));
        EXPECT_THAT(view.selectedRows(grid), IsEmpty());
        const HWND list = view.control(grid);
        EXPECT_NE(SendMessageW(list, LVM_GETIMAGELIST, LVSIL_SMALL, 0), 0);
        EXPECT_EQ(GetWindowLongPtrW(list, GWL_STYLE) & (LVS_SORTASCENDING | LVS_SORTDESCENDING | LVS_SINGLESEL), 0);
    });
}

TEST_F(EditOpening, ShowsAnIconOnEachOfItsTwoButtons) {
    open(house());
    look([](const View& view) {
        const auto iconOf = [&view](int button) {
            return SendMessageW(view.control(button), BM_GETIMAGE, IMAGE_ICON, 0);
        };
        EXPECT_NE(iconOf(IDC_ADD_LAYERS), 0);
        EXPECT_NE(iconOf(IDC_REMOVE_LAYERS), 0);
        EXPECT_NE(iconOf(IDC_ADD_LAYERS), iconOf(IDC_REMOVE_LAYERS));
        for (const int button : {IDC_ADD_LAYERS, IDC_REMOVE_LAYERS, IDOK, IDCANCEL, ID_HELP})
            EXPECT_TRUE(view.isEnabled(button)) << button;
    });
}

TEST_F(EditOpening, AndCancelLeaveTheDrawingAsItWas) {
    TestDrawing drawing;
    drawing.layer(L"Walls", 3).layer(L"Doors");
    drawing.state(L"Other", MaskColor).savedWithViewport();
    drawing.state(L"Plan", MaskAllProperties, L"As of May", [](zdr::LayerColumns& columns) {
        columns.flags.set(0, zdr::kLayerFrozen);
        columns.flags.set(1, zdr::kLayerLocked);
        columns.colors.set(1, 6);
        columns.lineWeights.set(2, 100);
    });
    drawing.inViewport().lastRestored(L"Other");
    open(drawing);
    const zdr::NameId normal = engine::drawingOf(database()).plotStyles.front().name;
    engine::setFrozenInViewport(database(), TestDrawing::viewportHandle, 2, true);
    engine::setOverride(database(), TestDrawing::viewportHandle, {1, MaskColor | MaskPlotStyle, 5, 0, 0, normal});
    ASSERT_EQ(engine::setCurrentLayer(database(), 2), Vorn::eOk);
    const zdr::Drawing before = engine::drawingOf(database());
    std::string whileOpen = "not looked at";
    edit(L"Plan", Script()
                      .look("the drawing behind the dialog", [&](const View&) { whileOpen = differenceFrom(before); })
                      .clickCellOf(grid, L"Walls")
                      .click(IDC_REMOVE_LAYERS)
                      .clickCell(grid, 0, 1)
                      .press(VK_ESCAPE));
    EXPECT_EQ(whileOpen, "");
    EXPECT_EQ(differenceFrom(before), "");
}

/// Counts what the view of a drawing would be told.
class Recorder : public runtime::DisplayObserver {
  public:
    Recorder() { runtime::setDisplayObserver(this); }
    ~Recorder() override { runtime::setDisplayObserver(nullptr); }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    void regenerateLayers(const KelArray<KelDbObjectId>&) override { ++events; }
    void layersPublished() override { ++events; }
    void updateDisplay() override { ++events; }
    int events = 0;
};

TEST_F(EditOpening, HasNoViewDrawnAnew) {
    open(house());
    const Recorder recorder;
    edit(L"Plumbing plan", Script().press(VK_ESCAPE));
    EXPECT_EQ(recorder.events, 0);
}

TEST_F(EditOpening, TakesTheWidthsThatOkHasKeptAndNotThoseOfACancel) {
    open(house());
    std::vector<int> afterDrag, afterCancel, afterOk;
    const auto note = [](std::vector<int>& widths) {
        return Script().look("the widths", [&widths](const View& view) { widths = view.columnWidths(grid); });
    };
    edit(dragDivider(0, 70).then(note(afterDrag)).press(VK_ESCAPE));
    edit(note(afterCancel).then(dragDivider(0, 70)).click(IDOK));
    edit(note(afterOk).press(VK_ESCAPE));
    EXPECT_EQ(afterDrag.at(0), 220);
    EXPECT_EQ(afterCancel.at(0), 150);
    EXPECT_EQ(afterOk, afterDrag);
}

TEST_F(EditOpening, ComesBackWhereItWasLeftHoweverItWasEnded) {
    open(house());
    for (const WORD key : {VK_ESCAPE, VK_RETURN}) {
        RECT left = {}, found = {};
        const auto note = [](RECT& rect) {
            return Script().look("where it stands", [&rect](const View& view) { rect = view.rect(); });
        };
        edit(Script().dragWindow(key == VK_ESCAPE ? 60 : -90, 45).then(note(left)).press(key));
        edit(note(found).press(VK_ESCAPE));
        EXPECT_TRUE(EqualRect(&left, &found)) << key;
    }
}

TEST_F(EditOpening, IsHelpedByItsOwnTopic) {
    open(house());
    edit(Script()
             .then(countFromHere())
             .click(ID_HELP)
             .waitUntil("the help is asked for", [](const View&) { return !ui::callsOf("keledHelp").empty(); })
             .look("the topic",
                   [](const View&) {
                       EXPECT_THAT(ui::callsOf("keledHelp"),
                                   ElementsAre("keledHelp(null, \"EDITLAYERSTATESDIALOG\", 0)"));
                   })
             .press(VK_ESCAPE));
}

} // namespace

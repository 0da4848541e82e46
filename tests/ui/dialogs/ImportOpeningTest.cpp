// What the import selection shows when it opens, and what it asks of the host for that.

#include "CResourceScope.h"
#include "ImportDialogTest.h"

#include <commctrl.h>

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

class ImportOpening : public ImportDialogTest {
  protected:
    /// Opens the dialog over a file, looks at it and cancels.
    void lookAt(const std::wstring& path, std::function<void(const View&)> see) {
        EXPECT_EQ(chooseFrom(path, look("the dialog", std::move(see)).press(VK_ESCAPE)), IDCANCEL);
        EXPECT_THAT(chosen, IsEmpty());
    }
    void lookAt(const TestDrawing& offered, std::function<void(const View&)> see) {
        offered.save(file(L"offered.zdr"));
        lookAt(file(L"offered.zdr"), std::move(see));
    }
    static void expectEmpty(const View& view) {
        EXPECT_EQ(view.rowCount(kList), 0);
        EXPECT_TRUE(view.isEnabled(IDOK));
    }
};

TEST_F(ImportOpening, ListsTheStatesOfTheFileAndTicksThoseThatTheDrawingLacks) {
    lookAt(TestDrawing()
               .state(L"Ground", MaskOn, L"All of it")
               .state(L"PLAN", MaskOn)
               .savedWithViewport()
               .state(L"Roof", MaskOn),
           [](const View& view) {
               EXPECT_THAT(view.headings(kList), ElementsAre(resourceText(114), resourceText(115), resourceText(116)));
               EXPECT_THAT(view.cells(kList, 0), ElementsAre(L"Ground", L"Model", L"All of it"));
               EXPECT_THAT(view.cells(kList, 1), ElementsAre(L"PLAN", resourceText(IDS_LSTATE_SPACE_VIEWPORT), L""));
               EXPECT_THAT(view.cells(kList, 2), ElementsAre(L"Roof", L"Model", L""));
               EXPECT_THAT(tickedRows(view), ElementsAre(0, 2));
               EXPECT_THAT(view.selectedRows(kList), IsEmpty());
               EXPECT_EQ(view.focusedRow(kList), 0);
           });
}

TEST_F(ImportOpening, TicksNothingWhereTheDrawingHasAllOfThem) {
    open(withStates({L"One", L"TWO", L"three"}));
    lookAt(withStates({L"one", L"Two", L"THREE"}), [](const View& view) { EXPECT_THAT(tickedRows(view), IsEmpty()); });
}

TEST_F(ImportOpening, TicksAllWhereTheDrawingHasNone) {
    open(TestDrawing());
    lookAt(withStates({L"One", L"Two"}), [](const View& view) { EXPECT_THAT(tickedRows(view), ElementsAre(0, 1)); });
}

TEST_F(ImportOpening, HasBoxesGridLinesAndSelectsWholeRows) {
    lookAt(withStates({L"One"}), [](const View& view) {
        constexpr DWORD kWanted = LVS_EX_GRIDLINES | LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT;
        EXPECT_EQ(ListView_GetExtendedListViewStyle(view.control(kList)) & kWanted, kWanted);
    });
}

TEST_F(ImportOpening, HasNoIconInItsCaption) {
    // A dialog whose border can be dragged has the system's icon there, but for this style.
    lookAt(withStates({L"One"}),
           [](const View& view) { EXPECT_NE(GetWindowLongW(view.window(), GWL_EXSTYLE) & WS_EX_DLGMODALFRAME, 0); });
}

TEST_F(ImportOpening, TheColumnsTakeTheirPartsOfTheListsWidth) {
    lookAt(withStates({L"One"}), [](const View& view) {
        const RECT list = view.rect(kList);
        const double width = list.right - list.left;
        EXPECT_THAT(view.columnWidths(kList), ElementsAre(static_cast<int>(width * 0.4), static_cast<int>(width * 0.19),
                                                          static_cast<int>(width * 0.4)));
    });
}

Calls callsOfRow(const std::string& name) {
    return {"getLayerStateMask(\"" + name + "\") = 0, mask=1",
            "isDependentLayerState(\"" + name + "\") = false",
            "layerStateHasViewportData(\"" + name + "\") = false",
            "keldbGetReservedString(10, true) = \"Model\"",
            "getLayerStateDescription(\"" + name + "\") = 0, description=\"\"",
            "keldbFree(\"\")"};
}

Calls joined(std::initializer_list<Calls> parts) {
    Calls all;
    for (const Calls& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

const Calls kSetUp = {"CKelUiDialog(203)",
                      // The name comes before the base's set-up, which restores what was kept under it.
                      "SetDialogName(\"KelLayerApps:ImportLayerStates\")", "OnInitDialog()",
                      "SetContextHelpPrefix(\"LAST\")",
                      "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")", "SetUseTips(2)",
                      "database.new(false, true)"};
const Calls kLayout = {"GetColumnSizes(1022)", "SetControlProperty(4)", "SetPersistency(1)"};

TEST_F(ImportOpening, AsksTheHostInThisOrder) {
    lookAt(withStates({L"One", L"Plan"}), [this](const View&) {
        EXPECT_THAT(
            instruments::trace(),
            ElementsAreArray(joined(
                {kSetUp,
                 {"readZdrFile(" + instruments::describe(file(L"offered.zdr")) + ", 64, false, null) = 0",
                  "getLayerStateManager() = object", "getLayerStateNames(false, true) = 0, names=[\"One\", \"Plan\"]"},
                 callsOfRow("One"),
                 callsOfRow("Plan"),
                 {"keldbHostApplicationServices()", "workingDatabase() = object", "getLayerStateManager() = object",
                  "hasLayerState(\"One\") = false", "hasLayerState(\"Plan\") = true", "database.delete()"},
                 kLayout})));
        EXPECT_THAT(instruments::ledger(), IsEmpty()) << "the other drawing is gone";
    });
}

/// Keeps whether the system was asked to place the focus. Wine does so unasked.
class DialogWithFocus : public CLayerStatesImportDlg {
  public:
    explicit DialogWithFocus(const std::wstring& path) : CLayerStatesImportDlg(nullptr, path.c_str()) {}
    BOOL m_asksForFocus = FALSE;

  protected:
    BOOL OnInitDialog() override { return m_asksForFocus = CLayerStatesImportDlg::OnInitDialog(); }
};

TEST_F(ImportOpening, LetsTheSystemPlaceTheFocus) {
    const CResourceScope scope;
    DialogWithFocus dialog(file(L"missing.zdr"));
    ui::perform(untilInFront().press(VK_ESCAPE), [&dialog] { dialog.DoModal(); });
    EXPECT_TRUE(dialog.m_asksForFocus);
}

TEST_F(ImportOpening, AFileThatCannotBeReadGivesAnEmptyList) {
    writeBytes(file(L"rubbish.zdr"), std::vector<std::byte>(500, std::byte{7}));
    for (const std::wstring& path : {file(L"missing.zdr"), file(L"rubbish.zdr"), std::wstring()})
        lookAt(path, [&path](const View& view) {
            expectEmpty(view);
            const Calls calls = instruments::trace();
            const auto read = std::find(calls.begin(), calls.end(), kSetUp.back()) + 1;
            EXPECT_THAT(Calls(read, calls.end()), ElementsAreArray(joined({{*read, "database.delete()"}, kLayout})));
            EXPECT_TRUE(read->starts_with("readZdrFile(" + instruments::describe(path)));
        });
}

TEST_F(ImportOpening, AFileWithoutStatesGivesAnEmptyList) {
    lookAt(TestDrawing(), expectEmpty);
}

TEST_F(ImportOpening, AServiceThatIsMissingInTheFilesDrawingGivesAnEmptyList) {
    withStates({L"One"}).save(file(L"offered.zdr"));
    instruments::failCall("getLayerStateManager", 1);
    lookAt(file(L"offered.zdr"), expectEmpty);
}

TEST_F(ImportOpening, WithoutAServiceOfTheOpenDrawingNothingIsTicked) {
    withStates({L"One", L"Two"}).save(file(L"offered.zdr"));
    instruments::failCall("getLayerStateManager", 2);
    lookAt(file(L"offered.zdr"), [](const View& view) {
        EXPECT_THAT(view.column(kList, 0), ElementsAre(L"One", L"Two"));
        EXPECT_THAT(tickedRows(view), IsEmpty());
    });
}

TEST_F(ImportOpening, NoEditorOpensWhateverIsClicked) {
    withStates({L"One", L"Two"}).save(file(L"offered.zdr"));
    Script script;
    for (const int column : {0, 2, 2, 1})
        script.clickCell(kList, 1, column).look("no editor", [](const View& view) {
            EXPECT_EQ(view.labelEditorText(kList), std::nullopt);
            EXPECT_EQ(FindWindowExW(view.control(kList), nullptr, L"Edit", nullptr), nullptr);
        });
    EXPECT_EQ(chooseFrom(
                  file(L"offered.zdr"),
                  script.press(VK_F2)
                      .look("nor by F2", [](const View& view) { EXPECT_EQ(view.labelEditorText(kList), std::nullopt); })
                      .press(VK_ESCAPE)),
              IDCANCEL);
}

TEST_F(ImportOpening, HelpComesByItsButtonAndByF1) {
    for (const Script& ask : {Script().click(IDHELP), Script().press(VK_F1)}) {
        // The call fails, or a browser would open.
        Script script = look("from here on the calls count", [](const View&) {
            instruments::clearTrace();
            instruments::failCall("keledHelp", 1);
        });
        script.then(ask).look("the help", [](const View&) {
            EXPECT_THAT(instruments::trace(), ElementsAre("keledHelp(null, \"IMPORTLAYERSTATESDIALOG\", 0)"));
        });
        EXPECT_EQ(choose(withStates({L"One"}), script.press(VK_ESCAPE)), IDCANCEL);
    }
}

} // namespace

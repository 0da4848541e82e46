// New: what is asked of the host from the button to the selected row, and which row that is.

#include "ActionTest.h"

#include <commctrl.h>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

class New : public ActionTest {
  protected:
    /// Opens the dialog for a new state, types the name and confirms.
    static Script make(const std::wstring& name) {
        return Script()
            .click(IDC_LSTATE_RES_NEW)
            .waitForControl(IDC_LSTATE_SAVE_NAME)
            .type(name)
            .click(IDOK)
            .waitForControl(IDC_LSTATE_RES_LIST);
    }
    /// The list has the focus, and of its rows this one alone is selected, has the focus frame and is in view.
    static Script expectSelected(int row) {
        return Script().look("the selected row", [row](const View& view) {
            EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(row));
            EXPECT_EQ(view.focusedRow(IDC_LSTATE_RES_LIST), row);
            EXPECT_TRUE(view.isRowInView(IDC_LSTATE_RES_LIST, row));
            EXPECT_EQ(view.focusedControl(), IDC_LSTATE_RES_LIST);
        });
    }
};

TEST_F(New, AsksTheHostForTheseStepsInThisOrder) {
    open(ui::TestDrawing().state(L"One", MaskColor));
    manage(Script().then(countCalls()).then(make(L"Two")).press(VK_ESCAPE));
    const Calls opening = joined(
        {{"CKelUiDialog(200)"},
         callsOfService(),
         {"SetDialogName(\"KelLayerApps:SaveLayerStatesDialog\")", "OnInitDialog()", "SetContextHelpPrefix(\"LAST\")",
          "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")", "SetUseTips(2)",
          "keldbHostApplicationServices()", "workingDatabase() = object", "extendedNamesMode(object) = true",
          "maxNameLength(true, true), length=255"},
         callsOfService(),
         {"getLayerStateNames(true, true) = 0, names=[\"One\"]"}});
    const Calls saving =
        joined({{"keldbHostApplicationServices()", "workingDatabase() = object", "extendedNamesMode(object) = true",
                 "maxNameLength(true, true), length=255", "validateNameCharacters(\"Two\", true, false, true) = 0"},
                callsOfService(),
                {"hasLayerState(\"Two\") = false", "keledGetCurViewportObjectId() = null",
                 "saveLayerState(\"Two\", 1023, null) = 0", "setLayerStateDescription(\"Two\", \"\") = 0"}});
    const Calls filling = joined({callsOfService(),
                                  {"getLayerStateNames(false, true) = 0, names=[\"One\", \"Two\"]"},
                                  callsOfRow("One", MaskColor),
                                  callsOfRow("Two", MaskAllProperties)});
    EXPECT_THAT(instruments::trace(),
                ElementsAreArray(joined({opening, saving, filling, callsOfSelection("Two", MaskAllProperties)})));
}

TEST_F(New, SelectsTheNewStateInTheListWhateverWasSelectedBefore) {
    open(house());
    Script script;
    script.press(VK_DOWN)
        .press(VK_DOWN, ui::holdShift)
        .then(make(L"Attic"))
        .then(expectSelected(3))
        .look("its row and the controls",
              [](const View& view) {
                  EXPECT_THAT(view.cells(IDC_LSTATE_RES_LIST, 3),
                              ElementsAre(L"Attic", L"Model", resourceText(IDS_LSTATE_YES), L""));
                  EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_UPDATE));
                  EXPECT_EQ(shownMask(view), MaskAllProperties);
              })
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(stateNames(), ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare", L"Attic"));
}

TEST_F(New, IsntRestored) {
    open(wiredHouse());
    manage(make(L"Attic").press(VK_ESCAPE));
    EXPECT_THAT(ui::callsOf("restoreLayerState"), IsEmpty());
}

TEST_F(New, SelectsAStateThatReplacesOneOfThatName) {
    open(house());
    Script script;
    script.click(IDC_LSTATE_RES_NEW)
        .waitForControl(IDC_LSTATE_SAVE_NAME)
        .type(L"plumbing PLAN")
        .click(IDOK)
        .waitUntil("the question whether to replace it",
                   [](const View& view) { return !view.has(IDC_LSTATE_SAVE_NAME); })
        .press(VK_RETURN)
        .waitForControl(IDC_LSTATE_RES_LIST)
        .then(expectSelected(2)) // deleted and saved anew, so it stands at the end
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(stateNames(), ElementsAre(L"Ground floor", L"Bare", L"plumbing PLAN"));
}

TEST_F(New, IntoAnEmptyListSelectsItsFirstRow) {
    open(ui::TestDrawing());
    Script script;
    script.then(make(L"First"))
        .then(expectSelected(0))
        .look("there is a state to restore",
              [](const View& view) { EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_RESTORE)); })
        .press(VK_ESCAPE);
    manage(script);
}

TEST_F(New, ScrollsALongListToTheNewState) {
    ui::TestDrawing drawing;
    for (int i = 0; i < 60; ++i)
        drawing.state(L"State " + std::to_wstring(i), MaskOn);
    open(drawing);
    manage(make(L"Last of all").then(expectSelected(60)).press(VK_ESCAPE));
}

TEST_F(New, CancelledLeavesTheListAsItIsAndAsksTheHostNothingMore) {
    open(house());
    Calls calls;
    Script script;
    script.press(VK_DOWN)
        .click(IDC_LSTATE_RES_NEW)
        .waitForControl(IDC_LSTATE_SAVE_NAME)
        .type(L"Attic")
        .then(countCalls())
        .press(VK_ESCAPE)
        .waitForControl(IDC_LSTATE_RES_LIST)
        .look("the list",
              [&calls](const View& view) {
                  calls = instruments::trace();
                  EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0),
                              ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare"));
                  EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(1));
              })
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(New, FillsTheListWithoutTheStatesOfReferencesWhileTheyAreHidden) {
    open(houseOnSite());
    keep(managerName, L"ShowXrefs", 0);
    Script script;
    script.then(countCalls())
        .then(make(L"Attic"))
        .then(expectSelected(3))
        .look("no state of the site", [](const View& view) { EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 4); })
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(ui::callsOf("getLayerStateNames"),
                ElementsAre(testing::StartsWith("getLayerStateNames(true, true)"),
                            testing::StartsWith("getLayerStateNames(false, false)")));
}

TEST_F(New, WithoutAStateServiceOpensNothing) {
    for (const char* operation : {"getLayerStateManager", "workingDatabase"}) {
        open(house());
        Calls calls;
        Script script;
        script.then(countCalls())
            .look("the host is to fail", [&](const View&) { instruments::failCall(operation, 1); })
            .click(IDC_LSTATE_RES_NEW)
            .look("still the manager",
                  [&calls](const View& view) {
                      EXPECT_TRUE(view.has(IDC_LSTATE_RES_LIST));
                      calls = instruments::trace();
                  })
            .press(VK_ESCAPE);
        manage(script);
        // The dialog has been made, but isn't run.
        EXPECT_EQ(calls.front(), "CKelUiDialog(200)");
        EXPECT_EQ(calls.back(), std::string(operation) + "() = null");
    }
}

TEST_F(New, WhoseSaveFailedSelectsTheFirstRow) {
    open(house().lastRestored(L"Bare"));
    Script script;
    script.look("the save is to fail", [](const View&) { instruments::failCall("saveLayerState", 1); })
        .click(IDC_LSTATE_RES_NEW)
        .waitForControl(IDC_LSTATE_SAVE_NAME)
        .type(L"Attic")
        .click(IDOK)
        .answerAllUntil(IDC_LSTATE_RES_LIST)
        .then(expectSelected(0))
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(stateNames(), ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare"));
}

// Selects the first row as soon as the list draws again.
LRESULT CALLBACK selectWhenFilled(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    const LRESULT result = DefSubclassProc(list, message, wParam, lParam);
    if (message == WM_SETREDRAW && wParam)
        ListView_SetItemState(list, 0, LVIS_SELECTED, LVIS_SELECTED);
    return result;
}

TEST_F(New, LeavesASelectionThatCameWithTheNewRows) {
    // The list itself never keeps one, so the test makes it.
    open(house());
    const auto listOf = [](const View& view) { return view.control(IDC_LSTATE_RES_LIST); };
    Script script;
    script
        .look("a selection from elsewhere",
              [&](const View& view) { SetWindowSubclass(listOf(view), selectWhenFilled, 1, 0); })
        .then(make(L"Attic"))
        .look("the selection",
              [&](const View& view) {
                  EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0));
                  RemoveWindowSubclass(listOf(view), selectWhenFilled, 1);
              })
        .press(VK_ESCAPE);
    manage(script);
}

} // namespace

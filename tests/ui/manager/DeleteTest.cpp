// Delete with one row selected: the question, the call of the host, and the row that is selected afterwards.

#include "ActionTest.h"

#include <commctrl.h>

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

constexpr int question = 32514;

class Delete : public ActionTest {
  protected:
    static Script answered(int button) {
        return Script()
            .click(IDC_LSTATE_RES_DELETE)
            .then(answerBox(resourceText(IDS_LSTATE_CONFIRM_DELETE), button))
            .waitForControl(IDC_LSTATE_RES_LIST);
    }
    /// The list has the focus, and of its rows this one alone is selected and has the focus frame.
    static Script expectSelected(int row) {
        return Script().look("the selected row", [row](const View& view) {
            EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(row));
            EXPECT_EQ(view.focusedRow(IDC_LSTATE_RES_LIST), row);
            EXPECT_EQ(view.focusedControl(), IDC_LSTATE_RES_LIST);
        });
    }
    /// Sends the button's command though the button may be disabled, and waits for the handler.
    static Script commanded(int button) {
        return Script().look("the command", [button](const View& view) {
            PostMessageW(view.window(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                         reinterpret_cast<LPARAM>(view.control(button)));
        });
    }
};

TEST_F(Delete, OfOneStateAsksTheHostForTheseStepsInThisOrder) {
    open(ui::TestDrawing().state(L"One", MaskColor).state(L"Two", MaskOn));
    manage(Script().then(countCalls()).then(answered(IDYES)).press(VK_ESCAPE));
    // The list reports its changes one by one, and the controls are updated each time: the row that was selected goes,
    // the list gets the focus, and the next row is selected.
    const Calls nothingSelected = {"keledGetCurViewportObjectId() = null"};
    const Calls selected = callsOfSelection("Two", MaskOn);
    EXPECT_THAT(instruments::trace(),
                ElementsAreArray(joined(
                    {callsOfService(), {"deleteLayerState(\"One\") = 0"}, nothingSelected, selected, selected})));
}

TEST_F(Delete, OfOneStateAsksInABoxOfTheManagerThatOnlyYesAndNoAnswer) {
    open(house());
    HWND manager = nullptr;
    Script script;
    script.look("the manager", [&manager](const View& view) { manager = view.window(); })
        .then(countCalls())
        .click(IDC_LSTATE_RES_DELETE)
        .waitForText(resourceText(IDS_LSTATE_CONFIRM_DELETE))
        .look("its owner, its icon and its buttons",
              [&manager](const View& view) {
                  EXPECT_EQ(GetWindow(view.window(), GW_OWNER), manager);
                  EXPECT_EQ(view.icon(), LoadIconW(nullptr, MAKEINTRESOURCEW(question)));
                  EXPECT_TRUE(view.has(IDYES));
                  EXPECT_TRUE(view.has(IDNO));
                  EXPECT_FALSE(view.has(IDCANCEL));
                  EXPECT_EQ(view.focusedControl(), IDYES);
              })
        .press(VK_ESCAPE)
        .waitForText(resourceText(IDS_LSTATE_CONFIRM_DELETE))
        .look("Escape was no answer", [](const View&) { EXPECT_THAT(instruments::trace(), IsEmpty()); })
        .press(VK_RETURN)
        .waitForControl(IDC_LSTATE_RES_LIST)
        .look("Enter was Yes",
              [](const View& view) {
                  EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0), ElementsAre(L"Plumbing plan", L"Bare"));
              })
        .press(VK_ESCAPE);
    manage(script);
}

TEST_F(Delete, AnsweredWithNoAsksNothingOfTheHostAndLeavesTheRow) {
    open(house());
    Script script;
    script.press(VK_DOWN).then(countCalls()).then(answered(IDNO)).look("the list", [](const View& view) {
        EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 3);
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(1));
    });
    manage(script.press(VK_ESCAPE));
    EXPECT_THAT(instruments::trace(), IsEmpty());
    EXPECT_THAT(stateNames(), ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare"));
}

TEST_F(Delete, SelectsTheRowThatFollowsOrTheNewLastOne) {
    open(house().state(L"Attic", MaskOn));
    Script script;
    script.clickCellOf(IDC_LSTATE_RES_LIST, L"Plumbing plan")
        .then(answered(IDYES))
        .then(expectSelected(1)) // "Bare"
        .clickCellOf(IDC_LSTATE_RES_LIST, L"Attic")
        .then(answered(IDYES))
        .then(expectSelected(1))
        .look("the controls show the selected state",
              [](const View& view) {
                  EXPECT_EQ(shownMask(view), MaskOn | MaskFrozen | MaskLocked | MaskPlot | MaskNewViewportFrozen);
                  EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_RESTORE));
              })
        .press(VK_F2)
        .look("the keys act on it",
              [](const View& view) { EXPECT_EQ(view.labelEditorText(IDC_LSTATE_RES_LIST), L"Bare"); })
        .press(VK_ESCAPE)
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(stateNames(), ElementsAre(L"Ground floor", L"Bare"));
}

TEST_F(Delete, OfTheOnlyStateLeavesOnlyNewAndImport) {
    open(ui::TestDrawing().state(L"One", MaskColor));
    Script script;
    script.then(countCalls())
        .then(answered(IDYES))
        .look("the empty list and the buttons",
              [](const View& view) {
                  EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 0);
                  EXPECT_EQ(view.focusedControl(), IDC_LSTATE_RES_LIST);
                  EXPECT_THAT(enabledControls(view), ElementsAre(IDC_LSTATE_RES_NEW, IDC_LSTATE_RES_IMPORT));
              })
        .press(VK_ESCAPE); // the keyboard isn't left at a disabled button
    manage(script);
    EXPECT_THAT(stateNames(), IsEmpty());
}

// Keeps the list's reports from the dialog, as on a platform whose list has none for a row that goes.
LRESULT CALLBACK keepReports(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_NOTIFY && wParam == IDC_LSTATE_RES_LIST)
        return 0;
    return DefSubclassProc(dialog, message, wParam, lParam);
}

TEST_F(Delete, OfTheOnlyStateDisablesFiveButtonsEvenWithoutAReportOfTheList) {
    open(ui::TestDrawing().state(L"One", MaskColor));
    std::vector<int> before, after;
    Script script;
    script
        .look("no reports from here on",
              [&before](const View& view) {
                  before = enabledControls(view);
                  SetWindowSubclass(view.window(), keepReports, 1, 0);
              })
        .then(answered(IDYES))
        .look("the buttons",
              [&after](const View& view) {
                  after = enabledControls(view);
                  RemoveWindowSubclass(view.window(), keepReports, 1);
              })
        .press(VK_ESCAPE);
    manage(script);
    std::vector<int> disabled;
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(disabled));
    EXPECT_THAT(disabled, ElementsAre(IDC_LSTATE_RES_DELETE, IDC_LSTATE_RES_RESTORE, IDC_LSTATE_RES_UPDATE,
                                      IDC_LSTATE_RES_RENAME, IDC_LSTATE_RES_EDIT));
}

TEST_F(Delete, ThatTheHostRefusesSaysNothingAndLeavesTheRow) {
    for (const char* operation : {"deleteLayerState", "getLayerStateManager", "workingDatabase"}) {
        open(house());
        Script script;
        script.press(VK_DOWN)
            .look("the host is to refuse", [operation](const View&) { instruments::failCall(operation, 1); })
            .then(answered(IDYES))
            .then(expectSelected(1))
            .look("the list",
                  [](const View& view) {
                      EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0),
                                  ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare"));
                  })
            .press(VK_ESCAPE);
        manage(script);
        EXPECT_TRUE(instruments::faultStruck()) << operation;
        EXPECT_EQ(stateNames().size(), 3u) << operation;
    }
}

TEST_F(Delete, WaitsForTheEndOfARename) {
    open(house());
    Script script;
    script.press(VK_F2)
        .type(L"bare")
        .pressMnemonicOf(IDC_LSTATE_RES_DELETE)
        .then(answerBox(textWithName(IDS_LSTATE_NAME_TAKEN, L"bare"), IDOK))
        .waitUntil("the name is edited again, with no question in between",
                   [](const View& view) { return view.labelEditorText(IDC_LSTATE_RES_LIST).has_value(); })
        .press(VK_ESCAPE)
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(stateNames(), ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare"));
}

TEST_F(Delete, AndUpdateDoNothingWithoutASelectedRow) {
    // The buttons are disabled then, so the test sends their commands itself.
    for (const ui::TestDrawing& drawing : {house(), ui::TestDrawing()}) {
        open(drawing);
        Script script;
        script.clickEmptySpace(IDC_LSTATE_RES_LIST)
            .then(countCalls())
            .then(commanded(IDC_LSTATE_RES_DELETE))
            .then(commanded(IDC_LSTATE_RES_UPDATE))
            .look("no question", [](const View& view) { EXPECT_TRUE(view.has(IDC_LSTATE_RES_LIST)); })
            .press(VK_ESCAPE);
        manage(script);
        EXPECT_THAT(instruments::trace(), IsEmpty());
    }
}

} // namespace

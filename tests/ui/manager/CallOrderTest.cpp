// What each action of the manager asks of the host: all of it, in order. The opening and a restore are in the tests of
// their own.

#include "ManagerTest.h"

#include <commctrl.h>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

// With the state "One" as the only selected one.
const Calls update = callsOfSelection("One", MaskColor);

class CallOrder : public ManagerTest {
  protected:
    void SetUp() override {
        ManagerTest::SetUp();
        open(ui::TestDrawing().state(L"One", MaskColor));
    }
    /// Adds an action to the script and collects what it asks for.
    static Script& collect(Script& script, Calls& calls, const Script& action) {
        script.look("the calls count from here", [](const View&) { instruments::clearTrace(); }).then(action);
        return script.look("the calls", [&calls](const View&) { calls = instruments::trace(); });
    }
};

TEST_F(CallOrder, OpeningThePanelUpdatesTheControlsAtItsEndAndClosingItDoesnt) {
    Calls opening, closing;
    Script script;
    collect(script, opening, Script().click(IDC_LSTATE_RES_EXPAND));
    collect(script, closing, Script().click(IDC_LSTATE_RES_EXPAND));
    manage(script.press(VK_ESCAPE));
    EXPECT_THAT(opening, ElementsAreArray(joined({{"OnReload(\"IDB_LSTATE_RES_CONTRACT\") = true"}, update})));
    EXPECT_THAT(closing, ElementsAre("OnReload(\"IDB_LSTATE_RES_EXPAND\") = true"));
}

TEST_F(CallOrder, AnOptionOnlyKeepsItself) {
    open(ui::TestDrawing().state(L"One", MaskColor).inViewport());
    Calls layerNotFound, overrides;
    Script script;
    collect(script, layerNotFound, Script().click(IDC_LSTATE_RES_LAYERNOTFOUND));
    collect(script, overrides, Script().click(IDC_LSTATE_RES_OVERRIDES));
    manage(script.press(VK_ESCAPE));
    EXPECT_THAT(layerNotFound, ElementsAre("SetDialogData(\"LayerNotFound\", 0) = true"));
    EXPECT_THAT(overrides, ElementsAre("SetDialogData(\"RestoreAsOverrides\", 0) = true"));
}

TEST_F(CallOrder, HidingTheStatesOfReferencesFillsTheListSelectsTheFirstRowAndThenKeepsTheOption) {
    Calls calls;
    Script script;
    collect(script, calls, Script().click(IDC_LSTATE_RES_HIDEXREFS));
    manage(script.press(VK_ESCAPE));
    const Calls names = {"getLayerStateNames(false, false) = 0, names=[\"One\"]"};
    const Calls kept = {"SetDialogData(\"ShowXrefs\", 0) = true"};
    EXPECT_THAT(calls, ElementsAreArray(joined({callsOfService(), names, callsOfRow("One", MaskColor), update, kept})));
}

TEST_F(CallOrder, ThePropertyBoxesAndTheirTwoButtonsAskNothing) {
    keep(managerName, L"Expanded", 1);
    Calls calls;
    Script script, clicks;
    clicks.click(IDC_LSTATE_RES_COLOR).click(IDC_LSTATE_RES_SELECTALL).click(IDC_LSTATE_RES_CLEARALL);
    collect(script, calls, clicks);
    manage(script.press(VK_ESCAPE));
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(CallOrder, CloseKeepsWhetherThePanelIsOpenAndEscapeAsksNothing) {
    const auto asksNothingMore = [](const View&) { instruments::clearTrace(); };
    manage(Script().look("the calls count from here", asksNothingMore).click(IDC_LSTATE_RES_CLOSE));
    EXPECT_THAT(instruments::trace(), ElementsAre("SetDialogData(\"Expanded\", 0) = true"));
    manage(Script().look("the calls count from here", asksNothingMore).press(VK_ESCAPE));
    EXPECT_THAT(instruments::trace(), IsEmpty());
}

// What the list tells its dialog.
Calls callsOfNotification(const View& view, UINT code) {
    instruments::clearTrace();
    NMLISTVIEW notification = {};
    notification.hdr = {view.control(IDC_LSTATE_RES_LIST), IDC_LSTATE_RES_LIST, code};
    notification.iItem = -1;
    EXPECT_EQ(SendMessageW(view.window(), WM_NOTIFY, IDC_LSTATE_RES_LIST, reinterpret_cast<LPARAM>(&notification)), 0);
    return instruments::trace();
}

TEST_F(CallOrder, ThreeNotificationsOfTheListUpdateTheControlsAndNoOtherDoes) {
    // The test sends the notifications itself, because no input brings two of them about in this list: a double click
    // is a restore, and the list owns its data.
    lookAtOpening([](const View& view) {
        for (const UINT code : {LVN_ITEMACTIVATE, LVN_ODSTATECHANGED, LVN_ITEMCHANGED})
            EXPECT_THAT(callsOfNotification(view, code), ElementsAreArray(update)) << static_cast<int>(code);
        for (const UINT code : {LVN_ITEMCHANGING, LVN_COLUMNCLICK, LVN_HOTTRACK})
            EXPECT_THAT(callsOfNotification(view, code), IsEmpty()) << static_cast<int>(code);
    });
}

TEST_F(CallOrder, TheSearchForADependentStateEndsAtTheFirst) {
    open(houseOnSite());
    Script script;
    script.clickCellOf(IDC_LSTATE_RES_LIST, L"Bare")
        .clickCellOf(IDC_LSTATE_RES_LIST, L"site!Trees", ui::holdShift)
        .look("three rows", [](const View& view) {
            EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(2, 3, 4));
            EXPECT_THAT(callsOfNotification(view, LVN_ITEMCHANGED),
                        ElementsAre("keledGetCurViewportObjectId() = null", "keldbHostApplicationServices()",
                                    "workingDatabase() = object", "getLayerStateManager() = object",
                                    "isDependentLayerState(\"Bare\") = false",
                                    "isDependentLayerState(\"site!Survey\") = true"));
        });
    manage(script.press(VK_ESCAPE));
}

} // namespace

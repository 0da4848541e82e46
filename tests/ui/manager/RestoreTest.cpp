// What a restore asks of the host, in which order, with which mask and flags, and how the manager ends.

#include "ManagerTest.h"

#include "Documents.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using ui::Script;
using ui::View;

class Restore : public ManagerTest {
  protected:
    /// Runs the manager with the steps of `before`, presses Restore, and answers the host calls from there to the
    /// manager's end.
    std::vector<std::string> callsOfRestore(Script before = {}) {
        manage(before.look("the calls count from here", [](const View&) { instruments::clearTrace(); })
                   .click(IDC_LSTATE_RES_RESTORE));
        return instruments::trace();
    }
};

TEST_F(Restore, AsksTheHostForTheseStepsInThisOrder) {
    open(house());
    EXPECT_THAT(
        callsOfRestore(Script().clickCell(IDC_LSTATE_RES_LIST, 1, 0)),
        ElementsAre("kelDocManagerPtr()", "currentDocument() = object", "transactionManager() = object",
                    "startTransaction() = object",                                             //
                    "keldbHostApplicationServices()", "workingDatabase() = object",            //
                    "getLayerStateManager() = object", "keledGetCurViewportObjectId() = null", //
                    // All layers are collected before the restore.
                    "keldbHostApplicationServices()", "workingDatabase() = object", "getLayerTable(0) = 0",
                    "layerTable.newIterator(true, true) = 0", "DoWaitCursor(1)",                                 //
                    "iterator.done() = false", "iterator.getRecordId() = 0, id=#1",                              //
                    "iterator.step(true, true)", "iterator.done() = false",                                      //
                    "iterator.getRecordId() = 0, id=#2", "iterator.step(true, true)",                            //
                    "iterator.done() = false", "iterator.getRecordId() = 0, id=#3",                              //
                    "iterator.step(true, true)", "iterator.done() = false",                                      //
                    "iterator.getRecordId() = 0, id=#4", "iterator.step(true, true)",                            //
                    "iterator.done() = true", "DoWaitCursor(-1)", "iterator.delete()", "close(#layerTable) = 0", //
                    "setLayerStateMask(\"Plumbing plan\", 97) = 0",                                              //
                    "restoreLayerState(\"Plumbing plan\", null, 5, null) = 0",                                   //
                    "keledRegenPending() = 0", "keledRegenLayers(4, 0)",                                         //
                    "kelDocManagerPtr()", "currentDocument() = object", "transactionManager() = object",         //
                    "endTransaction() = 0",                                                                      //
                    // Published by the restore, and once more by the button's handler.
                    "applyCurZdrLayerTableChanges() = 0", "keledUpdateDisplay()", "applyCurZdrLayerTableChanges() = 0",
                    "keledUpdateDisplay()", "SetDialogData(\"Expanded\", 0) = true"));
}

TEST_F(Restore, ChangesTheLayersAndMakesTheStateTheLastRestoredOne) {
    open(house());
    callsOfRestore(Script().clickCell(IDC_LSTATE_RES_LIST, 1, 0));
    KelString name;
    KelDbObjectId id;
    EXPECT_EQ(states().getLastRestoredLayerState(name, id), Vorn::eOk);
    EXPECT_STREQ(name.kwszPtr(), L"Plumbing plan");
    EXPECT_TRUE(states().compareLayerStateToDb(L"Plumbing plan", KelDbObjectId()));
    EXPECT_FALSE(states().compareLayerStateToDb(L"Ground floor", KelDbObjectId()));
}

TEST_F(Restore, WritesTheTickedBoxesIntoTheStateForGood) {
    open(house());
    keep(managerName, L"Expanded", 1);
    const std::vector<std::string> calls = callsOfRestore(
        Script().clickCell(IDC_LSTATE_RES_LIST, 1, 0).click(IDC_LSTATE_RES_ON).click(IDC_LSTATE_RES_LOCKED));
    EXPECT_THAT(ui::callsOf("setLayerStateMask", calls), ElementsAre("setLayerStateMask(\"Plumbing plan\", 100) = 0"));
    LayerStateMask mask = 0;
    EXPECT_EQ(states().getLayerStateMask(L"Plumbing plan", mask), Vorn::eOk);
    EXPECT_EQ(mask, MaskLocked | MaskColor | MaskLinetype);
}

TEST_F(Restore, CountsBoxesThatAreTickedThoughDisabledOrHidden) {
    open(house()); // the box for viewports is disabled here, and the panel is closed
    EXPECT_THAT(ui::callsOf("setLayerStateMask", callsOfRestore()),
                ElementsAre("setLayerStateMask(\"Ground floor\", 1023) = 0"));
}

TEST_F(Restore, DropsTheBitsThatNoBoxStandsFor) {
    open(house().state(L"Odd", 0x80000000u | MaskOn).lastRestored(L"Odd"));
    EXPECT_THAT(ui::callsOf("setLayerStateMask", callsOfRestore()), ElementsAre("setLayerStateMask(\"Odd\", 1) = 0"));
}

TEST_F(Restore, WithAllBoxesClearedGoesOnWithAnEmptyMask) {
    open(house().lastRestored(L"Plumbing plan"));
    keep(managerName, L"Expanded", 1);
    const std::vector<std::string> calls = callsOfRestore(Script().click(IDC_LSTATE_RES_CLEARALL));
    EXPECT_THAT(ui::callsOf("setLayerStateMask", calls), ElementsAre("setLayerStateMask(\"Plumbing plan\", 0) = 0"));
    EXPECT_EQ(ui::callsOf("restoreLayerState", calls).size(), 1u);
}

struct FlagCase {
    bool layerNotFound, asOverrides, inViewport;
    int flags;
};
class RestoreFlags : public Restore, public testing::WithParamInterface<FlagCase> {};

TEST_P(RestoreFlags, FollowTheTwoOptionsAndNothingElse) {
    const FlagCase& each = GetParam();
    open(each.inViewport ? house().inViewport() : house());
    keep(managerName, L"LayerNotFound", each.layerNotFound);
    keep(managerName, L"RestoreAsOverrides", each.asOverrides);
    const std::string viewport = each.inViewport ? "#F0" : "null";
    EXPECT_THAT(ui::callsOf("restoreLayerState", callsOfRestore()),
                ElementsAre("restoreLayerState(\"Ground floor\", " + viewport + ", " + std::to_string(each.flags) +
                            ", null) = 0"));
}

INSTANTIATE_TEST_SUITE_P(Options, RestoreFlags,
                         testing::Values(FlagCase{true, true, true, 5}, FlagCase{false, true, true, 4},
                                         FlagCase{true, false, true, 1}, FlagCase{false, false, true, 0},
                                         FlagCase{true, true, false, 5}, FlagCase{false, true, false, 4},
                                         FlagCase{true, false, false, 1}, FlagCase{false, false, false, 0}),
                         [](const testing::TestParamInfo<FlagCase>& named) {
                             return std::string(named.param.layerNotFound ? "TurnOffUnknown" : "LeaveUnknown") +
                                    (named.param.asOverrides ? "AsOverrides" : "ForGood") +
                                    (named.param.inViewport ? "InAViewport" : "InModelSpace");
                         });

TEST_F(Restore, FollowsAnOptionThatWasJustClicked) {
    open(house().inViewport());
    const auto flagsOf = [this](int box) {
        const std::vector<std::string> calls = callsOfRestore(Script().click(box));
        return ui::callsOf("restoreLayerState", calls);
    };
    EXPECT_THAT(flagsOf(IDC_LSTATE_RES_LAYERNOTFOUND), ElementsAre(HasSubstr("#F0, 4, null")));
    EXPECT_THAT(flagsOf(IDC_LSTATE_RES_OVERRIDES), ElementsAre(HasSubstr("#F0, 0, null")));
    EXPECT_THAT(flagsOf(IDC_LSTATE_RES_LAYERNOTFOUND), ElementsAre(HasSubstr("#F0, 1, null")));
}

TEST_F(Restore, TouchesOnlyTheCurrentOfSeveralDrawings) {
    open(house());
    runtime::Document& current = *runtime::currentDocument();
    open(house());
    runtime::Document& other = *runtime::currentDocument();
    runtime::setCurrentDocument(current);
    callsOfRestore(Script().clickCell(IDC_LSTATE_RES_LIST, 1, 0));
    EXPECT_EQ(runtime::currentDocument(), &current);
    EXPECT_TRUE(current.data().getLayerStateManager()->compareLayerStateToDb(L"Plumbing plan", KelDbObjectId()));
    EXPECT_FALSE(other.data().getLayerStateManager()->compareLayerStateToDb(L"Plumbing plan", KelDbObjectId()));
    EXPECT_TRUE(other.data().getLayerStateManager()->compareLayerStateToDb(L"Ground floor", KelDbObjectId()));
}

TEST_F(Restore, RegeneratesEveryLayerOfTheDrawingAndNotOnlyThoseOfTheState) {
    ui::TestDrawing drawing = house();
    for (int i = 0; i < 20; ++i)
        drawing.layer(L"Later " + std::to_wstring(i));
    open(drawing);
    const std::vector<std::string> calls = callsOfRestore();
    EXPECT_THAT(ui::callsOf("keledRegenLayers", calls), ElementsAre(StartsWith("keledRegenLayers(24, ")));
    EXPECT_EQ(ui::callsOf("iterator.getRecordId", calls).size(), 24u);
}

TEST_F(Restore, RegeneratesNothingWhenTheLayersCantBeWalked) {
    for (const char* operation : {"getLayerTable", "layerTable.newIterator"}) {
        open(house());
        const std::vector<std::string> calls = callsOfRestore(Script().look(
            "the walk of the layers is to fail", [operation](const View&) { instruments::failCall(operation, 1); }));
        EXPECT_TRUE(instruments::faultStruck()) << operation;
        EXPECT_EQ(ui::callsOf("restoreLayerState", calls).size(), 1u) << operation;
        EXPECT_THAT(ui::callsOf("keledRegenLayers", calls), IsEmpty()) << operation;
        EXPECT_THAT(ui::callsOf("keledRegenPending", calls), IsEmpty()) << operation;
        EXPECT_EQ(ui::callsOf("endTransaction", calls).size(), 1u) << operation;
    }
}

TEST_F(Restore, OfADependentStateIsAllowed) {
    open(houseOnSite());
    const std::vector<std::string> calls = callsOfRestore(Script().clickCellOf(IDC_LSTATE_RES_LIST, L"site!Survey"));
    EXPECT_THAT(ui::callsOf("restoreLayerState", calls),
                ElementsAre(StartsWith("restoreLayerState(\"site!Survey\", null, 5, null)")));
}

TEST_F(Restore, KeepsWhetherThePanelIsOpen) {
    open(house());
    callsOfRestore(Script().click(IDC_LSTATE_RES_EXPAND));
    EXPECT_EQ(kept(managerName, L"Expanded"), 1);
    callsOfRestore(Script().click(IDC_LSTATE_RES_EXPAND));
    EXPECT_EQ(kept(managerName, L"Expanded"), 0);
}

TEST_F(Restore, IsOneStepThatTheNextRestoreOfTheFormerStateTakesBack) {
    open(house());
    callsOfRestore(Script().clickCell(IDC_LSTATE_RES_LIST, 1, 0));
    callsOfRestore(Script().clickCell(IDC_LSTATE_RES_LIST, 0, 0));
    EXPECT_TRUE(states().compareLayerStateToDb(L"Ground floor", KelDbObjectId()));
}

TEST_F(Restore, WithoutATransactionDoesNothingAndTheManagerStaysOpen) {
    open(house());
    manage(Script()
               .look("no transaction can be started",
                     [](const View&) {
                         instruments::failCall("startTransaction", 1);
                         instruments::clearTrace();
                     })
               .click(IDC_LSTATE_RES_RESTORE)
               .look("still open",
                     [](const View& view) {
                         EXPECT_TRUE(view.has(IDC_LSTATE_RES_LIST));
                         EXPECT_THAT(instruments::trace(),
                                     ElementsAre("kelDocManagerPtr()", "currentDocument() = object",
                                                 "transactionManager() = object", "startTransaction() = null"));
                     })
               .press(VK_ESCAPE));
    EXPECT_EQ(kept(managerName, L"Expanded"), -1);
}

TEST_F(Restore, WithoutASelectedRowDoesNothingAndTheManagerStaysOpen) {
    open(house());
    // With Control held the first press unselects the row, and the second makes the double click.
    manage(Script()
               .look("the calls count from here", [](const View&) { instruments::clearTrace(); })
               .doubleClickCell(IDC_LSTATE_RES_LIST, 0, 0, ui::holdControl)
               .look("still open",
                     [](const View& view) {
                         EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), IsEmpty());
                         EXPECT_THAT(ui::callsOf("kelDocManagerPtr"), IsEmpty());
                         EXPECT_THAT(ui::callsOf("applyCurZdrLayerTableChanges"), IsEmpty());
                     })
               .press(VK_ESCAPE));
    EXPECT_EQ(kept(managerName, L"Expanded"), -1);
}

TEST_F(Restore, WithoutAStateManagerClosesSilentlyWithThePanelKept) {
    open(house());
    manage(Script()
               .look("no state manager from here on",
                     [](const View&) {
                         for (int nth = 1; nth <= 20; ++nth)
                             instruments::failCall("getLayerStateManager", nth);
                         instruments::clearTrace();
                     })
               .click(IDC_LSTATE_RES_RESTORE));
    const std::vector<std::string> calls = instruments::trace();
    EXPECT_THAT(ui::callsOf("restoreLayerState", calls), IsEmpty());
    EXPECT_EQ(ui::callsOf("endTransaction", calls).size(), 1u);
    EXPECT_EQ(ui::callsOf("applyCurZdrLayerTableChanges", calls).size(), 2u);
    EXPECT_EQ(kept(managerName, L"Expanded"), 0);
}

TEST_F(Restore, GoesOnWhenTheMaskCantBeSet) {
    open(house());
    const std::vector<std::string> calls = callsOfRestore(
        Script().look("the mask can't be set", [](const View&) { instruments::failCall("setLayerStateMask", 1); }));
    EXPECT_EQ(ui::callsOf("restoreLayerState", calls).size(), 1u);
    EXPECT_EQ(kept(managerName, L"Expanded"), 0);
}

} // namespace

// Picking the name of a state that is there from the list: its mask and its description are taken.

#include "SaveDialogTest.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

// The entries of the list, which is sorted.
constexpr int kBare = 0;
constexpr int kPlan = 1;
constexpr int kSurvey = 2;

class SavePick : public SaveDialogTest {
  protected:
    static Script listIs(bool dropped) {
        Script script;
        return script.waitUntil(dropped ? "the list is open" : "the list is closed", [dropped](const View& view) {
            return (SendMessageW(view.control(IDC_LSTATE_SAVE_NAME), CB_GETDROPPEDSTATE, 0, 0) != FALSE) == dropped;
        });
    }
    /// Opens the list and closes it again, with the pointer where it selects no entry.
    static Script openAndCloseList() {
        Script script;
        return script.hover(IDC_LSTATE_SAVE_NAME).press(VK_F4).then(listIs(true)).press(VK_F4).then(listIs(false));
    }
    static Script fieldsAre(const std::wstring& name, const std::wstring& description) {
        Script script;
        return script.look("the fields", [=](const View& view) {
            EXPECT_EQ(view.text(IDC_LSTATE_SAVE_NAME), name);
            EXPECT_EQ(view.text(IDC_LSTATE_SAVE_DESCRIPTION), description);
        });
    }
    /// OK, and the answer to the prompt that the state is to be replaced.
    static Script replace() {
        Script script;
        return script.click(IDOK).click(1001);
    }
};

TEST_F(SavePick, TakesMaskAndDescriptionAndEnablesOk) {
    open(house());
    save(countFromHere()
             .then(pick(kPlan))
             .look("what was asked",
                   [](const View& view) {
                       EXPECT_THAT(instruments::trace(), ElementsAreArray(picking("Plan", 1023, "All of it")));
                       EXPECT_TRUE(view.isEnabled(IDOK));
                   })
             .then(fieldsAre(L"Plan", L"All of it"))
             .press(VK_ESCAPE));
}

TEST_F(SavePick, IsSavedWithTheMaskOfThePickedState) {
    open(house());
    save(countFromHere().then(pick(kBare)).then(replace()));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(joined({picking("Bare", MaskOn | MaskFrozen, ""),
                                                               checking("Bare", true),
                                                               asking("Bare", 1001),
                                                               {"deleteLayerState(\"Bare\") = 0"},
                                                               saving("Bare", MaskOn | MaskFrozen, ""),
                                                               restoring("Bare")})));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare"}));
    EXPECT_EQ(stored(L"Bare")->mask, MaskOn | MaskFrozen);
}

TEST_F(SavePick, OverwritesADescriptionThatWasTyped) {
    open(house());
    save(Script()
             .pressAlt(L'd')
             .type(L"Typed")
             .then(pick(kPlan))
             .then(fieldsAre(L"Plan", L"All of it"))
             .then(pick(kBare))
             .then(fieldsAre(L"Bare", L""))
             .press(VK_ESCAPE));
}

TEST_F(SavePick, ANameTypedAfterwardsIsSavedWithTheMaskOfThePickAndTheDescriptionShown) {
    open(house());
    save(Script()
             .then(pick(kPlan))
             .then(pick(kBare))
             .then(countFromHere())
             .pressAlt(L'n')
             .type(L"New")
             .pressAlt(L'd')
             .type(L"Typed")
             .press(VK_RETURN));
    EXPECT_THAT(instruments::trace(),
                ElementsAreArray(
                    joined({checking("New", false), saving("New", MaskOn | MaskFrozen, "Typed"), restoring("New")})));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare", L"New"}));
    EXPECT_EQ(stored(L"New")->mask, MaskOn | MaskFrozen);
    EXPECT_EQ(stored(L"New")->description, L"Typed");
    EXPECT_EQ(stored(L"Bare")->description, L"");
}

TEST_F(SavePick, AMaskThatCantBeReadLeavesEverythingAsItWas) {
    open(house());
    instruments::failCall("getLayerStateMask", 2);
    save(Script()
             .then(pick(kBare))
             .pressAlt(L'd')
             .type(L"Typed")
             .then(countFromHere())
             .then(pick(kPlan))
             .look("what was asked",
                   [](const View&) {
                       EXPECT_THAT(instruments::trace(),
                                   ElementsAreArray(joined({stateManager(), {"getLayerStateMask(\"Plan\") = 3"}})));
                   })
             .then(fieldsAre(L"Plan", L"Typed"))
             .then(replace()));
    EXPECT_EQ(stored(L"Plan")->mask, MaskOn | MaskFrozen) << "still that of the pick before";
    EXPECT_EQ(stored(L"Plan")->description, L"Typed");
}

TEST_F(SavePick, ADescriptionThatCantBeReadLeavesTheFieldAsItIsAndTheMaskIsTaken) {
    open(house());
    instruments::failCall("getLayerStateDescription", 1);
    save(Script()
             .pressAlt(L'd')
             .type(L"Typed")
             .then(countFromHere())
             .then(pick(kBare))
             .look("what was asked",
                   [](const View& view) {
                       EXPECT_THAT(instruments::trace(),
                                   ElementsAreArray(joined({stateManager(),
                                                            {"getLayerStateMask(\"Bare\") = 0, mask=3",
                                                             "getLayerStateDescription(\"Bare\") = 3"}})));
                       EXPECT_TRUE(view.isEnabled(IDOK));
                   })
             .then(fieldsAre(L"Bare", L"Typed"))
             .then(replace()));
    EXPECT_EQ(stored(L"Bare")->mask, MaskOn | MaskFrozen);
    EXPECT_EQ(stored(L"Bare")->description, L"Typed");
}

TEST_F(SavePick, WithoutAStateManagerNothingIsTaken) {
    open(house());
    save(Script()
             .pressAlt(L'd')
             .type(L"Typed")
             .look("the manager goes",
                   [](const View&) {
                       instruments::failCall("getLayerStateManager", 1);
                       instruments::clearTrace();
                   })
             .then(pick(kPlan))
             .look("what was asked",
                   [](const View&) {
                       EXPECT_THAT(instruments::trace(),
                                   testing::ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                                                        "getLayerStateManager() = null"));
                   })
             .then(fieldsAre(L"Plan", L"Typed"))
             .press(VK_ESCAPE));
}

TEST_F(SavePick, ClosingTheListWithoutASelectionChangesNothing) {
    open(house());
    save(Script()
             .type(L"Neither")
             .pressAlt(L'd')
             .type(L"Typed")
             .pressAlt(L'n')
             .then(countFromHere())
             .then(openAndCloseList())
             .look("nothing was asked", [](const View&) { EXPECT_THAT(instruments::trace(), IsEmpty()); })
             .then(fieldsAre(L"Neither", L"Typed"))
             .press(VK_ESCAPE));
}

TEST_F(SavePick, ClosingTheListOverTheEntryThatWasSelectedBeforeTakesItAsWell) {
    open(house());
    save(Script()
             .look("an entry is selected without a word",
                   [](const View& view) {
                       SendMessageW(view.control(IDC_LSTATE_SAVE_NAME), CB_SETCURSEL, kPlan, 0);
                       EXPECT_FALSE(view.isEnabled(IDOK));
                   })
             .then(countFromHere())
             .then(openAndCloseList())
             .look("what was asked",
                   [](const View& view) {
                       EXPECT_THAT(instruments::trace(), ElementsAreArray(picking("Plan", 1023, "All of it")));
                       EXPECT_TRUE(view.isEnabled(IDOK));
                   })
             .press(VK_ESCAPE));
}

TEST_F(SavePick, AnArrowKeyOnTheClosedListEnablesOkAndTakesNothingElse) {
    open(house());
    save(countFromHere()
             .press(VK_DOWN)
             .look("the first name stands there",
                   [](const View& view) {
                       EXPECT_THAT(instruments::trace(), IsEmpty());
                       EXPECT_TRUE(view.isEnabled(IDOK));
                   })
             .then(fieldsAre(L"Bare", L""))
             .then(replace()));
    EXPECT_EQ(stored(L"Bare")->mask, MaskAllProperties);
}

TEST_F(SavePick, CancelAfterwardsLeavesTheDrawingUntouched) {
    open(house());
    save(countFromHere().then(pick(kBare)).click(IDCANCEL));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(picking("Bare", MaskOn | MaskFrozen, "")));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare"}));
}

TEST_F(SavePick, TheDialogCanBeClosedWhileTheListIsOpen) {
    open(house());
    save(Script().press(VK_F4).then(listIs(true)).press(VK_F4, ui::holdAlt));
    EXPECT_THAT(ui::callsOf("saveLayerState"), IsEmpty());
}

TEST_F(SavePick, TheNameOfAReferencesStateIsRefusedAsATypedOneWouldBe) {
    open(houseOnSite());
    save(Script()
             .then(pick(kSurvey))
             .then(fieldsAre(L"site!Survey", L"By laser"))
             .click(IDOK)
             .waitForControl(IDCLOSE)
             .press(VK_ESCAPE)
             .then(nameIsSelected(L"site!Survey"))
             .press(VK_ESCAPE));
    EXPECT_THAT(ui::callsOf("ShowInvalidNameUnsupportedCharacters").size(), 1u);
    EXPECT_THAT(ui::callsOf("hasLayerState"), IsEmpty());
}

TEST_F(SavePick, WhereTheHostAllowsThatNameReplacingTheStateIsForTheHostToRefuse) {
    open(houseOnSite());
    save(Script()
             .then(pick(kSurvey))
             .look("the host allows the name",
                   [](const View&) {
                       instruments::failCall("validateNameCharacters", 1, Vorn::eOk);
                       instruments::clearTrace();
                   })
             .then(replace())
             .then(refusalIsTold())
             .then(refusalIsTold())
             .then(refusalIsTold()));
    const std::string refused = std::to_string(Vorn::eDependentRecord);
    EXPECT_THAT(instruments::trace(),
                ElementsAreArray(
                    joined({checking("site!Survey", true),
                            asking("site!Survey", 1001),
                            {"deleteLayerState(\"site!Survey\") = " + refused, "keledGetCurViewportObjectId() = null",
                             "saveLayerState(\"site!Survey\", 1, null) = " + refused,
                             "setLayerStateDescription(\"site!Survey\", \"By laser\") = " + refused},
                            restoring("site!Survey")})));
    EXPECT_EQ(stored(L"site!Survey")->description, L"By laser");
}

} // namespace

// How the new layer state dialog opens, and when it can be left by OK.

#include "SaveDialogTest.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

class SaveOpening : public SaveDialogTest {
  protected:
    /// A look at the dialog as it opened, and Escape.
    static void lookAtOpening(std::function<void(const View&)> see) {
        save(Script().look("the dialog as it opened", std::move(see)).press(VK_ESCAPE));
    }
    static Script okIs(bool enabled) {
        Script script;
        return script.look(enabled ? "OK is enabled" : "OK is disabled",
                           [enabled](const View& view) { EXPECT_EQ(view.isEnabled(IDOK), enabled); });
    }
};

TEST_F(SaveOpening, AsksTheHostForTheseStepsInThisOrderWhenTheExportOpensIt) {
    open(house());
    lookAtOpening(
        [](const View&) { EXPECT_THAT(instruments::trace(), ElementsAreArray(opening("[\"Plan\", \"Bare\"]"))); });
}

TEST_F(SaveOpening, AsksForTheSameWhenTheManagerOpensItOnceThereIsAStateManager) {
    open(house());
    Calls calls;
    saveFromManager(
        Script().look("the calls", [&calls](const View&) { calls = instruments::trace(); }).press(VK_ESCAPE));
    const Calls dialog = opening("[\"Plan\", \"Bare\"]");
    // The dialog is made first; only then does the manager look whether there is something to save into.
    EXPECT_THAT(calls, ElementsAreArray(
                           joined({{dialog.front()}, stateManager(), Calls(std::next(dialog.begin()), dialog.end())})));
}

TEST_F(SaveOpening, IsEmptyWithTheFocusInTheNameAndOkDisabled) {
    open(house());
    lookAtOpening([](const View& view) {
        EXPECT_EQ(view.text(IDC_LSTATE_SAVE_NAME), L"");
        EXPECT_EQ(view.text(IDC_LSTATE_SAVE_DESCRIPTION), L"");
        EXPECT_EQ(SendMessageW(view.control(IDC_LSTATE_SAVE_NAME), CB_GETCURSEL, 0, 0), CB_ERR);
        EXPECT_TRUE(nameHasFocus(view));
        EXPECT_FALSE(view.isEnabled(IDOK));
    });
}

TEST_F(SaveOpening, ListsTheNamesOfAllStatesThoseOfReferencesAndHiddenOnesToo) {
    open(houseOnSite().state(L"*kept by the host", MaskOn));
    lookAtOpening([](const View& view) {
        EXPECT_THAT(listedNames(view),
                    ElementsAre(L"*kept by the host", L"Bare", L"Plan", L"site!Survey", L"site!Trees"));
    });
}

TEST_F(SaveOpening, ShowsNamesAsTheyAre) {
    open(ui::TestDrawing().state(L"100 % & \x4E2D", MaskOn).state(std::wstring(300, L'n'), MaskOn));
    lookAtOpening([](const View& view) {
        EXPECT_THAT(listedNames(view), ElementsAre(L"100 % & \x4E2D", std::wstring(300, L'n')));
    });
}

TEST_F(SaveOpening, NamesThatCantBeReadLeaveTheListEmpty) {
    open(house());
    instruments::failCall("getLayerStateNames", 1);
    lookAtOpening([](const View& view) {
        EXPECT_THAT(listedNames(view), IsEmpty());
        EXPECT_TRUE(nameHasFocus(view));
    });
    EXPECT_THAT(ui::callsOf("getLayerStateNames"), ElementsAre("getLayerStateNames(true, true) = 3"));
}

TEST_F(SaveOpening, WithoutAStateManagerTheListIsEmptyAndTheSetUpGoesOn) {
    open(house());
    instruments::failCall("getLayerStateManager", 1);
    lookAtOpening([](const View& view) {
        EXPECT_THAT(listedNames(view), IsEmpty());
        EXPECT_TRUE(nameHasFocus(view));
        EXPECT_FALSE(view.isEnabled(IDOK));
    });
    EXPECT_THAT(ui::callsOf("getLayerStateNames"), IsEmpty());
}

TEST_F(SaveOpening, WithoutADrawingItOpensEmptyAndOkDoesNothing) {
    lookAtOpening([](const View& view) { EXPECT_THAT(listedNames(view), IsEmpty()); });
    save(Script()
             .type(L"New")
             .press(VK_RETURN)
             .look("it is open", [](const View& view) { EXPECT_EQ(view.text(IDC_LSTATE_SAVE_NAME), L"New"); })
             .press(VK_ESCAPE));
}

TEST_F(SaveOpening, TheNameTakesAsManyCharactersAsTheHostAllows) {
    open(house());
    save(Script()
             .type(std::wstring(300, L'n'))
             .look("the name",
                   [](const View& view) { EXPECT_EQ(view.text(IDC_LSTATE_SAVE_NAME), std::wstring(255, L'n')); })
             .press(VK_ESCAPE));
}

TEST_F(SaveOpening, OkIsEnabledWhileTheNameHoldsAnythingButBlanks) {
    open(house());
    save(Script()
             .type(L"  ")
             .then(okIs(false))
             .type(L"a")
             .then(okIs(true))
             .press(VK_BACK)
             .then(okIs(false))
             .type(L"b ")
             .then(okIs(true))
             .press(VK_ESCAPE));
}

TEST_F(SaveOpening, TheDescriptionPlaysNoPartInWhetherOkIsEnabled) {
    open(house());
    save(Script()
             .pressAlt(L'd')
             .type(L"a")
             .then(okIs(false))
             .pressAlt(L'n')
             .type(L"a")
             .pressAlt(L'd')
             .press(VK_BACK)
             .then(okIs(true))
             .press(VK_ESCAPE));
}

TEST_F(SaveOpening, AChangedDescriptionRunsTheTestOfTheName) {
    open(house());
    save(Script()
             .look("the name changes without a word",
                   [](const View& view) { SetWindowTextW(view.control(IDC_LSTATE_SAVE_NAME), L"New"); })
             .then(okIs(false))
             .pressAlt(L'd')
             .type(L"a")
             .then(okIs(true))
             .press(VK_ESCAPE));
}

TEST_F(SaveOpening, EnterDoesNothingWhileOkIsDisabled) {
    open(house());
    save(Script().type(L"  ").press(VK_RETURN).then(okIs(false)).press(VK_ESCAPE));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(opening("[\"Plan\", \"Bare\"]")));
}

TEST_F(SaveOpening, TheHelpButtonAndTheF1KeyOpenItsTopicWhereverTheFocusIs) {
    open(house());
    const auto expectHelp = [](Script ask) {
        ask.waitUntil("something is asked of the host", [](const View&) { return !instruments::trace().empty(); })
            .look("the topic, and nothing else",
                  [](const View&) {
                      EXPECT_THAT(instruments::trace(), ElementsAre("keledHelp(null, \"NEWLAYERSTATEDIALOG\", 0)"));
                  })
            .press(VK_ESCAPE);
        save(std::move(ask));
    };
    expectHelp(countFromHere().click(ID_HELP));
    expectHelp(countFromHere().press(VK_F1));
    expectHelp(countFromHere().pressAlt(L'd').press(VK_F1));
}

} // namespace

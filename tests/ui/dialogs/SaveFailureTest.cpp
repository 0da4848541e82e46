// What the user is told when the host refuses a part of the save, and what stands in the drawing then.

#include "SaveDialogTest.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

class SaveFailure : public SaveDialogTest {
  protected:
    void SetUp() override {
        SaveDialogTest::SetUp();
        open(house());
    }
    /// Types the name and a description, and presses OK with the first calls of these operations failing.
    static Script saveWithFailing(const std::wstring& name, const std::vector<std::string>& operations) {
        Script script;
        script.type(name).pressAlt(L'd').type(L"Mine").look("the host is to refuse", [operations](const View&) {
            instruments::clearTrace();
            for (const std::string& operation : operations)
                instruments::failCall(operation, 1);
        });
        return script.press(VK_RETURN);
    }
    static Script replaceWithFailing(const std::vector<std::string>& operations) {
        Script script = saveWithFailing(L"Plan", operations);
        return script.click(1001);
    }
    /// What replacing asks for, with these answers.
    static Calls replacing(int deleted, int saved, int described, int restored) {
        const auto answer = [](int status) { return ") = " + std::to_string(status); };
        return joined(
            {checking("Plan", true),
             asking("Plan", 1001),
             {"deleteLayerState(\"Plan\"" + answer(deleted), "keledGetCurViewportObjectId() = null",
              "saveLayerState(\"Plan\", 1023, null" + answer(saved),
              "setLayerStateDescription(\"Plan\", \"Mine\"" + answer(described)},
             stateManager(),
             {"keledGetCurViewportObjectId() = null", "restoreLayerState(\"Plan\", null, 0, null" + answer(restored)}});
    }
};

TEST_F(SaveFailure, ADeleteThatIsRefusedIsToldAndTheStateIsSavedOver) {
    save(replaceWithFailing({"deleteLayerState"}).then(refusalIsTold()));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(replacing(3, 0, 0, 0)));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare"}));
    EXPECT_EQ(stored(L"Plan")->description, L"Mine");
}

TEST_F(SaveFailure, ASaveThatIsRefusedAfterTheDeleteHasLostTheState) {
    // The description finds no state either, and is told as well.
    save(replaceWithFailing({"saveLayerState"}).then(refusalIsTold()).then(refusalIsTold()));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(replacing(0, 3, Vorn::eKeyNotFound, Vorn::eKeyNotFound)));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Bare"}));
}

TEST_F(SaveFailure, ASaveOfANewStateThatIsRefusedIsToldAndClosesTheDialogAsWell) {
    saveFromManager(
        Script().then(saveWithFailing(L"New", {"saveLayerState"})).then(refusalIsTold()).then(refusalIsTold()));
    EXPECT_THAT(callsUpTo("setLayerStateDescription"),
                ElementsAreArray(
                    joined({checking("New", false),
                            {"keledGetCurViewportObjectId() = null", "saveLayerState(\"New\", 1023, null) = 3",
                             "setLayerStateDescription(\"New\", \"Mine\") = " + std::to_string(Vorn::eKeyNotFound)}})));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare"}));
}

TEST_F(SaveFailure, ADescriptionThatIsRefusedIsToldAndTheStateStandsWithoutOne) {
    save(replaceWithFailing({"setLayerStateDescription"}).then(refusalIsTold()));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(replacing(0, 0, 3, 0)));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Bare", L"Plan"}));
    EXPECT_EQ(stored(L"Plan")->description, L"");
}

TEST_F(SaveFailure, EachRefusalIsToldAndTheStateStaysAsItWas) {
    save(replaceWithFailing({"deleteLayerState", "saveLayerState", "setLayerStateDescription"})
             .then(refusalIsTold())
             .then(refusalIsTold())
             .then(refusalIsTold()));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(replacing(3, 3, 3, 0)));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare"}));
    EXPECT_EQ(stored(L"Plan")->description, L"All of it");
}

/// What one run with the n-th host call failing came to.
struct Outcome {
    bool struck = false;
    bool stayedOpen = false;
    Calls calls;
};

class EachCallOfASaveFailing : public SaveDialogTest {
  protected:
    /// Picks "Plan" and replaces it.
    static Outcome replaceWithFailing(int nth) {
        Outcome outcome;
        save(Script()
                 .look("one call is to fail",
                       [nth](const View&) {
                           instruments::clearTrace();
                           instruments::failAnyCall(nth, Vorn::eInvalidInput);
                       })
                 .then(pick(1))
                 .click(IDOK)
                 .answerAllUntil(IDC_LSTATE_SAVE_NAME)
                 .look("the dialog is still open", [&outcome](const View&) { outcome.stayedOpen = true; })
                 .press(VK_ESCAPE));
        outcome.struck = instruments::faultStruck();
        outcome.calls = instruments::trace();
        instruments::clearFaults();
        return outcome;
    }
};

TEST_F(EachCallOfASaveFailing, EitherSavesAndEndsOrStaysOpenWithTheStateAsItWas) {
    int runs = 0;
    for (bool struck = true; struck && !HasFailure(); ++runs) {
        SCOPED_TRACE("with call " + std::to_string(runs + 1) + " failing");
        open(house());
        const Outcome outcome = replaceWithFailing(runs + 1);
        struck = outcome.struck;
        const auto count = [&outcome](const std::string& operation) {
            return ui::callsOf(operation, outcome.calls).size();
        };
        const std::size_t ended = outcome.stayedOpen ? 0 : 1;
        EXPECT_EQ(count("saveLayerState"), ended);
        EXPECT_EQ(count("setLayerStateDescription"), ended);
        // The export asks for the state manager once more, and without one restores nothing.
        const bool managerLost = testing::Matches(
            testing::AnyOf("workingDatabase() = null", "getLayerStateManager() = null"))(outcome.calls.back());
        EXPECT_EQ(count("restoreLayerState"), managerLost ? 0 : ended);
        if (outcome.stayedOpen) {
            EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare"}));
        }
        EXPECT_THAT(instruments::ledger(), IsEmpty());
    }
    EXPECT_GT(runs, 10);
}

} // namespace

// New, Update and Delete with each of their host calls failing once: the manager can be used afterwards, nothing is
// left open, the drawing is whole, and the list shows what is in it.

#include "ActionTest.h"
#include "FaultSweep.h"
#include "WholeDrawing.h"

#include <algorithm>

namespace {

using testing::IsEmpty;
using ui::Script;
using ui::View;

/// What an action came to.
struct Outcome {
    bool struck = false;
    std::vector<std::wstring> listed;
    std::size_t selected = 0;
    bool hasFocus = false;
    int messages = 0; ///< that the host has refused something
    Calls calls;

    /// Calls of the operation that have failed, by their status.
    int failed(const std::string& operation) const {
        return static_cast<int>(std::count_if(calls.begin(), calls.end(), [&operation](const std::string& line) {
            return line.starts_with(operation + "(") && line.find(") = 0") == std::string::npos;
        }));
    }
    bool lacked(const std::string& operation) const {
        return std::find(calls.begin(), calls.end(), operation + "() = null") != calls.end();
    }
};

class EachCallFailing : public ActionTest {
  protected:
    /// Opens the drawing anew for each host call of the action, which presses a button; that call fails, and whatever
    /// opens is answered by Enter. `check` looks at what came of it.
    void sweep(const ui::TestDrawing& drawing, const Script& action, const std::function<void(const Outcome&)>& check) {
        int runs = 0;
        for (bool struck = true; struck && !HasFailure(); ++runs) {
            open(drawing);
            const Outcome outcome = run(runs + 1, action);
            SCOPED_TRACE("call " + std::to_string(runs + 1) + " of " + instruments::struckOperation());
            struck = outcome.struck;
            instruments::clearFaults();
            EXPECT_THAT(instruments::ledger(), IsEmpty());
            EXPECT_THAT(wholenessProblems(database()), IsEmpty());
            check(outcome);
        }
        EXPECT_GT(runs, 5);
    }

    /// What is done before, without faults.
    Script m_before;

  private:
    Outcome run(int nth, const Script& action) {
        Outcome outcome;
        HWND answered = nullptr;
        Script script;
        script.then(m_before)
            .look("one call is to fail",
                  [nth](const View&) {
                      instruments::clearTrace();
                      instruments::failAnyCall(nth, &sweep::statusOf);
                  })
            .then(action)
            .step("answer by Enter until the manager is back",
                  [&](const View& view) -> ui::Obstacle {
                      if (view.has(IDC_LSTATE_RES_LIST))
                          return std::nullopt;
                      const Texts texts = view.texts();
                      const bool isMessage =
                          std::find(texts.begin(), texts.end(), resourceText(IDS_LSTATE_NOT_SAVED)) != texts.end();
                      if (isMessage && view.window() != answered)
                          ++outcome.messages;
                      answered = view.window();
                      ui::pressKey(VK_RETURN);
                      return "the window \"" + ui::narrow(view.title()) + "\" stands before it";
                  })
            .look("the manager",
                  [&outcome](const View& view) {
                      outcome.struck = instruments::faultStruck();
                      outcome.calls = instruments::trace();
                      outcome.listed = view.column(IDC_LSTATE_RES_LIST, 0);
                      outcome.selected = view.selectedRows(IDC_LSTATE_RES_LIST).size();
                      outcome.hasFocus = view.focusedControl() == IDC_LSTATE_RES_LIST;
                      EXPECT_TRUE(IsWindowEnabled(view.window()));
                  })
            .press(VK_ESCAPE);
        manage(script);
        return outcome;
    }
};

TEST_F(EachCallFailing, OfAnUpdateIsToldAndNothingButTheStateIsTouched) {
    sweep(wiredHouse(), Script().click(IDC_LSTATE_RES_UPDATE), [this](const Outcome& outcome) {
        EXPECT_EQ(outcome.messages, outcome.failed("deleteLayerState") + outcome.failed("saveLayerState") +
                                        outcome.failed("setLayerStateDescription"));
        EXPECT_THAT(outcome.listed, testing::ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare", L"Wiring"));
        EXPECT_EQ(outcome.selected, 1u);
        // The state is as the drawing is now, as it was before, or lost.
        const bool lost = outcome.failed("saveLayerState") != 0;
        const bool untouched = outcome.failed("deleteLayerState") != 0 || outcome.lacked("workingDatabase") ||
                               outcome.lacked("getLayerStateManager");
        EXPECT_EQ(stateNames().size(), lost ? 3u : 4u);
        EXPECT_EQ(matchesDrawing(L"Wiring"), !lost && !untouched);
        const bool described =
            !lost && outcome.failed("setLayerStateDescription") == 0 &&
            outcome.failed("getLayerStateDescription") == 0 &&
            ui::callsOf("hasLayerState", outcome.calls) != Calls{"hasLayerState(\"Wiring\") = false"};
        EXPECT_EQ(stateOf(L"Wiring") && stateOf(L"Wiring")->description == L"As of May", described);
    });
}

TEST_F(EachCallFailing, OfADeleteIsSilentAndTheListShowsWhatIsLeft) {
    const ui::TestDrawing drawing = ui::TestDrawing().state(L"One", MaskColor).state(L"Two", MaskOn);
    m_before = Script().press(VK_DOWN, ui::holdShift);
    sweep(drawing, Script().click(IDC_LSTATE_RES_DELETE), [this](const Outcome& outcome) {
        EXPECT_EQ(outcome.messages, 0);
        EXPECT_EQ(outcome.listed, stateNames());
        EXPECT_EQ(outcome.selected != 0, !outcome.listed.empty());
        EXPECT_TRUE(outcome.hasFocus);
        const Calls deletes = ui::callsOf("deleteLayerState", outcome.calls);
        const auto done = std::count_if(deletes.begin(), deletes.end(),
                                        [](const std::string& line) { return line.ends_with(" = 0"); });
        EXPECT_EQ(outcome.listed.size() + static_cast<std::size_t>(done), 2u);
        EXPECT_GE(done, 1);
    });
}

TEST_F(EachCallFailing, OfANewStateLeavesAListThatCanBeUsed) {
    const Script typing = Script().click(IDC_LSTATE_RES_NEW).look("the name, if it is asked for", [](const View& view) {
        if (view.has(IDC_LSTATE_SAVE_NAME))
            ui::typeText(L"Two");
    });
    sweep(ui::TestDrawing().state(L"One", MaskColor), typing, [this](const Outcome& outcome) {
        EXPECT_EQ(outcome.messages, outcome.failed("saveLayerState") + outcome.failed("setLayerStateDescription"));
        const bool saved =
            !ui::callsOf("saveLayerState", outcome.calls).empty() && outcome.failed("saveLayerState") == 0;
        EXPECT_EQ(stateNames(), saved ? Texts({L"One", L"Two"}) : Texts({L"One"}));
        if (!outcome.listed.empty()) {
            EXPECT_EQ(outcome.listed, stateNames());
            EXPECT_EQ(outcome.selected, 1u);
        }
    });
}

} // namespace

// What Update tells the user when the host refuses one of its steps, which steps follow all the same, and what stands
// in the drawing and in the list afterwards.

#include "ActionTest.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

constexpr int exclamation = 32515;
constexpr int wiring = 3; // row of the state that is updated

class UpdateFailure : public ActionTest {
  protected:
    void SetUp() override {
        ActionTest::SetUp();
        open(wiredHouse());
    }
    /// Presses Update, answers the question with Yes and the messages that say that the host has refused something,
    /// and answers the calls after the one for the state service.
    Calls update(const std::function<void()>& sabotage, int messages, bool isAsked = true) {
        Script script;
        script
            .look("what is to fail",
                  [&](const View& view) {
                      m_manager = view.window();
                      m_row = view.cells(IDC_LSTATE_RES_LIST, wiring);
                      sabotage();
                      instruments::clearTrace();
                  })
            .click(IDC_LSTATE_RES_UPDATE);
        if (isAsked)
            script.then(answerBox(textWithName(IDS_LSTATE_CONFIRM_UPDATE, L"Wiring"), IDYES));
        for (int i = 0; i < messages; ++i)
            script.then(confirmMessage());
        manage(script.waitForControl(IDC_LSTATE_RES_LIST)
                   .look("the row is still there and selected",
                         [this](const View& view) {
                             EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 4);
                             EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(wiring));
                             m_rowAfter = view.cells(IDC_LSTATE_RES_LIST, wiring);
                         })
                   .press(VK_ESCAPE));
        const Calls calls = instruments::trace();
        const auto service = std::find_if(calls.begin(), calls.end(), [](const std::string& line) {
            return line.starts_with("getLayerStateManager(");
        });
        return service == calls.end() ? calls : Calls(service + 1, calls.end());
    }
    /// The message comes anew each time, so the former one has to be gone before the next is waited for.
    Script confirmMessage() {
        return Script()
            .waitUntil("the message is shown",
                       [this](const View& view) {
                           const Texts texts = view.texts();
                           return view.window() != m_message &&
                                  std::find(texts.begin(), texts.end(), resourceText(IDS_LSTATE_NOT_SAVED)) !=
                                      texts.end();
                       })
            .look("its owner, its title, its icon and its button",
                  [this](const View& view) {
                      m_message = view.window();
                      EXPECT_EQ(GetWindow(view.window(), GW_OWNER), m_manager);
                      EXPECT_EQ(view.title(), L"Error"); // the system's title for a box that names none
                      EXPECT_EQ(view.icon(), LoadIconW(nullptr, MAKEINTRESOURCEW(exclamation)));
                      EXPECT_FALSE(view.has(IDYES));
                      EXPECT_FALSE(view.has(IDNO));
                  })
            .press(VK_RETURN);
    }
    void expectRowUnchanged() const { EXPECT_EQ(m_rowAfter, m_row); }
    void expectRowMatches() const {
        Texts matching = m_row;
        matching[2] = resourceText(IDS_LSTATE_YES);
        EXPECT_EQ(m_rowAfter, matching);
        EXPECT_NE(m_row, matching);
    }
    void expectStateUntouched() const {
        ASSERT_NE(stateOf(L"Wiring"), nullptr);
        EXPECT_FALSE(matchesDrawing(L"Wiring"));
        EXPECT_EQ(stateOf(L"Wiring")->description, L"As of May");
    }

  private:
    HWND m_manager = nullptr;
    HWND m_message = nullptr;
    Texts m_row, m_rowAfter;
};

// The calls of an update in which nothing fails.
const Calls asked = {"hasLayerState(\"Wiring\") = true"};
const Calls described = {"getLayerStateDescription(\"Wiring\") = 0, description=\"As of May\"",
                         "keldbFree(\"As of May\")"};
const Calls deleted = {"deleteLayerState(\"Wiring\") = 0"};
const Calls saved = {"keledGetCurViewportObjectId() = null", "saveLayerState(\"Wiring\", 33, null) = 0",
                     "compareLayerStateToDb(\"Wiring\", null) = true"};

TEST_F(UpdateFailure, OfTheStateServiceStopsItSilently) {
    const Calls calls = update([] { instruments::failCall("getLayerStateManager", 1); }, 0, false);
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_THAT(ui::callsOf("getLayerStateManager"), ElementsAre("getLayerStateManager() = null"));
    expectRowUnchanged();
    expectStateUntouched();
}

TEST_F(UpdateFailure, OfTheWorkingDrawingStopsItSilently) {
    const Calls calls = update([] { instruments::failCall("workingDatabase", 1); }, 0, false);
    EXPECT_THAT(calls, ElementsAre("keldbHostApplicationServices()", "workingDatabase() = null"));
    expectRowUnchanged();
    expectStateUntouched();
}

TEST_F(UpdateFailure, ToFindTheStateSavesItWithoutAQuestionAndWithoutADescription) {
    const Calls plainSave =
        joined({{"hasLayerState(\"Wiring\") = false"}, saved, {"setLayerStateDescription(\"Wiring\", \"\") = 0"}});
    // Deleted behind the manager's back.
    EXPECT_THAT(update([this] { EXPECT_EQ(states().deleteLayerState(L"Wiring"), Vorn::eOk); }, 0, false),
                ElementsAreArray(plainSave));
    expectRowMatches();
    ASSERT_NE(stateOf(L"Wiring"), nullptr);
    EXPECT_EQ(stateOf(L"Wiring")->description, L"");
    EXPECT_EQ(stateOf(L"Wiring")->mask, MaskOn | MaskColor);
    // Still there, but the host says no.
    open(wiredHouse());
    EXPECT_THAT(update([] { instruments::failCall("hasLayerState", 1); }, 0, false), ElementsAreArray(plainSave));
    expectRowMatches();
    EXPECT_EQ(stateOf(L"Wiring")->description, L"");
}

TEST_F(UpdateFailure, ToReadTheDescriptionLeavesTheStateWithoutOne) {
    EXPECT_THAT(update([] { instruments::failCall("getLayerStateDescription", 1); }, 0),
                ElementsAreArray(joined({asked,
                                         {"getLayerStateDescription(\"Wiring\") = 3"},
                                         deleted,
                                         saved,
                                         {"setLayerStateDescription(\"Wiring\", \"\") = 0"}})));
    expectRowMatches(); // its last column still shows the description
    EXPECT_EQ(stateOf(L"Wiring")->description, L"");
}

TEST_F(UpdateFailure, ToDeleteTheOldStateIsToldAndLeavesItAsItWas) {
    EXPECT_THAT(update([] { instruments::failCall("deleteLayerState", 1); }, 1),
                ElementsAreArray(joined({asked, described, {"deleteLayerState(\"Wiring\") = 3"}})));
    expectRowUnchanged();
    expectStateUntouched();
}

TEST_F(UpdateFailure, ToSaveTheNewStateIsToldTwiceSinceTheOldOneIsGone) {
    EXPECT_THAT(
        update([] { instruments::failCall("saveLayerState", 1); }, 2),
        ElementsAreArray(
            joined({asked,
                    described,
                    deleted,
                    {"keledGetCurViewportObjectId() = null", "saveLayerState(\"Wiring\", 33, null) = 3",
                     "setLayerStateDescription(\"Wiring\", \"As of May\") = " + std::to_string(Vorn::eKeyNotFound)}})));
    expectRowUnchanged();
    EXPECT_THAT(stateNames(), ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare"));
}

TEST_F(UpdateFailure, ToDescribeTheNewStateIsToldAndLeavesItWithoutADescription) {
    EXPECT_THAT(update([] { instruments::failCall("setLayerStateDescription", 1); }, 1),
                ElementsAreArray(joined(
                    {asked, described, deleted, saved, {"setLayerStateDescription(\"Wiring\", \"As of May\") = 3"}})));
    expectRowMatches();
    EXPECT_TRUE(matchesDrawing(L"Wiring"));
    EXPECT_EQ(stateOf(L"Wiring")->description, L"");
}

} // namespace

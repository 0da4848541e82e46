// Edit: when it opens the dialog, with which state, and what the list shows after it.

#include "ActionTest.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

constexpr int kList = IDC_LSTATE_RES_LIST, kGrid = IDC_LAYER_GRID;
constexpr int kLock = 3;

class EditAction : public ActionTest {
  protected:
    /// Opens the edit dialog on the selected state, does the steps in it, ends it by that key, and waits for the
    /// manager. The trace holds the calls from the key on.
    static Script edited(const Script& steps, WORD key) {
        return Script()
            .click(IDC_LSTATE_RES_EDIT)
            .waitForControl(kGrid)
            .then(steps)
            .then(countCalls())
            .press(key)
            .waitForControl(kList);
    }
    /// The press of the button's command, whatever the button's state.
    static Script commanded() {
        return Script().look("the command", [](const View& view) {
            SendMessageW(view.window(), WM_COMMAND, MAKEWPARAM(IDC_LSTATE_RES_EDIT, BN_CLICKED),
                         reinterpret_cast<LPARAM>(view.control(IDC_LSTATE_RES_EDIT)));
        });
    }
    static std::vector<Texts> list(const View& view) {
        std::vector<Texts> found;
        for (int row = 0; row < view.rowCount(kList); ++row)
            found.push_back(view.cells(kList, row));
        return found;
    }
};

const Calls compared = {"keledGetCurViewportObjectId() = null", "keldbHostApplicationServices()",
                        "workingDatabase() = object", "getLayerStateManager() = object"};

TEST_F(EditAction, EditsTheSelectedStateAndNoOther) {
    open(wiredHouse());
    manage(Script()
               .clickCellOf(kList, L"Plumbing plan")
               .waitUntil("it is selected", [](const View& view) { return view.selectedRows(kList) == std::vector{1}; })
               .click(IDC_LSTATE_RES_EDIT)
               .waitForControl(kGrid)
               .look("the title", [](const View& view) { EXPECT_EQ(view.title(), L"Edit Layer State: Plumbing plan"); })
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(EditAction, AfterOkTurnsTheRowsThirdColumnAndNothingElseInTheList) {
    open(house()); // "Ground floor" is as the drawing is
    std::vector<Texts> before, after;
    Calls calls;
    manage(Script()
               .look("the list", [&](const View& view) { before = list(view); })
               .then(edited(Script().clickCell(kGrid, 0, kLock), VK_RETURN))
               .look("the list and its selection",
                     [&](const View& view) {
                         calls = instruments::trace();
                         after = list(view);
                         EXPECT_THAT(view.selectedRows(kList), ElementsAre(0));
                         EXPECT_EQ(view.focusedRow(kList), 0);
                         EXPECT_EQ(shownMask(view), MaskAllProperties);
                     })
               .press(VK_ESCAPE));
    ASSERT_EQ(before.size(), 3u);
    EXPECT_EQ(before[0][2], resourceText(IDS_LSTATE_YES));
    before[0][2] = resourceText(IDS_LSTATE_NO);
    EXPECT_EQ(after, before);
    ASSERT_GE(calls.size(), 5u);
    calls.erase(calls.begin(), calls.end() - 5); // those of the dialog are its own tests' business
    EXPECT_THAT(calls, ElementsAreArray(joined({compared, {"compareLayerStateToDb(\"Ground floor\", null) = false"}})));
}

TEST_F(EditAction, AfterOkShowsYesWhereTheStateHasComeToMatch) {
    open(wiredHouse()); // Doors have another colour in "Wiring"
    manage(Script()
               .look("it differs",
                     [](const View& view) { EXPECT_EQ(view.cell(kList, 3, 2), resourceText(IDS_LSTATE_NO)); })
               .then(edited(Script().clickCellOf(kGrid, L"Doors").click(IDC_REMOVE_LAYERS), VK_RETURN))
               .look("it matches",
                     [](const View& view) { EXPECT_EQ(view.cell(kList, 3, 2), resourceText(IDS_LSTATE_YES)); })
               .press(VK_ESCAPE));
}

TEST_F(EditAction, AfterCancelAsksNothing) {
    open(wiredHouse());
    std::vector<Texts> before, after;
    manage(Script()
               .look("the list", [&](const View& view) { before = list(view); })
               .then(edited(Script().clickCellOf(kGrid, L"Doors").click(IDC_REMOVE_LAYERS), VK_ESCAPE))
               .look("the list",
                     [&](const View& view) {
                         EXPECT_THAT(ui::callsOf("compareLayerStateToDb"), IsEmpty());
                         EXPECT_THAT(ui::callsOf("keledGetCurViewportObjectId"), IsEmpty());
                         after = list(view);
                     })
               .press(VK_ESCAPE));
    EXPECT_EQ(after, before);
    EXPECT_FALSE(matchesDrawing(L"Wiring"));
}

TEST_F(EditAction, InAViewportComparesWithTheViewport) {
    open(wiredHouse().inViewport());
    manage(Script()
               .then(edited({}, VK_RETURN))
               .look("the comparison",
                     [](const View&) {
                         EXPECT_THAT(ui::callsOf("compareLayerStateToDb"),
                                     ElementsAre("compareLayerStateToDb(\"Wiring\", #F0) = false"));
                     })
               .press(VK_ESCAPE));
}

TEST_F(EditAction, WithoutAStateServiceLeavesTheRowAsItIs) {
    open(house());
    manage(
        Script()
            .then(edited(Script()
                             .clickCell(kGrid, 0, kLock)
                             .look("the manager's service is to fail",
                                   [](const View&) { instruments::failCall("getLayerStateManager", 2); }),
                         VK_RETURN))
            .look("the row", [](const View& view) { EXPECT_EQ(view.cell(kList, 0, 2), resourceText(IDS_LSTATE_YES)); })
            .press(VK_ESCAPE));
    EXPECT_TRUE(instruments::faultStruck());
}

TEST_F(EditAction, WaitsForTheEndOfARename) {
    open(house());
    Script script;
    script.press(VK_F2)
        .type(L"bare")
        .pressMnemonicOf(IDC_LSTATE_RES_EDIT)
        .then(answerBox(textWithName(IDS_LSTATE_NAME_TAKEN, L"bare"), IDOK))
        .waitUntil("the name is edited again", [](const View& view) { return view.labelEditorText(kList).has_value(); })
        .then(countCalls())
        .then(commanded())
        .look("no dialog",
              [](const View& view) {
                  EXPECT_TRUE(view.has(kList));
                  EXPECT_THAT(instruments::trace(), IsEmpty());
              })
        .press(VK_ESCAPE)
        .press(VK_ESCAPE);
    manage(script);
}

TEST_F(EditAction, DoesNothingWithNoRowOrSeveralSelected) {
    // The button is disabled then, so the test sends its command itself.
    const Script none = Script().clickEmptySpace(kList);
    const Script two = Script().clickCell(kList, 0, 0).clickCell(kList, 1, 0, ui::holdControl);
    for (const auto& [drawing, select] :
         {std::pair(house(), none), std::pair(house(), two), std::pair(ui::TestDrawing(), none)}) {
        open(drawing);
        Script script = select;
        manage(script.then(countCalls())
                   .then(commanded())
                   .look("no dialog", [](const View& view) { EXPECT_TRUE(view.has(kList)); })
                   .press(VK_ESCAPE));
        EXPECT_THAT(instruments::trace(), IsEmpty());
    }
}

} // namespace

// Update: what is asked of the user and of the host, in which order, and what the list shows afterwards.

#include "ActionTest.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

constexpr int question = 32514;

class Update : public ActionTest {
  protected:
    /// Presses Update and answers its question.
    static Script update(const std::wstring& name, int button = IDYES) {
        return Script().click(IDC_LSTATE_RES_UPDATE).then(answerBox(questionAbout(name), button));
    }
    static std::wstring questionAbout(const std::wstring& name) {
        return textWithName(IDS_LSTATE_CONFIRM_UPDATE, name);
    }
    /// Runs the manager with the steps of `before`, updates the state that is selected then, and answers the calls.
    Calls callsOfUpdate(const std::wstring& name, Script before = {}) {
        manage(before.then(countCalls()).then(update(name)).press(VK_ESCAPE));
        return instruments::trace();
    }
};

TEST_F(Update, AsksTheHostForTheseStepsInThisOrder) {
    open(wiredHouse());
    EXPECT_THAT(callsOfUpdate(L"Wiring"),
                ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object", //
                            "getLayerStateManager() = object", "hasLayerState(\"Wiring\") = true",
                            "getLayerStateDescription(\"Wiring\") = 0, description=\"As of May\"",
                            "keldbFree(\"As of May\")", "deleteLayerState(\"Wiring\") = 0",
                            "keledGetCurViewportObjectId() = null", "saveLayerState(\"Wiring\", 33, null) = 0",
                            "compareLayerStateToDb(\"Wiring\", null) = true",
                            "setLayerStateDescription(\"Wiring\", \"As of May\") = 0"));
}

TEST_F(Update, WritesTheLayersAsTheyAreOverTheStateAndKeepsItsDescription) {
    open(wiredHouse());
    ASSERT_FALSE(matchesDrawing(L"Wiring"));
    callsOfUpdate(L"Wiring");
    EXPECT_TRUE(matchesDrawing(L"Wiring"));
    ASSERT_NE(stateOf(L"Wiring"), nullptr);
    EXPECT_EQ(stateOf(L"Wiring")->description, L"As of May");
    EXPECT_EQ(stateOf(L"Wiring")->mask, MaskOn | MaskColor);
    EXPECT_THAT(stateNames(), ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare", L"Wiring"));
}

TEST_F(Update, TurnsTheRowsThirdColumnAndNothingElseInTheList) {
    // Saved with a viewport, and saved again without one: the second column keeps what it shows all the same.
    open(wiredHouse().savedWithViewport());
    Texts before, after;
    const auto row = [](const View& view) { return view.cells(IDC_LSTATE_RES_LIST, 3); };
    Script script;
    script.look("the row", [&](const View& view) { before = row(view); })
        .then(update(L"Wiring"))
        .look("the row and the selection",
              [&](const View& view) {
                  after = row(view);
                  EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(3));
                  EXPECT_EQ(view.focusedRow(IDC_LSTATE_RES_LIST), 3);
              })
        .press(VK_ESCAPE);
    manage(script);
    const std::wstring space = resourceText(IDS_LSTATE_SPACE_VIEWPORT);
    EXPECT_THAT(before, ElementsAre(L"Wiring", space, resourceText(IDS_LSTATE_NO), L"As of May"));
    EXPECT_THAT(after, ElementsAre(L"Wiring", space, resourceText(IDS_LSTATE_YES), L"As of May"));
    EXPECT_FALSE(stateOf(L"Wiring")->hasViewportData);
}

TEST_F(Update, ShowsNoWhereTheHostFindsTheNewStateToDiffer) {
    open(house()); // "Ground floor" is as the drawing is
    Script script;
    script
        .look("the comparison is to fail",
              [](const View& view) {
                  EXPECT_EQ(view.cell(IDC_LSTATE_RES_LIST, 0, 2), resourceText(IDS_LSTATE_YES));
                  instruments::failCall("compareLayerStateToDb", 1);
              })
        .then(update(L"Ground floor"))
        .look("the third column",
              [](const View& view) { EXPECT_EQ(view.cell(IDC_LSTATE_RES_LIST, 0, 2), resourceText(IDS_LSTATE_NO)); })
        .press(VK_ESCAPE);
    manage(script);
}

TEST_F(Update, InAViewportGivesTheHostTheViewport) {
    open(wiredHouse().inViewport());
    const Calls calls = callsOfUpdate(L"Wiring");
    EXPECT_THAT(ui::callsOf("saveLayerState", calls), ElementsAre("saveLayerState(\"Wiring\", 33, #F0) = 0"));
    EXPECT_THAT(ui::callsOf("compareLayerStateToDb", calls),
                ElementsAre("compareLayerStateToDb(\"Wiring\", #F0) = true"));
    EXPECT_TRUE(stateOf(L"Wiring")->hasViewportData);
}

TEST_F(Update, AnsweredWithNoAsksTheHostOnlyWhetherThereIsSuchAState) {
    open(wiredHouse());
    manage(Script().then(countCalls()).then(update(L"Wiring", IDNO)).press(VK_ESCAPE));
    EXPECT_THAT(instruments::trace(),
                ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                            "getLayerStateManager() = object", "hasLayerState(\"Wiring\") = true"));
    EXPECT_FALSE(matchesDrawing(L"Wiring"));
}

TEST_F(Update, AsksInABoxOfTheManagerThatOnlyYesAndNoAnswer) {
    open(wiredHouse());
    HWND manager = nullptr;
    Script script;
    script.look("the manager", [&manager](const View& view) { manager = view.window(); })
        .then(countCalls())
        .click(IDC_LSTATE_RES_UPDATE)
        .waitForText(questionAbout(L"Wiring"))
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
        .waitForText(questionAbout(L"Wiring"))
        .look("Escape was no answer",
              [](const View&) { EXPECT_EQ(instruments::trace().back(), "hasLayerState(\"Wiring\") = true"); })
        .press(VK_RETURN)
        .waitForControl(IDC_LSTATE_RES_LIST)
        .look("Enter was Yes", [](const View&) { EXPECT_THAT(ui::callsOf("saveLayerState"), testing::SizeIs(1)); })
        .press(VK_ESCAPE);
    manage(script);
}

TEST_F(Update, NamesTheStateInItsQuestionAsItIs) {
    const std::wstring names[] = {L"100 %s of 5 % %d", L"\"Quoted\" 'name'", L"Pipes & drains && more",
                                  std::wstring(255, L'W')};
    for (const std::wstring& name : names) {
        open(house().state(name, MaskOn).lastRestored(name));
        Script script;
        script.click(IDC_LSTATE_RES_UPDATE)
            .waitForText(questionAbout(name))
            .look("no character is taken for the mark of an access key",
                  [&name](const View& view) {
                      const std::vector<HWND> controls = ui::visibleControls(view.window());
                      const auto shown = std::find_if(controls.begin(), controls.end(), [&name](HWND control) {
                          return ui::textOf(control) == questionAbout(name);
                      });
                      ASSERT_NE(shown, controls.end());
                      EXPECT_EQ(GetWindowLongW(*shown, GWL_STYLE) & SS_NOPREFIX, SS_NOPREFIX);
                  })
            .click(IDNO)
            .press(VK_ESCAPE);
        manage(script);
    }
}

TEST_F(Update, StoresTheMaskThatEachBoxShowsWithThePanelClosed) {
    ui::TestDrawing drawing = house();
    for (const BoxBit& row : propertyBoxes)
        drawing.state(std::to_wstring(row.bit), row.bit);
    open(drawing);
    Script script;
    Calls expected;
    for (const BoxBit& row : propertyBoxes) {
        const std::wstring name = std::to_wstring(row.bit);
        script.clickCellOf(IDC_LSTATE_RES_LIST, name).then(update(name)).waitForControl(IDC_LSTATE_RES_LIST);
        expected.push_back("saveLayerState(\"" + ui::narrow(name) + "\", " + std::to_string(row.bit) + ", null) = 0");
    }
    manage(script.press(VK_ESCAPE));
    EXPECT_EQ(ui::callsOf("saveLayerState"), expected);
}

TEST_F(Update, StoresTheMaskOfTheBoxesThatWereClickedWithThePanelOpen) {
    keep(managerName, L"Expanded", 1);
    for (const bool inViewport : {false, true}) {
        ui::TestDrawing drawing = house();
        drawing.state(L"Nothing", 0).lastRestored(L"Nothing");
        open(inViewport ? drawing.inViewport() : drawing);
        const std::string viewport = inViewport ? "#F0" : "null";
        Script script;
        Calls expected;
        for (const BoxBit& row : propertyBoxes) {
            const bool onlyInViewports = row.bit == MaskViewportFrozen;
            const bool onlyInModel = row.bit == MaskOn || row.bit == MaskFrozen;
            if (inViewport ? onlyInModel : onlyInViewports)
                continue;
            script.click(row.box).then(update(L"Nothing")).waitForControl(IDC_LSTATE_RES_LIST).click(row.box);
            expected.push_back("saveLayerState(\"Nothing\", " + std::to_string(row.bit) + ", " + viewport + ") = 0");
        }
        manage(script.press(VK_ESCAPE));
        EXPECT_EQ(ui::callsOf("saveLayerState"), expected);
    }
}

TEST_F(Update, GoesOnWhileARefusedRenameWaitsToBeTakenUpAgain) {
    open(wiredHouse());
    Script script;
    script.press(VK_F2)
        .type(L"bare")
        .then(countCalls())
        .pressMnemonicOf(IDC_LSTATE_RES_UPDATE)
        .then(answerBox(textWithName(IDS_LSTATE_NAME_TAKEN, L"bare"), IDOK))
        .then(answerBox(questionAbout(L"Wiring"), IDYES))
        .waitUntil("the name is edited again",
                   [](const View& view) { return view.labelEditorText(IDC_LSTATE_RES_LIST).has_value(); })
        .press(VK_ESCAPE)
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_TRUE(matchesDrawing(L"Wiring"));
}

} // namespace

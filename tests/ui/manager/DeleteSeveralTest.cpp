// Delete with several rows selected: every answer at every place, and each delete refused, against a small model of
// what remains.

#include "ActionTest.h"

#include <commctrl.h>

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;
using ui::Script;
using ui::View;

enum class Answer { remove, removeAll, keep, cancel };

struct Case {
    std::vector<int> selected;   // rows, of five
    std::vector<Answer> answers; // as many as there are questions
    int refused;                 // which of the deletes the host refuses, from 1; 0 for none
};

void PrintTo(const Case& each, std::ostream* out) {
    *out << "rows " << testing::PrintToString(each.selected) << ", answers";
    for (const Answer answer : each.answers)
        *out << (answer == Answer::remove      ? " remove"
                 : answer == Answer::removeAll ? " removeAll"
                 : answer == Answer::keep      ? " keep"
                                               : " cancel");
    *out << ", refused delete " << each.refused;
}

// What a delete comes to.
struct Outcome {
    std::vector<std::wstring> asked; // the states that were asked about
    Calls deletes;
    std::vector<std::wstring> rows;
    std::vector<int> selected;
    int focused = -1;
};

const std::vector<std::wstring> names = {L"A", L"B", L"C", L"D", L"E"};

Outcome model(const Case& each) {
    struct Row {
        std::wstring name;
        bool selected;
        bool removed = false;
    };
    std::vector<Row> rows;
    for (int row = 0; row < 5; ++row)
        rows.push_back({names[row], std::count(each.selected.begin(), each.selected.end(), row) != 0});
    Outcome outcome;
    bool ask = true;
    for (Row& row : rows) {
        if (!row.selected)
            continue;
        Answer answer = Answer::remove;
        if (ask) {
            answer = each.answers[outcome.asked.size()];
            outcome.asked.push_back(row.name);
            ask = answer != Answer::removeAll;
        }
        if (answer == Answer::cancel)
            break;
        if (answer == Answer::keep)
            continue;
        row.removed = static_cast<int>(outcome.deletes.size()) + 1 != each.refused;
        outcome.deletes.push_back("deleteLayerState(\"" + ui::narrow(row.name) + "\") = " + (row.removed ? "0" : "3"));
    }
    rows.erase(std::remove_if(rows.begin(), rows.end(), [](const Row& row) { return row.removed; }), rows.end());
    if (!rows.empty()) {
        outcome.focused = std::min(each.selected.front(), static_cast<int>(rows.size()) - 1);
        rows[outcome.focused].selected = true;
    }
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        outcome.rows.push_back(rows[row].name);
        if (rows[row].selected)
            outcome.selected.push_back(row);
    }
    return outcome;
}

class DeleteSeveral : public ActionTest {
  protected:
    void SetUp() override {
        ActionTest::SetUp();
        openLetters();
    }
    void openLetters() {
        ui::TestDrawing drawing;
        for (const std::wstring& name : names)
            drawing.state(name, MaskOn);
        open(drawing);
    }
    static std::wstring promptAbout(const std::wstring& name) {
        return L"Do you want to delete the layer state \"" + name + L"\"?";
    }
    static Script answer(const std::wstring& name, Answer answer) {
        Script script;
        script.waitForText(promptAbout(name));
        switch (answer) {
        case Answer::remove:
            return script.pressMnemonicOf(IDC_LSTATE_DEL_THIS);
        case Answer::removeAll:
            return script.pressMnemonicOf(IDC_LSTATE_DEL_ALL);
        case Answer::keep:
            return script.pressMnemonicOf(IDC_LSTATE_KEEP_THIS);
        case Answer::cancel:
            return script.press(VK_ESCAPE);
        }
        return script;
    }
    /// Selects the rows at once, as clicks would one by one.
    static Script select(const std::vector<int>& rows) {
        return Script().look("select rows", [rows](const View& view) {
            const HWND list = view.control(IDC_LSTATE_RES_LIST);
            ListView_SetItemState(list, -1, 0, LVIS_SELECTED);
            for (const int row : rows)
                ListView_SetItemState(list, row, LVIS_SELECTED, LVIS_SELECTED);
        });
    }
    void expectAsModelled(const Case& each) {
        openLetters();
        const Outcome expected = model(each);
        Outcome found;
        Script script;
        script.then(select(each.selected))
            .look("the calls count from here",
                  [&each](const View&) {
                      instruments::clearTrace();
                      if (each.refused != 0)
                          instruments::failCall("deleteLayerState", each.refused);
                  })
            .pressMnemonicOf(IDC_LSTATE_RES_DELETE);
        for (std::size_t i = 0; i < expected.asked.size(); ++i)
            script.then(answer(expected.asked[i], each.answers[i]));
        script.waitForControl(IDC_LSTATE_RES_LIST)
            .look("the list",
                  [&found](const View& view) {
                      found.rows = view.column(IDC_LSTATE_RES_LIST, 0);
                      found.selected = view.selectedRows(IDC_LSTATE_RES_LIST);
                      found.focused = view.focusedRow(IDC_LSTATE_RES_LIST);
                      EXPECT_EQ(view.focusedControl(), IDC_LSTATE_RES_LIST);
                      EXPECT_EQ(view.isEnabled(IDC_LSTATE_RES_DELETE), !found.selected.empty());
                      EXPECT_EQ(view.isEnabled(IDC_LSTATE_RES_RESTORE), found.selected.size() == 1);
                  })
            .press(VK_ESCAPE);
        manage(script);
        found.deletes = ui::callsOf("deleteLayerState");
        EXPECT_EQ(found.deletes, expected.deletes);
        EXPECT_EQ(found.rows, expected.rows);
        EXPECT_EQ(found.selected, expected.selected);
        EXPECT_EQ(found.focused, expected.focused);
        EXPECT_EQ(stateNames(), expected.rows);
    }
};

std::vector<Case> cases() {
    std::vector<Case> all;
    const std::vector<int> selections[] = {{3, 4}, {0, 2, 4}, {0, 1, 3, 4}, {0, 1, 2, 3, 4}};
    for (const std::vector<int>& selected : selections) {
        const std::size_t count = selected.size();
        const std::vector<Answer> removeEach(count, Answer::remove);
        for (int refused = 0; refused <= static_cast<int>(count); ++refused) {
            all.push_back({selected, removeEach, refused});
            all.push_back({selected, {Answer::removeAll}, refused});
        }
        for (std::size_t place = 0; place < count; ++place) {
            for (const Answer answer : {Answer::removeAll, Answer::keep, Answer::cancel}) {
                if (place == 0 && answer == Answer::removeAll)
                    continue; // above
                Case each = {selected, removeEach, 0};
                each.answers[place] = answer;
                all.push_back(each);
            }
        }
    }
    return all;
}

TEST_F(DeleteSeveral, AsksTheHostForTheseStepsInThisOrder) {
    open(ui::TestDrawing().state(L"One", MaskColor).state(L"Two", MaskOn).state(L"Three", MaskPlot));
    Script script;
    script.press(VK_DOWN, ui::holdShift)
        .then(countCalls())
        .click(IDC_LSTATE_RES_DELETE)
        .then(answer(L"One", Answer::remove))
        .then(answer(L"Two", Answer::keep))
        .waitForControl(IDC_LSTATE_RES_LIST)
        .press(VK_ESCAPE);
    manage(script);
    const Calls question = {"CKelUiDialog(202)",
                            "SetDialogName(\"KelLayerApps:LayerStatesDelete\")",
                            "OnInitDialog()",
                            "SetContextHelpPrefix(\"LAST\")",
                            "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")",
                            "SetUseTips(2)"};
    // Between the questions the controls are updated, since a selected row has gone.
    EXPECT_THAT(instruments::trace(), ElementsAreArray(joined({question,
                                                               callsOfService(),
                                                               {"deleteLayerState(\"One\") = 0"},
                                                               callsOfSelection("Two", MaskOn),
                                                               question})));
}

TEST_F(DeleteSeveral, LeavesWhatEachAnswerAtEachPlaceLeaves) {
    for (const Case& each : cases()) {
        SCOPED_TRACE(testing::PrintToString(each));
        expectAsModelled(each);
        if (HasFailure())
            break;
    }
}

TEST_F(DeleteSeveral, AsksTwiceWhenTheFirstIsKeptAndAllTheRestIsToGo) {
    Script script;
    script.clickCellOf(IDC_LSTATE_RES_LIST, L"B")
        .clickCellOf(IDC_LSTATE_RES_LIST, L"D", ui::holdControl)
        .clickCellOf(IDC_LSTATE_RES_LIST, L"E", ui::holdControl)
        .then(countCalls())
        .click(IDC_LSTATE_RES_DELETE)
        .waitForText(promptAbout(L"B"))
        .click(IDC_LSTATE_KEEP_THIS)
        .waitForText(promptAbout(L"D"))
        .click(IDC_LSTATE_DEL_ALL)
        .waitForControl(IDC_LSTATE_RES_LIST)
        .look("the list",
              [](const View& view) {
                  EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0), ElementsAre(L"A", L"B", L"C"));
                  EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(1));
              })
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(ui::callsOf("CKelUiDialog"), SizeIs(2));
    EXPECT_THAT(stateNames(), ElementsAre(L"A", L"B", L"C"));
}

TEST_F(DeleteSeveral, CancelledAtTheSecondOfThreeLeavesTheOthersSelected) {
    Script script;
    script.clickCellOf(IDC_LSTATE_RES_LIST, L"B")
        .clickCellOf(IDC_LSTATE_RES_LIST, L"D", ui::holdShift)
        .click(IDC_LSTATE_RES_DELETE)
        .waitForText(promptAbout(L"B"))
        .click(IDC_LSTATE_DEL_THIS)
        .waitForText(promptAbout(L"C"))
        .click(IDCANCEL)
        .waitForControl(IDC_LSTATE_RES_LIST)
        .look("the list",
              [](const View& view) {
                  EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0), ElementsAre(L"A", L"C", L"D", L"E"));
                  EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(1, 2));
                  EXPECT_EQ(view.focusedRow(IDC_LSTATE_RES_LIST), 1);
              })
        .press(VK_ESCAPE);
    manage(script);
}

TEST_F(DeleteSeveral, AsksOverTheManagerAndNotAboutAStateThatIsntSelected) {
    HWND manager = nullptr;
    Script script;
    script.look("the manager", [&manager](const View& view) { manager = view.window(); })
        .then(select({1, 3}))
        .click(IDC_LSTATE_RES_DELETE)
        .waitForText(promptAbout(L"B"))
        .look("its owner",
              [&manager](const View& view) {
                  EXPECT_EQ(GetWindow(view.window(), GW_OWNER), manager);
                  EXPECT_FALSE(IsWindowEnabled(manager));
              })
        .click(IDC_LSTATE_KEEP_THIS)
        .waitForText(promptAbout(L"D"))
        .click(IDC_LSTATE_KEEP_THIS)
        .waitForControl(IDC_LSTATE_RES_LIST)
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(ui::callsOf("deleteLayerState"), IsEmpty());
}

TEST_F(DeleteSeveral, ForgetsTheAnswerForAllWithItsRun) {
    Script script;
    for (int run = 0; run < 2; ++run)
        script.then(select({0, 1}))
            .click(IDC_LSTATE_RES_DELETE)
            .waitForText(promptAbout(names[run * 2]))
            .click(IDC_LSTATE_DEL_ALL)
            .waitForControl(IDC_LSTATE_RES_LIST);
    manage(script.press(VK_ESCAPE));
    EXPECT_THAT(stateNames(), ElementsAre(L"E"));
}

// Notes each time that the list is told to stop drawing, and to go on.
LRESULT CALLBACK noteDrawing(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR noted) {
    if (message == WM_SETREDRAW)
        reinterpret_cast<std::vector<WPARAM>*>(noted)->push_back(wParam);
    return DefSubclassProc(list, message, wParam, lParam);
}

TEST_F(DeleteSeveral, KeepsTheListFromDrawingOnlyWhenNothingIsAskedAnyMore) {
    std::vector<WPARAM> whileAsked, afterwards;
    std::vector<WPARAM> noted;
    Script script;
    script.then(select({0, 1, 2, 3}))
        .look("note from here on",
              [&noted](const View& view) {
                  SetWindowSubclass(view.control(IDC_LSTATE_RES_LIST), noteDrawing, 1,
                                    reinterpret_cast<DWORD_PTR>(&noted));
              })
        .pressMnemonicOf(IDC_LSTATE_RES_DELETE)
        .then(answer(L"A", Answer::remove))
        .then(answer(L"B", Answer::keep))
        .waitForText(promptAbout(L"C"))
        .look("the list is drawn, so that what has gone is seen", [&](const View&) { whileAsked = noted; })
        .then(answer(L"C", Answer::removeAll))
        .waitForControl(IDC_LSTATE_RES_LIST)
        .look("and again",
              [&](const View& view) {
                  afterwards = noted;
                  RemoveWindowSubclass(view.control(IDC_LSTATE_RES_LIST), noteDrawing, 1);
              })
        .press(VK_ESCAPE);
    manage(script);
    EXPECT_THAT(whileAsked, IsEmpty());
    EXPECT_THAT(afterwards, ElementsAre(FALSE, TRUE));
}

} // namespace

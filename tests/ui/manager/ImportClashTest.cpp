// States whose names the drawing has already: the question, what a replace does, and what the user is told when the old
// one can't be deleted.

#include "TransferTest.h"

#include "WholeDrawing.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

constexpr auto kTaken = Vorn::eDuplicateRecordName;

/// The drawing that is open has the state "One", which is as the drawing is. The file "one.las" holds "ONE", described
/// as "from the file".
class ImportClash : public TransferTest {
  protected:
    void SetUp() override {
        TransferTest::SetUp();
        open(TestDrawing().state(L"One", MaskColor));
        saveStateFile(L"one.las", fromFile({L"ONE"}), L"ONE");
    }
    static TestDrawing fromFile(const Texts& names) {
        TestDrawing drawing;
        for (const std::wstring& name : names)
            drawing.state(name, MaskColor, L"from the file");
        return drawing;
    }
    static Script failing(const std::string& operation, int nth, Vorn::ErrorStatus status = Vorn::eInvalidInput) {
        Script script;
        return script.look("a call is to fail", [=](const View&) { instruments::failCall(operation, nth, status); });
    }
    std::string path() const { return instruments::describe(file(L"one.las")); }
    std::wstring descriptionOf(const std::wstring& name) const {
        const zdr::LayerState* state = stateOf(name);
        return state ? state->description : L"missing";
    }
};

TEST_F(ImportClash, CancelledKeepsTheOldStateAndSaysNothing) {
    manage(import(L"one.las").then(answerQuestion(L"ONE", false)).then(backInManager([this](const View& view) {
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), IsEmpty());
        EXPECT_THAT(instruments::trace(),
                    ElementsAreArray(joined({callsOfImportDialog(file(L"one.las")),
                                             callsOfStart(),
                                             {"importLayerState(" + path() + ") = 23, name=\"ONE\""},
                                             callsOfQuestion("ONE", IDCANCEL),
                                             callsOfSearch("[\"One\"]"),
                                             callsOfEnd(),
                                             callsOfPublishing(),
                                             callsOfList({"One"})})));
    })));
    EXPECT_EQ(descriptionOf(L"One"), L"");
}

TEST_F(ImportClash, ReplacedTakesTheFilesStateAndSaysNothing) {
    manage(import(L"one.las").then(answerQuestion(L"ONE", true)).then(backInManager([this](const View& view) {
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), IsEmpty());
        EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0), ElementsAre(L"ONE"));
        EXPECT_EQ(view.cell(IDC_LSTATE_RES_LIST, 0, 3), L"from the file");
        const Calls calls = instruments::trace();
        const Calls expected =
            joined({callsOfImportDialog(file(L"one.las")),
                    callsOfStart(),
                    {"importLayerState(" + path() + ") = 23, name=\"ONE\""},
                    callsOfQuestion("ONE", 1001),
                    {"deleteLayerState(\"ONE\") = 0", "importLayerState(" + path() + ") = 0, name=\"ONE\""},
                    callsOfSearch("[\"ONE\"]"),
                    callsOfEnd(),
                    callsOfPublishing(),
                    callsOfService()});
        ASSERT_GT(calls.size(), expected.size());
        EXPECT_THAT(Calls(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(expected.size())),
                    ElementsAreArray(expected));
        EXPECT_THAT(ui::callsOf("taskDialog.LoadFromFile"), IsEmpty());
    })));
    EXPECT_EQ(stateNames(), Texts({L"ONE"}));
    EXPECT_THAT(wholenessProblems(database()), IsEmpty());
}

TEST_F(ImportClash, TheQuestionComesAgainForAsLongAsTheNameIsTaken) {
    manage(failing("importLayerState", 2, kTaken)
               .then(import(L"one.las"))
               .then(answerQuestion(L"ONE", true))
               .waitUntil("the second import", [](const View&) { return ui::callsOf("importLayerState").size() == 2; })
               .then(answerQuestion(L"ONE", true))
               .then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED), IDI_INFORMATION))
               .then(backInManager({}, L"")));
    // The second delete finds nothing any more. The user has agreed to lose the old state; the new one hasn't come.
    EXPECT_THAT(ui::callsOf("deleteLayerState"),
                ElementsAre("deleteLayerState(\"ONE\") = 0", "deleteLayerState(\"ONE\") = 8"));
}

TEST_F(ImportClash, TheSecondQuestionCanBeCancelled) {
    manage(failing("importLayerState", 2, kTaken)
               .then(import(L"one.las"))
               .then(answerQuestion(L"ONE", true))
               .waitUntil("the second import", [](const View&) { return ui::callsOf("importLayerState").size() == 2; })
               .then(answerQuestion(L"ONE", false))
               .then(backInManager({}, L"")));
    EXPECT_THAT(ui::callsOf("importLayerState"), testing::SizeIs(2));
}

TEST_F(ImportClash, ADeleteThatIsRefusedIsToldWithinTheTransactionAndKeepsTheOldState) {
    Script script = failing("deleteLayerState", 1);
    script.then(import(L"one.las"))
        .then(answerQuestion(L"ONE", true))
        .waitForText(resourceText(IDS_LSTATE_NOT_IMPORTED))
        .look("the transaction", [](const View&) { EXPECT_THAT(ui::callsOf("endTransaction"), IsEmpty()); })
        .then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED), IDI_INFORMATION))
        .then(backInManager({L"One"}, L""));
    manage(script);
    EXPECT_EQ(descriptionOf(L"One"), L"");
    EXPECT_THAT(ui::callsOf("importLayerState"), testing::SizeIs(1));
    EXPECT_THAT(ui::callsOf("applyCurZdrLayerTableChanges"), testing::SizeIs(1));
}

TEST_F(ImportClash, AnImportThatIsRefusedAfterTheDeleteIsReported) {
    manage(failing("importLayerState", 2)
               .then(import(L"one.las"))
               .then(answerQuestion(L"ONE", true))
               .then(leaveTaskDialog(kCannotRestore))
               .then(backInManager({}, L"")));
}

TEST_F(ImportClash, WithoutANameIsToldAndThenAskedAboutWithAnEmptyOne) {
    manage(failing("importLayerState", 1, kTaken)
               .then(import(L"one.las"))
               .then(leaveTaskDialog(kNameTaken))
               .then(answerQuestion(L"", false))
               .then(backInManager({L"One"}, L"")));
    const Calls calls = instruments::trace();
    const auto import = std::find(calls.begin(), calls.end(), "importLayerState(" + path() + ") = 23");
    ASSERT_NE(import, calls.end());
    EXPECT_THAT(Calls(import + 1, import + 4),
                ElementsAreArray(joined({{"taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                                          "\"KelLayerApps.LayerStateDuplicates\", null, 0) = true",
                                          "taskDialog.ShowDialog(null) = 2"},
                                         callsOfQuestion("", IDCANCEL)})));
}

TEST_F(ImportClash, WithoutANameReplacesNothing) {
    manage(failing("importLayerState", 1, kTaken)
               .then(import(L"one.las"))
               .then(leaveTaskDialog(kNameTaken))
               .then(answerQuestion(L"", true))
               .then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED), IDI_INFORMATION))
               .then(backInManager({L"One"}, L"")));
    EXPECT_THAT(ui::callsOf("deleteLayerState"), ElementsAre("deleteLayerState(\"\") = 8"));
}

TEST_F(ImportClash, WithoutANameIsAskedAboutAlsoWhenTheTaskDialogIsMissing) {
    Script script = failing("importLayerState", 1, kTaken);
    manage(script.then(failing("taskDialog.LoadFromFile", 1))
               .then(import(L"one.las"))
               .then(answerQuestion(L"", false))
               .then(backInManager({L"One"}, L"")));
}

TEST_F(ImportClash, AHiddenStateOfAReferenceIsTakenForTheNewOneAndStaysTheReferences) {
    TestDrawing site;
    site.state(L"Survey", MaskColor);
    open(TestDrawing().state(L"One", MaskColor).reference(L"site", site));
    keep(managerName, L"ShowXrefs", 0);
    manage(import(L"one.las").then(answerQuestion(L"ONE", true)).then(backInManager({L"ONE"}, L"")));
    EXPECT_THAT(ui::callsOf("dictionary.getAt"),
                ElementsAre("dictionary.getAt(#layerStates, \"site!Survey\") = 8")); // so nothing is entered
    EXPECT_EQ(stateNames(), Texts({L"ONE", L"site!Survey"}));
    EXPECT_TRUE(states().isDependentLayerState(L"site!Survey"));
    EXPECT_THAT(wholenessProblems(database()), IsEmpty());
}

/// How many states a drawing brings whose names are all taken, and at which of them the delete fails; 0 for none.
struct Several {
    int count;
    int failing;
};

class ImportSeveralClashes : public ImportClash, public testing::WithParamInterface<Several> {
  protected:
    Texts names() const {
        Texts all;
        for (int number = 1; number <= GetParam().count; ++number)
            all.push_back(L"State " + std::to_wstring(number));
        return all;
    }
    void openAndSave() {
        TestDrawing house;
        for (const std::wstring& name : names())
            house.state(name, MaskColor);
        open(house);
        saveDrawing(L"other.zdr", fromFile(names()));
    }
    /// Imports all and answers each question.
    Script importAll(bool replace) const {
        Script script = import(L"other.zdr");
        script.then(tickAll()).then(takeTicked());
        int number = 0;
        for (const std::wstring& name : names()) {
            script.then(answerQuestion(name, replace));
            if (++number == GetParam().failing)
                script.then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED), IDI_INFORMATION));
        }
        return script;
    }
    int replaced() const {
        int count = 0;
        for (const std::wstring& name : names())
            count += descriptionOf(name) == L"from the file";
        return count;
    }
};

TEST_P(ImportSeveralClashes, AreEachAskedAboutAndReplacedButWhereTheDeleteFails) {
    openAndSave();
    Script script;
    if (GetParam().failing)
        script.then(failing("deleteLayerState", GetParam().failing));
    script.then(importAll(true));
    manage(script.then(backInManager([](const View& view) {
        EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), GetParam().count);
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), IsEmpty());
    })));
    EXPECT_EQ(stateNames().size(), names().size());
    EXPECT_EQ(replaced(), GetParam().count - (GetParam().failing ? 1 : 0));
    if (GetParam().failing) {
        EXPECT_EQ(descriptionOf(L"State " + std::to_wstring(GetParam().failing)), L"");
    }
    EXPECT_THAT(wholenessProblems(database()), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Of, ImportSeveralClashes,
                         testing::Values(Several{1, 0}, Several{1, 1}, Several{2, 0}, Several{2, 1}, Several{2, 2},
                                         Several{5, 0}, Several{5, 1}, Several{5, 3}, Several{5, 5}),
                         [](const testing::TestParamInfo<Several>& named) {
                             return std::to_string(named.param.count) + "Failing" + std::to_string(named.param.failing);
                         });

class ImportCancelledClashes : public ImportSeveralClashes {};

TEST_P(ImportCancelledClashes, LeaveAllStates) {
    openAndSave();
    manage(importAll(false).then(backInManager(names(), L"")));
    EXPECT_EQ(replaced(), 0);
    EXPECT_THAT(ui::callsOf("deleteLayerState"), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Of, ImportCancelledClashes, testing::Values(Several{1, 0}, Several{2, 0}, Several{5, 0}),
                         [](const testing::TestParamInfo<Several>& named) {
                             return std::to_string(named.param.count);
                         });

} // namespace

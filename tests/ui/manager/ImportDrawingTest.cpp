// Importing states of another drawing: the two reads, the choice, the walk over the names, and what fails.

#include "TransferTest.h"

#include "WholeDrawing.h"
#include "engine/DatabaseAccess.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;
using ui::Script;
using ui::TestDrawing;
using ui::View;

constexpr int kList = IDC_LSTATE_RES_LIST;

/// The drawing that is open has the state "One", and the file "other.zdr" has "Two" and "Three" besides; all are as the
/// drawing is.
class ImportDrawing : public TransferTest {
  protected:
    void SetUp() override {
        TransferTest::SetUp();
        open(TestDrawing().state(L"One", MaskColor));
        saveDrawing(L"other.zdr", other());
    }
    static TestDrawing other() {
        return TestDrawing().state(L"Two", MaskColor).state(L"One", MaskColor).state(L"Three", MaskColor);
    }
    static Script failing(const std::string& operation, int nth, Vorn::ErrorStatus status = Vorn::eInvalidInput) {
        Script script;
        return script.look("a call is to fail", [=](const View&) { instruments::failCall(operation, nth, status); });
    }
    /// The text about a drawing that can't be read.
    std::wstring unreadable(unsigned int id, const std::wstring& name, Vorn::ErrorStatus status = Vorn::eOk) const {
        std::wstring text = textWithName(id, file(name));
        const std::size_t second = text.find(L"%s");
        return second == std::wstring::npos ? text : text.replace(second, 2, vornErrorStatusText(status));
    }
    /// Waits for the import selection and then does that, as another program might.
    static Script meanwhile(std::function<void()> act) {
        Script script;
        return script.waitForControl(IDHELP).look("meanwhile", [act = std::move(act)](const View&) { act(); });
    }
    static Script selectionIsEmpty() {
        Script script;
        return script.waitForControl(IDHELP).look(
            "an empty list", [](const View& view) { EXPECT_EQ(view.rowCount(IDC_LSTATE_IMPORT_LIST), 0); });
    }
};

TEST_F(ImportDrawing, AsksTheHostInThisOrder) {
    manage(import(L"other.zdr").then(takeTicked()).then(backInManager([this](const View& view) {
        EXPECT_THAT(view.column(kList, 0), ElementsAre(L"One", L"Two", L"Three"));
        EXPECT_THAT(view.selectedRows(kList), IsEmpty());
        const Calls calls = instruments::trace();
        const auto dialog = std::find(calls.begin(), calls.end(), "CKelUiDialog(203)");
        const auto end = std::find(dialog, calls.end(), "SaveColumnSizes(1022)");
        EXPECT_THAT(Calls(calls.begin(), dialog),
                    ElementsAreArray(joined({callsOfImportDialog(file(L"other.zdr")),
                                             callsOfReading(file(L"other.zdr")),
                                             {"getLayerStateManager() = object",
                                              "getLayerStateNames(true, true) = 0, names=[\"Two\", \"One\", \"Three\"]",
                                              "database.delete()"}})));
        EXPECT_THAT(Calls(end + 1, calls.end()),
                    ElementsAreArray(joined({callsOfReading(file(L"other.zdr")),
                                             callsOfStart(),
                                             {"importLayerStateFromDb(\"Two\", object) = 0"},
                                             callsOfSearch("[\"One\", \"Two\"]"),
                                             callsOfEntering("Two", MaskColor, "#E9", "#EA"),
                                             callsOfStart(),
                                             {"importLayerStateFromDb(\"Three\", object) = 0"},
                                             // The list still has only the row of before the import.
                                             callsOfSearch("[\"One\", \"Two\", \"Three\"]"),
                                             callsOfEntering("Two", MaskColor, "#EA", "#EC"),
                                             {"database.delete()"},
                                             callsOfList({"One", "Two", "Three"})})));
    })));
    EXPECT_THAT(wholenessProblems(database()), IsEmpty());
    EXPECT_THAT(ui::callsOf("taskDialog.LoadFromFile"), IsEmpty()) << "it ends quietly";
}

TEST_F(ImportDrawing, ImportsWhatIsTickedAndNothingElse) {
    Script script = import(L"other.zdr");
    script.waitForControl(IDHELP)
        .look("the second alone",
              [](const View& view) {
                  const HWND list = view.control(IDC_LSTATE_IMPORT_LIST);
                  ListView_SetCheckState(list, 0, FALSE);
              })
        .then(takeTicked())
        .then(backInManager({L"One", L"Three"}, L""));
    manage(script);
    EXPECT_EQ(stateNames(), Texts({L"One", L"Three"}));
}

TEST_F(ImportDrawing, ACancelledChoiceImportsNothingAndReadsNothingMore) {
    Script script = import(L"other.zdr");
    manage(script.waitForControl(IDHELP).click(IDCANCEL).then(backInManager({L"One"}, L"One")));
    EXPECT_THAT(ui::callsOf("readZdrFile"), SizeIs(2));
    EXPECT_THAT(ui::callsOf("startTransaction"), IsEmpty());
    EXPECT_THAT(ui::callsOf("getLayerStateNames"), SizeIs(2)) << "the manager's list isn't filled again";
}

TEST_F(ImportDrawing, FilesOfEachExtensionAreDrawings) {
    for (const wchar_t* name : {L"a.zds", L"b.zdt", L"C.ZDR", L"las.zdr", L"no-extension.", L"d.txt"}) {
        open(TestDrawing().state(L"One", MaskColor));
        saveDrawing(name, other());
        manage(import(name).then(takeTicked()).then(backInManager({L"One", L"Two", L"Three"}, L"")));
    }
}

TEST_F(ImportDrawing, OneThatMayNotBeWrittenServesAsWell) {
    SetFileAttributesW(file(L"other.zdr").c_str(), FILE_ATTRIBUTE_READONLY);
    manage(import(L"other.zdr").then(takeTicked()).then(backInManager({L"One", L"Two", L"Three"}, L"")));
    SetFileAttributesW(file(L"other.zdr").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(ImportDrawing, OneThatCannotBeOpenedIsToldByItsPath) {
    const HANDLE locked = CreateFileW(file(L"other.zdr").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(locked, INVALID_HANDLE_VALUE);
    manage(import(L"other.zdr")
               .then(answerMessage(unreadable(IDS_LSTATE_DRAWING_UNOPENED, L"other.zdr")))
               .then(backInManager({L"One"}, L"One")));
    CloseHandle(locked);
    EXPECT_THAT(ui::callsOf("CKelUiDialog"), IsEmpty());
    EXPECT_THAT(ui::callsOf("database.delete"), SizeIs(1));
}

TEST_F(ImportDrawing, OneThatIsNoDrawingIsToldByItsPathAndTheReason) {
    writeBytes(file(L"rubbish.zdr"), std::vector<std::byte>(500, std::byte{7}));
    manage(import(L"rubbish.zdr")
               .then(answerMessage(unreadable(IDS_LSTATE_DRAWING_UNREADABLE, L"rubbish.zdr", Vorn::eNotADrawing)))
               .then(backInManager({L"One"}, L"One")));
    EXPECT_THAT(ui::callsOf("database.delete"), SizeIs(1));
}

TEST_F(ImportDrawing, EachFailureToReadIsToldAndNotOnlyTheFirst) {
    writeBytes(file(L"rubbish.zdr"), std::vector<std::byte>(500, std::byte{7}));
    Script script;
    for (int time = 0; time < 2; ++time)
        script.then(import(L"rubbish.zdr"))
            .then(answerMessage(unreadable(IDS_LSTATE_DRAWING_UNREADABLE, L"rubbish.zdr", Vorn::eNotADrawing)))
            .waitForControl(kManagersOwn);
    manage(script.then(backInManager({L"One"}, L"One")));
}

TEST_F(ImportDrawing, OneWithoutStatesIsTold) {
    saveDrawing(L"empty.zdr", TestDrawing());
    manage(import(L"empty.zdr").then(leaveTaskDialog(kNoneFound)).then(backInManager({L"One"}, L"One")));
    EXPECT_THAT(
        instruments::trace(),
        ElementsAreArray(joined({callsOfImportDialog(file(L"empty.zdr")),
                                 callsOfReading(file(L"empty.zdr")),
                                 {"getLayerStateManager() = object", "getLayerStateNames(true, true) = 0, names=[]",
                                  "taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                                  "\"KelLayerApps.LayerStateNoneFound\", null, 0) = true",
                                  "taskDialog.ShowDialog(null) = 2", "database.delete()"}})));
}

TEST_F(ImportDrawing, OneWhoseNamesCannotBeReadCountsAsOneWithoutStates) {
    manage(failing("getLayerStateNames", 1)
               .then(import(L"other.zdr"))
               .then(leaveTaskDialog(kNoneFound))
               .then(backInManager({L"One"}, L"One")));
}

TEST_F(ImportDrawing, OneWithoutAServiceIsPassedOverInSilence) {
    Script script = failing("getLayerStateManager", 1);
    script.then(import(L"other.zdr"))
        .waitUntil("the drawing is gone", [](const View&) { return ui::callsOf("database.delete").size() == 1; })
        .then(backInManager({L"One"}, L"One"));
    manage(script);
    EXPECT_THAT(instruments::trace(),
                ElementsAreArray(joined({callsOfImportDialog(file(L"other.zdr")),
                                         callsOfReading(file(L"other.zdr")),
                                         {"getLayerStateManager() = null", "database.delete()"}})));
}

TEST_F(ImportDrawing, GoneBeforeTheChoiceLeavesNothingToChoose) {
    manage(failing("readZdrFile", 2, Vorn::eFileNotFound)
               .then(import(L"other.zdr"))
               .then(selectionIsEmpty())
               .press(VK_ESCAPE)
               .then(backInManager({L"One"}, L"One")));
}

TEST_F(ImportDrawing, GoneAfterTheChoiceIsTold) {
    manage(import(L"other.zdr")
               .then(meanwhile([this] { ASSERT_TRUE(DeleteFileW(file(L"other.zdr").c_str())); }))
               .then(takeTicked())
               .then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED)))
               .then(backInManager({L"One"}, L"One")));
    EXPECT_THAT(ui::callsOf("readZdrFile").back(), testing::EndsWith(" = 191"));
    EXPECT_THAT(ui::callsOf("database.new"), SizeIs(3));
    EXPECT_THAT(ui::callsOf("database.delete"), SizeIs(3));
    EXPECT_THAT(ui::callsOf("startTransaction"), IsEmpty());
}

TEST_F(ImportDrawing, ChangedAfterTheChoiceGivesWhatItHasThen) {
    const auto change = [this] { saveDrawing(L"other.zdr", TestDrawing().state(L"Three", MaskColor, L"later")); };
    manage(import(L"other.zdr")
               .then(meanwhile(change))
               .then(takeTicked())
               .then(leaveTaskDialog(kCannotRestore)) // "Two" is no longer there
               .then(backInManager({L"One", L"Three"}, L"")));
    EXPECT_THAT(ui::callsOf("importLayerStateFromDb"), ElementsAre("importLayerStateFromDb(\"Two\", object) = 8",
                                                                   "importLayerStateFromDb(\"Three\", object) = 0"));
    EXPECT_EQ(stateOf(L"Three")->description, L"later");
}

TEST_F(ImportDrawing, OnlyTheFirstRefusalIsToldAndTheWalkGoesOn) {
    saveDrawing(L"more.zdr", other().state(L"Four", MaskColor));
    Script script = failing("importLayerStateFromDb", 1);
    manage(script.then(failing("importLayerStateFromDb", 2))
               .then(import(L"more.zdr"))
               .then(takeTicked())
               .then(leaveTaskDialog(kCannotRestore))
               .then(backInManager({L"One", L"Four"}, L"")));
    EXPECT_THAT(ui::callsOf("taskDialog.LoadFromFile"), SizeIs(1));
    EXPECT_THAT(ui::callsOf("endTransaction"), SizeIs(3));
}

TEST_F(ImportDrawing, AWalkThatIsAbandonedKeepsWhatHasComeAndLeavesTheList) {
    manage(failing("startTransaction", 2)
               .then(import(L"other.zdr"))
               .then(takeTicked())
               .then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED)))
               .then(backInManager({L"One"}, L"One")));
    EXPECT_EQ(stateNames(), Texts({L"One", L"Two"}));
    EXPECT_THAT(ui::callsOf("importLayerStateFromDb"), SizeIs(1));
    EXPECT_THAT(ui::callsOf("database.delete"), SizeIs(3));
}

TEST_F(ImportDrawing, TheQuestionIsAboutTheChosenName) {
    saveDrawing(L"same.zdr", TestDrawing().state(L"ONE", MaskColor, L"from the file"));
    manage(import(L"same.zdr")
               .then(tickAll())
               .then(takeTicked())
               .then(answerQuestion(L"ONE", true))
               .then(backInManager({L"ONE"}, L"")));
    EXPECT_THAT(ui::callsOf("deleteLayerState"), ElementsAre("deleteLayerState(\"ONE\") = 0"));
    EXPECT_EQ(stateOf(L"ONE")->description, L"from the file");
}

TEST_F(ImportDrawing, OneStepBackTakesAllOut) {
    engine::beginUndoGroup(database()); // as the command line does around each command
    manage(import(L"other.zdr").then(takeTicked()).then(backInManager({L"One", L"Two", L"Three"}, L"")));
    engine::endUndoGroup(database());
    EXPECT_TRUE(engine::undo(database()));
    EXPECT_EQ(stateNames(), Texts({L"One"}));
    EXPECT_FALSE(engine::undo(database()));
    EXPECT_THAT(wholenessProblems(database()), IsEmpty());
}

} // namespace

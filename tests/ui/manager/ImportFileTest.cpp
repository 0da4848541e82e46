// Importing a layer states file: what comes in, what is asked of the host, and what fails.

#include "TransferTest.h"

#include "OrvUiServices.h"
#include "engine/DatabaseAccess.h"
#include "WholeDrawing.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

constexpr int kList = IDC_LSTATE_RES_LIST;

/// The drawing that is open has the state "One", and the file "two.las" holds "Two", both as the drawing is.
class ImportFile : public TransferTest {
  protected:
    void SetUp() override {
        TransferTest::SetUp();
        open(TestDrawing().state(L"One", MaskColor));
        saveStateFile(L"two.las", TestDrawing().state(L"Two", MaskColor), L"Two");
    }
    std::string path(const std::wstring& name = L"two.las") const { return instruments::describe(file(name)); }
    /// Imports the file with a call failing.
    Script importWithFailing(const std::string& operation, int nth, Vorn::ErrorStatus status = Vorn::eInvalidInput) {
        Script script;
        script.look("a call is to fail", [=](const View&) { instruments::failCall(operation, nth, status); });
        return script.then(import(L"two.las"));
    }
};

TEST_F(ImportFile, AsksTheHostInThisOrder) {
    manage(import(L"two.las").then(leaveTaskDialog(kImported)).then(backInManager([this](const View&) {
        EXPECT_THAT(instruments::trace(),
                    ElementsAreArray(joined({callsOfImportDialog(file(L"two.las")),
                                             callsOfStart(),
                                             {"importLayerState(" + path() + ") = 0, name=\"Two\""},
                                             callsOfSearch("[\"One\", \"Two\"]"),
                                             callsOfEntering("Two", MaskColor, "#E9", "#EA"),
                                             callsOfList({"One", "Two"}),
                                             callsOfSelection("Two", MaskColor),
                                             {"taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                                              "\"KelLayerApps.LayerStateSuccessfulImport\", object, 1) = true",
                                              "taskDialog.ShowDialog(null) = 2"}})));
    })));
    EXPECT_THAT(wholenessProblems(database()), IsEmpty());
}

TEST_F(ImportFile, TheNewStateIsSelectedAndTheUserIsToldFromWhere) {
    TestDrawing many;
    for (int number = 10; number < 60; ++number)
        many.state(L"State " + std::to_wstring(number), MaskOn);
    open(many);
    manage(import(L"two.las")
               .waitForText(kImported)
               .waitForText(file(L"two.las"))
               .press(VK_ESCAPE)
               .then(backInManager([](const View& view) {
                   EXPECT_THAT(view.selectedRows(kList), ElementsAre(50));
                   EXPECT_EQ(view.focusedRow(kList), 50);
                   EXPECT_TRUE(view.isRowInView(kList, 50));
                   EXPECT_EQ(view.cell(kList, 50, 0), L"Two");
                   EXPECT_EQ(shownMask(view), MaskColor);
               })));
    EXPECT_EQ(kept(managerName, L"Expanded"), -1);
}

TEST_F(ImportFile, ItsStateCanBeRestoredAtOnce) {
    saveStateFile(
        L"red.las",
        TestDrawing().state(L"Red", MaskColor, L"", [](zdr::LayerColumns& columns) { columns.colors.set(0, 1); }),
        L"Red");
    manage(import(L"red.las").waitForText(kImported).click(kTaskDialogFirstCommand));
    EXPECT_EQ(kept(managerName, L"Expanded"), 0) << "the manager has ended as after a restore";
    EXPECT_EQ(engine::layerValues(database(), 0).color, 1u);
    EXPECT_EQ(engine::drawingOf(database()).lastRestored, L"Red");
    EXPECT_THAT(ui::callsOf("restoreLayerState"), ElementsAre("restoreLayerState(\"Red\", null, 5, null) = 0"));
}

TEST_F(ImportFile, TheSecondChoiceRestoresNothing) {
    manage(import(L"two.las")
               .waitForText(kImported)
               .click(kTaskDialogFirstCommand + 1)
               .then(backInManager({L"One", L"Two"}, L"Two")));
    EXPECT_THAT(ui::callsOf("restoreLayerState"), IsEmpty());
}

TEST_F(ImportFile, WhereTheSuccessCannotBeToldItIsStillImportedAndSelected) {
    manage(importWithFailing("taskDialog.LoadFromFile", 1).then(backInManager({L"One", L"Two"}, L"Two")));
    EXPECT_THAT(ui::callsOf("taskDialog.ShowDialog"), IsEmpty());
}

TEST_F(ImportFile, TheExtensionIsTakenInAnyCase) {
    for (const wchar_t* name : {L"A.LAS", L"b.Las", L"c.zdr.las"}) {
        open(TestDrawing().state(L"One", MaskColor));
        saveStateFile(name, TestDrawing().state(L"Two", MaskColor), L"Two");
        manage(import(name).then(leaveTaskDialog(kImported)).then(backInManager({L"One", L"Two"}, L"Two")));
        EXPECT_THAT(ui::callsOf("importLayerState"),
                    ElementsAre("importLayerState(" + path(name) + ") = 0, name=\"Two\""));
    }
}

TEST_F(ImportFile, ALeftFileDialogChangesNothing) {
    Script script = countCalls();
    script.click(IDC_LSTATE_RES_IMPORT)
        .waitUntil("the file dialog", [](const View& view) { return !view.has(kManagersOwn) && view.has(IDCANCEL); })
        .press(VK_ESCAPE)
        .waitForControl(kManagersOwn)
        .look("the focus is in the manager", [](const View& view) { EXPECT_NE(view.focusedControl(), 0); })
        .then(backInManager({L"One"}, L"One"));
    manage(script);
    EXPECT_THAT(instruments::trace(), ElementsAre(testing::StartsWith("keledGetFileNavDialog(")));
}

TEST_F(ImportFile, AFileDialogThatCannotBeShownChangesNothing) {
    Script script = countCalls();
    script.look("it is to fail", [](const View&) { instruments::failCall("keledGetFileNavDialog", 1); })
        .click(IDC_LSTATE_RES_IMPORT)
        .look("nothing more", [](const View&) { EXPECT_THAT(ui::callsOf("startTransaction"), IsEmpty()); })
        .then(backInManager({L"One"}, L"One"));
    manage(script);
}

TEST_F(ImportFile, WhatIsRefusedIsReportedAndTheListIsFilledAllTheSame) {
    writeBytes(file(L"rubbish.las"), std::vector<std::byte>(40, std::byte{7}));
    manage(import(L"rubbish.las").then(leaveTaskDialog(kCannotRestore)).then(backInManager([this](const View& view) {
        EXPECT_THAT(view.selectedRows(kList), IsEmpty());
        EXPECT_THAT(instruments::trace(),
                    ElementsAreArray(joined({callsOfImportDialog(file(L"rubbish.las")),
                                             callsOfStart(),
                                             {"importLayerState(" + path(L"rubbish.las") + ") = 3, name=\"\"",
                                              "taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                                              "\"KelLayerApps.CannotRestoreLayerState\", null, 0) = true",
                                              "taskDialog.ShowDialog(null) = 2"},
                                             callsOfSearch("[\"One\"]"),
                                             callsOfEnd(),
                                             callsOfPublishing(),
                                             callsOfList({"One"})})));
    })));
    EXPECT_EQ(stateNames(), Texts({L"One"}));
}

TEST_F(ImportFile, StatusesWithATextOfTheirOwnAreToldByIt) {
    const std::pair<int, unsigned int> rows[] = {{173, 125}, {384, 110}, {162, 111}};
    for (const auto& [status, text] : rows) {
        open(TestDrawing().state(L"One", MaskColor));
        manage(importWithFailing("importLayerState", 1, static_cast<Vorn::ErrorStatus>(status))
                   .then(answerMessage(resourceText(text)))
                   .then(backInManager({L"One"}, L"")));
    }
}

TEST_F(ImportFile, OnlyTheFirstFailureOfARunIsTold) {
    writeBytes(file(L"rubbish.las"), std::vector<std::byte>(40, std::byte{7}));
    manage(import(L"rubbish.las")
               .then(leaveTaskDialog(kCannotRestore))
               .waitForControl(kManagersOwn)
               .then(import(L"rubbish.las"))
               .waitUntil("the second import has ended",
                          [](const View&) { return !ui::callsOf("keledUpdateDisplay").empty(); })
               .then(backInManager({L"One"}, L"")));
    EXPECT_THAT(ui::callsOf("importLayerState"), testing::SizeIs(1)) << "since the second press";
    EXPECT_THAT(ui::callsOf("taskDialog.LoadFromFile"), IsEmpty());
}

TEST_F(ImportFile, AStateThatHadARowAtAnEarlierImportIsNewOnceItIsDeleted) {
    open(TestDrawing().state(L"One", MaskColor).state(L"Two", MaskColor));
    saveStateFile(L"three.las", TestDrawing().state(L"Three", MaskColor), L"Three");
    Script script = import(L"three.las");
    script.then(leaveTaskDialog(kImported))
        .waitForControl(kManagersOwn)
        .clickCellOf(kList, L"Two")
        .click(IDC_LSTATE_RES_DELETE)
        .then(answerBox(resourceText(IDS_LSTATE_CONFIRM_DELETE), IDYES))
        .waitForControl(kManagersOwn)
        .then(import(L"two.las"))
        .then(leaveTaskDialog(kImported))
        .then(backInManager({L"One", L"Three", L"Two"}, L"Two"));
    manage(script);
}

TEST_F(ImportFile, TheListCanBeUsedAfterwardsAlsoWhereItCouldNotBefore) {
    manage(disableList()
               .then(import(L"two.las"))
               .then(leaveTaskDialog(kImported))
               .then(backInManager([](const View& view) { EXPECT_TRUE(view.isEnabled(kList)); })));
}

TEST_F(ImportFile, WithoutATransactionItIsToldThatNothingCame) {
    manage(importWithFailing("startTransaction", 1)
               .then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED)))
               .then(backInManager({L"One"}, L"One")));
    EXPECT_THAT(ui::callsOf("importLayerState"), IsEmpty());
    EXPECT_THAT(ui::callsOf("endTransaction"), IsEmpty());
    EXPECT_THAT(ui::callsOf("getLayerStateNames"), IsEmpty()) << "the list isn't filled again";
}

TEST_F(ImportFile, ARecordThatCannotBeEnteredAgainIsToldThoughTheStateIsThere) {
    const std::pair<const char*, int> calls[] = {
        {"layerStatesDictionaryId", 2}, {"openObject", 3}, {"dictionary.setAt", 1}};
    for (const auto& [operation, nth] : calls) {
        SCOPED_TRACE(operation);
        open(TestDrawing().state(L"One", MaskColor));
        manage(importWithFailing(operation, nth)
                   .then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED)))
                   .then(backInManager({L"One"}, L"One")));
        EXPECT_EQ(stateNames(), Texts({L"One", L"Two"}));
        EXPECT_THAT(wholenessProblems(database()), IsEmpty());
        EXPECT_THAT(ui::callsOf("applyCurZdrLayerTableChanges"), IsEmpty());
    }
}

TEST_F(ImportFile, ARecordThatCannotBeCopiedCountsAsNothingNew) {
    const std::pair<const char*, int> calls[] = {
        {"layerStatesDictionaryId", 1}, {"openObject", 1}, {"openObject", 2}, {"dictionary.getAt", 1}, {"clone", 1}};
    for (const auto& [operation, nth] : calls) {
        SCOPED_TRACE(operation + std::to_string(nth));
        open(TestDrawing().state(L"One", MaskColor));
        manage(importWithFailing(operation, nth).then(backInManager({L"One", L"Two"}, L"")));
        EXPECT_THAT(ui::callsOf("dictionary.setAt"), IsEmpty());
        EXPECT_THAT(ui::callsOf("applyCurZdrLayerTableChanges"), testing::SizeIs(1));
        EXPECT_THAT(wholenessProblems(database()), IsEmpty());
    }
}

TEST_F(ImportFile, WithoutAServiceNothingComesAndNothingIsTold) {
    manage(importWithFailing("getLayerStateManager", 1).then(backInManager({L"One"}, L"")));
    EXPECT_THAT(ui::callsOf("importLayerState"), IsEmpty());
    EXPECT_THAT(ui::callsOf("endTransaction"), testing::SizeIs(1));
}

TEST_F(ImportFile, WithoutAServiceForTheSearchNothingCountsAsNew) {
    manage(importWithFailing("getLayerStateManager", 2).then(backInManager({L"One", L"Two"}, L"")));
    EXPECT_THAT(ui::callsOf("layerStatesDictionaryId"), IsEmpty());
    EXPECT_THAT(ui::callsOf("applyCurZdrLayerTableChanges"), testing::SizeIs(1));
}

TEST_F(ImportFile, OneStepBackTakesItOutAgain) {
    engine::beginUndoGroup(database()); // as the command line does around each command
    manage(import(L"two.las").then(leaveTaskDialog(kImported)).then(backInManager({L"One", L"Two"}, L"Two")));
    engine::endUndoGroup(database());
    EXPECT_TRUE(engine::undo(database()));
    EXPECT_EQ(stateNames(), Texts({L"One"}));
    EXPECT_FALSE(engine::undo(database()));
    EXPECT_TRUE(engine::redo(database()));
    EXPECT_EQ(stateNames(), Texts({L"One", L"Two"}));
    EXPECT_THAT(wholenessProblems(database()), IsEmpty());
}

} // namespace

// What the user is told when the host refuses a restore, and what the manager does when any of its host calls fails.

#include <afxwin.h>

#include "ManagerTest.h"

#include "Documents.h"

#include <algorithm>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using ui::Script;
using ui::View;

constexpr int exclamation = 32515;

class RestoreFailure : public ManagerTest {
  protected:
    /// Restores the selected state with the host answering that status.
    Script restoreAnswering(int status) {
        return Script()
            .look("the host is to refuse",
                  [this, status](const View& view) {
                      manager = view.window();
                      instruments::clearTrace();
                      instruments::failCall("restoreLayerState", 1, static_cast<Vorn::ErrorStatus>(status));
                  })
            .click(IDC_LSTATE_RES_RESTORE);
    }
    /// After a refused restore the rest of the handler has run all the same.
    void expectGoneThrough() const {
        EXPECT_EQ(ui::callsOf("setLayerStateMask").size(), 1u);
        EXPECT_EQ(ui::callsOf("keledRegenLayers").size(), 1u);
        EXPECT_EQ(ui::callsOf("endTransaction").size(), 1u);
        EXPECT_EQ(ui::callsOf("applyCurZdrLayerTableChanges").size(), 2u);
        EXPECT_EQ(ui::callsOf("keledUpdateDisplay").size(), 2u);
        EXPECT_EQ(kept(managerName, L"Expanded"), 0);
    }

    HWND manager = nullptr;
};

struct Report {
    int status;
    unsigned int stringId;
};
class RestoreReports : public RestoreFailure, public testing::WithParamInterface<Report> {};

TEST_P(RestoreReports, ComeAsAMessageBoxAndTheManagerEnds) {
    open(house());
    manage(restoreAnswering(GetParam().status)
               .waitForText(resourceText(GetParam().stringId))
               .look("its owner, its title, its icon and its button",
                     [this](const View& view) {
                         EXPECT_EQ(GetWindow(view.window(), GW_OWNER), manager);
                         EXPECT_EQ(view.title(), L"Error"); // the system's title for a box that names none
                         EXPECT_EQ(view.icon(), LoadIconW(nullptr, MAKEINTRESOURCEW(exclamation)));
                         EXPECT_TRUE(view.has(IDOK) || view.has(IDCANCEL)); // a lone OK button may bear either id
                         EXPECT_FALSE(view.has(IDYES));
                         // The transaction is still under way while the box is open.
                         EXPECT_EQ(ui::callsOf("endTransaction").size(), 0u);
                     })
               .press(VK_RETURN));
    expectGoneThrough();
}

INSTANTIATE_TEST_SUITE_P(Statuses, RestoreReports,
                         testing::Values(Report{173, IDS_LSTATE_CURRENT_LAYER_NO_FREEZE},
                                         Report{384, IDS_LSTATE_STYLE_MISSING},
                                         Report{162, IDS_LSTATE_REFERENCE_UNRESOLVED}),
                         [](const testing::TestParamInfo<Report>& named) {
                             return "Status" + std::to_string(named.param.status);
                         });

TEST_F(RestoreFailure, StatusesWithTextsOfTheirOwnHaveOnes) {
    for (const unsigned int id : {110u, 111u, 125u})
        EXPECT_NE(resourceText(id), L"") << id;
}

TEST_F(RestoreFailure, AnyOtherStatusIsToldByTheTaskDialog) {
    open(house());
    manage(restoreAnswering(Vorn::eInvalidInput)
               .waitUntil("the task dialog is shown", [](const View& view) { return !view.has(IDC_LSTATE_RES_LIST); })
               .look("its load",
                     [](const View&) {
                         EXPECT_THAT(instruments::trace(),
                                     Contains(StartsWith(
                                         "taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                                         "\"KelLayerApps.CannotRestoreLayerState\", null, 0)")));
                     })
               .press(VK_RETURN));
    EXPECT_EQ(ui::callsOf("taskDialog.ShowDialog").size(), 1u);
    expectGoneThrough();
}

TEST_F(RestoreFailure, TheTaskDialogIsOwnedByTheMainWindowOfTheThread) {
    open(house());
    CWnd mainWindow;
    ASSERT_TRUE(mainWindow.CreateEx(0, AfxRegisterWndClass(0), L"Main window", WS_OVERLAPPEDWINDOW,
                                    CRect(0, 0, 600, 400), nullptr, 0));
    Script script;
    script.look("a main window", [&mainWindow](const View&) { AfxGetThread()->m_pMainWnd = &mainWindow; });
    manage(
        script.then(restoreAnswering(Vorn::eInvalidInput))
            .waitUntil("the task dialog is shown", [](const View& view) { return !view.has(IDC_LSTATE_RES_LIST); })
            .look("its owner",
                  [&mainWindow](const View& view) { EXPECT_EQ(GetWindow(view.window(), GW_OWNER), mainWindow.m_hWnd); })
            .press(VK_RETURN));
    AfxGetThread()->m_pMainWnd = nullptr;
    mainWindow.DestroyWindow();
}

TEST_F(RestoreFailure, ARefusedRestoreIsReportedBehindTheRegenerationAndWithinTheTransaction) {
    open(house());
    manage(restoreAnswering(Vorn::eInvalidInput)
               .waitUntil("the task dialog is shown", [](const View& view) { return !view.has(IDC_LSTATE_RES_LIST); })
               .press(VK_RETURN));
    const std::vector<std::string> calls = instruments::trace();
    const auto restored = std::find_if(calls.begin(), calls.end(),
                                       [](const std::string& line) { return line.starts_with("restoreLayerState("); });
    EXPECT_THAT(std::vector<std::string>(restored, calls.end()),
                ElementsAre("restoreLayerState(\"Ground floor\", null, 5, null) = 3", "keledRegenPending() = 0",
                            "keledRegenLayers(4, 0)", StartsWith("taskDialog.LoadFromFile("),
                            StartsWith("taskDialog.ShowDialog("), "kelDocManagerPtr()", "currentDocument() = object",
                            "transactionManager() = object", "endTransaction() = 0",
                            "applyCurZdrLayerTableChanges() = 0", "keledUpdateDisplay()",
                            "applyCurZdrLayerTableChanges() = 0", "keledUpdateDisplay()",
                            "SetDialogData(\"Expanded\", 0) = true"));
}

TEST_F(RestoreFailure, ATaskDialogThatCantBeLoadedBecomesAMessageBoxWithoutText) {
    open(house());
    Script script;
    script.look("the task dialog can't be loaded",
                [](const View&) { instruments::failCall("taskDialog.LoadFromFile", 1); });
    manage(script.then(restoreAnswering(Vorn::eInvalidInput))
               .waitUntil("a message box stands there", [](const View& view) { return view.icon() != nullptr; })
               .look("its texts",
                     [](const View& view) {
                         EXPECT_EQ(view.icon(), LoadIconW(nullptr, MAKEINTRESOURCEW(exclamation)));
                         EXPECT_EQ(view.texts().size(), 1u); // that of the button
                     })
               .press(VK_RETURN));
    EXPECT_EQ(ui::callsOf("taskDialog.ShowDialog").size(), 0u);
    expectGoneThrough();
}

TEST_F(RestoreFailure, Status23IsPassedOverInSilence) {
    open(house());
    manage(restoreAnswering(Vorn::eDuplicateRecordName));
    EXPECT_EQ(ui::callsOf("taskDialog.LoadFromFile").size(), 0u);
    expectGoneThrough();
}

TEST_F(RestoreFailure, ASuccessSaysNothing) {
    open(house());
    manage(Script()
               .look("the calls count from here", [](const View&) { instruments::clearTrace(); })
               .click(IDC_LSTATE_RES_RESTORE));
    EXPECT_EQ(ui::callsOf("taskDialog.LoadFromFile").size(), 0u);
    expectGoneThrough();
}

TEST_F(RestoreFailure, ARealRefusalToFreezeTheCurrentLayerIsTold) {
    open(house()
             .state(L"Frozen", MaskFrozen, L"",
                    [](zdr::LayerColumns& columns) {
                        columns.flags.set(0, zdr::kLayerOn | zdr::kLayerPlot | zdr::kLayerFrozen);
                    })
             .lastRestored(L"Frozen"));
    manage(Script()
               .click(IDC_LSTATE_RES_RESTORE)
               .waitForText(resourceText(IDS_LSTATE_CURRENT_LAYER_NO_FREEZE))
               .press(VK_RETURN));
    EXPECT_EQ(kept(managerName, L"Expanded"), 0);
}

TEST_F(RestoreFailure, TheMaskIsAlreadyOverwrittenWhenTheHostRefuses) {
    open(house());
    keep(managerName, L"Expanded", 1);
    Script script;
    script.click(IDC_LSTATE_RES_PLOT);
    manage(script.then(restoreAnswering(162)).waitForText(resourceText(111)).press(VK_RETURN));
    LayerStateMask mask = 0;
    EXPECT_EQ(states().getLayerStateMask(L"Ground floor", mask), Vorn::eOk);
    EXPECT_EQ(mask, MaskAllProperties & ~MaskPlot);
}

// What one run with the k-th host call of the restore failing came to.
struct Outcome {
    bool struck = false;
    bool stayedOpen = false;
    std::vector<std::string> calls;

    int count(const std::string& start) const {
        int found = 0;
        for (const std::string& line : calls)
            found += line.starts_with(start);
        return found;
    }
};

class EachCallFailing : public RestoreFailure {
  protected:
    Outcome restoreWithFailing(int nth) {
        Outcome outcome;
        manage(Script()
                   .look("one call is to fail",
                         [nth](const View&) {
                             instruments::clearTrace();
                             instruments::failAnyCall(nth, Vorn::eInvalidInput);
                         })
                   .click(IDC_LSTATE_RES_RESTORE)
                   .answerAllUntil(IDC_LSTATE_RES_LIST)
                   .look("the manager is still open", [&outcome](const View&) { outcome.stayedOpen = true; })
                   .press(VK_ESCAPE));
        outcome.struck = instruments::faultStruck();
        outcome.calls = instruments::trace();
        instruments::clearFaults();
        return outcome;
    }
};

TEST_F(EachCallFailing, LeavesNothingOpenAndEndsAsARestoreEnds) {
    int runs = 0;
    for (bool struck = true; struck && !HasFailure(); ++runs) {
        SCOPED_TRACE("with call " + std::to_string(runs + 1) + " failing");
        open(house());
        const Outcome outcome = restoreWithFailing(runs + 1);
        struck = outcome.struck;
        const bool started = outcome.count("startTransaction() = object") == 1;
        // Only the lack of a transaction keeps the manager open; then nothing else has happened.
        EXPECT_EQ(outcome.stayedOpen, !started);
        EXPECT_EQ(outcome.count("applyCurZdrLayerTableChanges("), started ? 2 : 0);
        EXPECT_EQ(outcome.count("keledUpdateDisplay("), started ? 2 : 0);
        EXPECT_EQ(outcome.count("SetDialogData(\"Expanded\""), started ? 1 : 0);
        // A transaction is ended, unless the document can't be had any more.
        const bool documentLost =
            outcome.count("currentDocument() = null") + outcome.count("transactionManager() = null");
        EXPECT_EQ(outcome.count("endTransaction("), started && !documentLost ? 1 : 0);
        // Without the state manager there is no restore; nothing else prevents one.
        const bool stateless = outcome.count("getLayerStateManager() = object") == 0;
        EXPECT_EQ(outcome.count("restoreLayerState("), started && !stateless ? 1 : 0);
        EXPECT_EQ(outcome.count("taskDialog.ShowDialog("),
                  outcome.count("restoreLayerState(\"Ground floor\", null, 5, null) = 3"));
        // The layers are regenerated only if they could be collected.
        EXPECT_EQ(outcome.count("keledRegenLayers("), outcome.count("iterator.getRecordId() = 0") > 0 ? 1 : 0);
        // What the manager can't end, the host does.
        if (started && documentLost) {
            EXPECT_EQ(runtime::currentDocument()->transactionManager()->endTransaction(), Vorn::eOk);
        }
        EXPECT_THAT(instruments::ledger(), IsEmpty());
    }
    EXPECT_GT(runs, 10);
}

} // namespace

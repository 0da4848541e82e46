// Import and export with each of their host calls failing once: the manager can be used afterwards, nothing is left
// open, the drawing is whole, and it has all its states or lacks those of which the host has refused the new ones.

#include "TransferTest.h"

#include "Documents.h"
#include "FaultSweep.h"
#include "FileDialogSteps.h"
#include "OrvUiServices.h"
#include "WholeDrawing.h"

#include <algorithm>

namespace {

using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

constexpr int kList = IDC_LSTATE_RES_LIST;

class TransferWithEachCallFailing : public TransferTest {
  protected:
    /// Opens the drawing anew for each host call that comes after the script; that call fails, and what is in front is
    /// answered until the manager is back. `check` looks at what came of it.
    void sweep(const TestDrawing& drawing, const Script& before, const Script& action,
               const std::function<void()>& check) {
        int runs = 0;
        for (bool struck = true; struck && !HasFailure(); ++runs) {
            open(drawing);
            Script script;
            script.then(before)
                .look("one call is to fail",
                      [runs](const View&) {
                          instruments::clearTrace();
                          instruments::failAnyCall(runs + 1, &sweep::statusOf);
                      })
                .then(action)
                .then(answerAll())
                .look("the manager", [&](const View& view) {
                    struck = instruments::faultStruck();
                    EXPECT_TRUE(IsWindowEnabled(view.window()));
                    EXPECT_TRUE(view.isEnabled(kList));
                });
            manage(script.press(VK_ESCAPE));
            SCOPED_TRACE("call " + std::to_string(runs + 1) + " of " + instruments::struckOperation());
            instruments::clearFaults();
            // A transaction whose end the manager couldn't reach is the host's to end.
            if (instruments::ledger() == Calls{"transaction"}) {
                EXPECT_EQ(runtime::currentDocument()->transactionManager()->endTransaction(), Vorn::eOk);
            }
            EXPECT_THAT(instruments::ledger(), IsEmpty());
            EXPECT_THAT(wholenessProblems(database()), IsEmpty());
            check();
        }
        EXPECT_GT(runs, 4);
    }
    static bool hasSucceeded(const std::string& start) {
        const Calls calls = instruments::trace();
        return std::any_of(calls.begin(), calls.end(), [&start](const std::string& line) {
            return line.starts_with(start) && line.find(") = 0") != std::string::npos;
        });
    }
    bool has(const wchar_t* name) const { return stateOf(name) != nullptr; }
    /// Confirms the file dialog.
    static Script confirm() {
        Script script;
        return script.press(VK_RETURN);
    }
    /// Presses the button, and types the path into the file dialog.
    Script filled(int button, const std::wstring& name) const {
        Script script;
        return script.click(button).waitForControl(ui::kFileNameBox).then(ui::typeFileName(file(name)));
    }

  private:
    /// Says yes to questions, and leaves what is told.
    static Script answerAll() {
        Script script;
        return script.step("answer until the manager is back", [](const View& view) -> ui::Obstacle {
            if (view.has(kManagersOwn))
                return std::nullopt;
            const bool isSuccess = view.controlWithText(kImported) != nullptr;
            ui::pressKey(isSuccess ? VK_ESCAPE : VK_RETURN);
            return "the window \"" + ui::narrow(view.title()) + "\" stands before it";
        });
    }
};

TEST_F(TransferWithEachCallFailing, OfAFile) {
    saveStateFile(L"two.las", TestDrawing().state(L"Two", MaskColor), L"Two");
    sweep(TestDrawing().state(L"One", MaskColor), filled(IDC_LSTATE_RES_IMPORT, L"two.las"), confirm(), [this] {
        EXPECT_TRUE(has(L"One"));
        EXPECT_EQ(has(L"Two"), hasSucceeded("importLayerState("));
    });
}

TEST_F(TransferWithEachCallFailing, OfAFileWhoseStateIsReplaced) {
    saveStateFile(L"one.las", TestDrawing().state(L"One", MaskColor, L"new"), L"One");
    sweep(TestDrawing().state(L"One", MaskColor), filled(IDC_LSTATE_RES_IMPORT, L"one.las"), confirm(), [this] {
        const bool deleted = hasSucceeded("deleteLayerState(");
        EXPECT_EQ(has(L"One"), !deleted || hasSucceeded("importLayerState("));
        EXPECT_EQ(has(L"One") && stateOf(L"One")->description == L"new", hasSucceeded("importLayerState("));
    });
}

TEST_F(TransferWithEachCallFailing, OfTwoStatesOfADrawing) {
    saveDrawing(L"other.zdr", TestDrawing().state(L"One", MaskColor, L"new").state(L"Two", MaskColor));
    Script before = filled(IDC_LSTATE_RES_IMPORT, L"other.zdr");
    before.press(VK_RETURN).then(tickAll());
    sweep(TestDrawing().state(L"One", MaskColor), before, confirm(), [this] {
        const bool replaced = hasSucceeded("importLayerStateFromDb(\"One\"");
        EXPECT_EQ(has(L"One"), !hasSucceeded("deleteLayerState(") || replaced);
        EXPECT_EQ(has(L"One") && stateOf(L"One")->description == L"new", replaced);
        EXPECT_EQ(has(L"Two"), hasSucceeded("importLayerStateFromDb(\"Two\""));
    });
}

TEST_F(TransferWithEachCallFailing, OfAnExport) {
    sweep(TestDrawing().state(L"One", MaskColor), filled(IDC_LSTATE_RES_EXPORT, L"out.las"), confirm(), [this] {
        EXPECT_TRUE(has(L"One"));
        const bool written = hasSucceeded("exportLayerState(");
        EXPECT_EQ(DeleteFileW(file(L"out.las").c_str()) != FALSE, written);
    });
}

} // namespace

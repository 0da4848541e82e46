// The dialog's opening with each of its host calls failing once: it opens with what could be read, or with no rows, and
// the drawing is as before.

#include "EditTest.h"

#include "FaultSweep.h"
#include "WholeDrawing.h"
#include "engine/DatabaseAccess.h"

#include <algorithm>

namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

class OpeningSweep : public EditTest {
  protected:
    struct Outcome {
        bool struck = false;
        std::vector<std::wstring> rows;
        Calls calls;
    };
    /// Opens the dialog with that call failing, and ends it with that key.
    Outcome run(int nth, WORD key) {
        Outcome outcome;
        manage(Script()
                   .clickCellOf(IDC_LSTATE_RES_LIST, L"Plan")
                   .look("one call is to fail",
                         [nth](const View&) {
                             instruments::clearTrace();
                             instruments::failAnyCall(nth, &sweep::statusOf);
                         })
                   .click(IDC_LSTATE_RES_EDIT)
                   .waitForControl(IDC_ADD_LAYERS)
                   .look("the dialog",
                         [&](const View& view) {
                             outcome.struck = instruments::faultStruck();
                             instruments::clearFaults();
                             outcome.rows = rows(view);
                             outcome.calls = instruments::trace();
                         })
                   .press(key)
                   .waitForControl(IDC_LSTATE_RES_LIST)
                   .click(IDC_LSTATE_RES_CLOSE));
        return outcome;
    }
};

TEST_F(OpeningSweep, LeavesADialogThatCanBeEndedAndTheDrawingAsItWas) {
    const TestDrawing plan = TestDrawing().layer(L"Walls").state(
        L"Plan", MaskAllProperties, L"", [](zdr::LayerColumns& columns) { columns.colors.set(1, 5); });
    int runs = 0, unguarded = 0, kept = 0;
    for (bool struck = true; struck && !HasFailure(); ++runs) {
        open(plan);
        const zdr::Drawing before = engine::drawingOf(database());
        const Outcome outcome = run(runs + 1, runs % 2 == 0 ? VK_ESCAPE : VK_RETURN);
        struck = outcome.struck;
        SCOPED_TRACE("call " + std::to_string(runs + 1) + " of " + instruments::struckOperation());
        EXPECT_THAT(instruments::ledger(), IsEmpty());
        EXPECT_THAT(wholenessProblems(database()), IsEmpty());
        EXPECT_THAT(outcome.rows,
                    AnyOf(IsEmpty(), ElementsAre(L"Walls", L"Base"), ElementsAre(L"Walls"), ElementsAre(L"Base")));
        const Calls restores = ui::callsOf("imp.restoreLayerState", outcome.calls);
        const bool guarded = std::ranges::any_of(ui::callsOf("saveLayerState", outcome.calls),
                                                 [](const std::string& line) { return line.ends_with(" = 0"); });
        const bool putBack = std::ranges::any_of(restores, [](const std::string& line) {
            return line.find("TempState_") != std::string::npos && line.ends_with(" = 0");
        });
        const bool deleted = std::ranges::any_of(ui::callsOf("deleteLayerState", outcome.calls),
                                                 [](const std::string& line) { return line.ends_with(" = 0"); });
        // Without a guard the state's values stay; the throw-away state stays when it can't be restored or deleted.
        unguarded += !guarded && !restores.empty();
        kept += guarded && !deleted;
        if ((guarded && putBack && deleted) || (!guarded && restores.empty())) {
            EXPECT_EQ(differenceFrom(before), "");
        }
        EXPECT_EQ(engine::drawingOf(database()).states.size(), guarded && !deleted ? 2u : 1u);
        EXPECT_EQ(stored(L"Plan")->columns.colors[1], 5u);
    }
    EXPECT_GT(runs, 20);
    EXPECT_GE(unguarded, 1);
    EXPECT_GE(kept, 2);
}

} // namespace

// What is chosen in the add layers dialog, how its rows are sorted, and what becomes of the choice in the edit dialog.

#include "AddLayersTest.h"

#include "FaultSweep.h"
#include "WholeDrawing.h"
#include "engine/DatabaseAccess.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

class AddLayersChoice : public AddLayersTest {
  protected:
    static Script expectRows(std::vector<std::wstring> expected) {
        return Script().step("see the rows", [expected = std::move(expected)](const View& view) -> ui::Obstacle {
            const std::vector<std::wstring> found = rows(view);
            return found == expected ? ui::Obstacle() : "they are " + testing::PrintToString(found);
        });
    }
    /// What is asked of a layer that is added, in a drawing with named plot styles.
    static Calls callsOfAdded(const std::string& id, const std::string& name, const std::string& color) {
        return joined({{"openObject(" + id + ", 0, false) = 0"}, callsOfProperties(id, name, color)});
    }
};

TEST_F(AddLayersChoice, OfSeveralRowsAddsThemInTheOrderInWhichTheyStand) {
    open(grown());
    Calls calls;
    add(Script()
            .clickCellOf(grid, L"Attic")
            .clickCellOf(grid, L"Cellar", ui::holdControl)
            .then(countFromHere())
            .click(IDOK),
        [&](const View& view) {
            calls = callsSoFar();
            EXPECT_THAT(rows(view), ElementsAre(L"Attic", L"Cellar", L"Walls", L"Base"));
            EXPECT_THAT(view.selectedRows(grid), IsEmpty());
        });
    const std::size_t asked = 1 + 2 * callsOfAdded("", "", "").size();
    ASSERT_GE(calls.size(), asked);
    calls.resize(asked); // painting asks for plot styles too
    EXPECT_THAT(calls, ElementsAreArray(joined({{"SaveColumnSizes(16214)"},
                                                callsOfAdded("#6", "Cellar", "color 4"),
                                                callsOfAdded("#4", "Attic", "color 2")})));
}

TEST_F(AddLayersChoice, PassesOverARowWithoutARecord) {
    open(grown());
    add(Script()
            .clickCellOf(grid, L"Attic")
            .look("that row to hold no record any more",
                  [](const View& view) {
                      LVITEMW item = {};
                      item.mask = LVIF_PARAM;
                      item.iItem = view.selectedRows(grid).front();
                      EXPECT_TRUE(SendMessageW(GetDlgItem(view.window(), grid), LVM_SETITEMW, 0,
                                               reinterpret_cast<LPARAM>(&item)));
                  })
            .clickCellOf(grid, L"Cellar", ui::holdControl)
            .click(IDOK),
        [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Cellar", L"Walls", L"Base")); });
}

TEST_F(AddLayersChoice, ShowsTheLiveValuesOfWhatWasAdded) {
    open(grown());
    engine::LayerValues yard = engine::layerValues(database(), 3);
    yard.flags = zdr::kLayerLocked | zdr::kLayerNewViewportFrozen;
    ASSERT_EQ(engine::setLayerValues(database(), 3, yard), Vorn::eOk);
    const zdr::Drawing before = engine::drawingOf(database());
    add(Script().clickCellOf(grid, L"Yard").press(VK_RETURN), [](const View& view) {
        EXPECT_THAT(view.cells(grid, 0),
                    ElementsAre(L"Yard", L"1", L"0", L"1", L"", L"Continuous", L"", L"", L"0", L"1"));
    });
    EXPECT_THAT(ui::callsOf("saveLayerState"), IsEmpty()); // no throw-away state this time
    EXPECT_EQ(differenceFrom(before), "");
}

TEST_F(AddLayersChoice, BuildsTheRowsAnewUnsortedAndUnselected) {
    open(grown());
    editPlan(Script()
                 .clickHeading(grid, 0)
                 .then(expectRows({L"Base", L"Walls"}))
                 .clickCellOf(grid, L"Base")
                 .then(openDialog())
                 .clickCellOf(grid, L"Yard")
                 .click(IDOK)
                 .waitForControl(IDC_ADD_LAYERS)
                 .look("the rows",
                       [](const View& view) {
                           EXPECT_THAT(rows(view), ElementsAre(L"Yard", L"Walls", L"Base"));
                           EXPECT_THAT(view.selectedRows(grid), IsEmpty());
                       })
                 .clickHeading(grid, 0) // the key has survived: the same heading again turns it round
                 .then(expectRows({L"Yard", L"Walls", L"Base"}))
                 .clickHeading(grid, 0)
                 .then(expectRows({L"Base", L"Walls", L"Yard"}))
                 .press(VK_ESCAPE));
}

TEST_F(AddLayersChoice, OfNoneAndACancelLeaveTheRowsAndTheirSelection) {
    open(grown());
    for (const bool cancel : {false, true}) {
        Calls calls;
        Script leave = Script();
        if (cancel)
            leave.clickCell(grid, 0, 0).then(countFromHere()).click(IDCANCEL);
        else
            leave.then(countFromHere()).click(IDOK);
        editPlan(Script()
                     .clickHeading(grid, 0)
                     .then(expectRows({L"Base", L"Walls"}))
                     .clickCellOf(grid, L"Walls")
                     .then(openDialog())
                     .then(leave)
                     .waitForControl(IDC_ADD_LAYERS)
                     .look("the rows",
                           [&](const View& view) {
                               calls = callsSoFar();
                               EXPECT_THAT(rows(view), ElementsAre(L"Base", L"Walls"));
                               EXPECT_THAT(view.selectedRows(grid), ElementsAre(1));
                           })
                     .press(VK_ESCAPE));
        EXPECT_EQ(calls, cancel ? Calls() : Calls{"SaveColumnSizes(16214)"});
    }
}

TEST_F(AddLayersChoice, SortsByNameBothWaysAndBeginsUnsortedTheNextTime) {
    open(grown());
    add(Script()
            .clickHeading(grid, 0)
            .then(expectRows({L"Attic", L"Cellar", L"Yard"}))
            .clickHeading(grid, 0)
            .then(expectRows({L"Yard", L"Cellar", L"Attic"}))
            .clickHeading(grid, 0)
            .then(expectRows({L"Attic", L"Cellar", L"Yard"}))
            .press(VK_ESCAPE));
    add(Script()
            .then(expectRows({L"Cellar", L"Yard", L"Attic"}))
            .clickHeading(grid, 0)
            .then(expectRows({L"Attic", L"Cellar", L"Yard"}))
            .press(VK_ESCAPE));
}

TEST_F(AddLayersChoice, SortsDescriptionsAgainstNamesBothWays) {
    // Each description against the other's name: "c" before "Yard" and "b" behind "Attic", though "b" stands before
    // "c".
    open(TestDrawing().state(L"Plan", MaskColor).layer(L"Attic").layer(L"Yard"));
    describe(L"Attic", L"C");
    describe(L"Yard", L"B");
    add(Script()
            .then(expectRows({L"Yard", L"Attic"}))
            .clickHeading(grid, 1)
            .then(expectRows({L"Attic", L"Yard"}))
            .clickHeading(grid, 1)
            .then(expectRows({L"Yard", L"Attic"}))
            .press(VK_ESCAPE));
}

TEST_F(AddLayersChoice, TakesTheRowsThatAreSelectedAfterSorting) {
    open(grown());
    add(Script()
            .clickHeading(grid, 0)
            .then(expectRows({L"Attic", L"Cellar", L"Yard"}))
            .clickCell(grid, 0, 0)
            .clickCell(grid, 1, 0, ui::holdShift)
            .press(VK_RETURN),
        [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Cellar", L"Attic", L"Walls", L"Base")); });
}

TEST_F(AddLayersChoice, LeavesOutALayerThatCantBeOpenedAndAddsTheOthers) {
    open(grown());
    add(Script()
            .clickCell(grid, 0, 0)
            .clickCell(grid, 2, 0, ui::holdShift)
            .look("the first can't be opened",
                  [](const View&) { instruments::failCall("openObject", 1, Vorn::eWasOpenForWrite); })
            .press(VK_RETURN),
        [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Attic", L"Yard", L"Walls", L"Base")); });
}

TEST_F(AddLayersChoice, NeverMakesALayerCurrentOrDependent) {
    TestDrawing site;
    open(TestDrawing().state(L"Plan", MaskColor).layer(L"Walls").reference(L"site", site));
    ASSERT_EQ(engine::setCurrentLayer(database(), 1), Vorn::eOk);
    Calls updates;
    edit(L"Plan", openDialog()
                      .clickCell(grid, 0, 0)
                      .clickCell(grid, 1, 0, ui::holdShift)
                      .click(IDOK)
                      .waitForControl(IDC_ADD_LAYERS)
                      .clickPoint("the lock of Walls",
                                  [](const View& view) -> std::optional<POINT> {
                                      const std::optional<RECT> cell =
                                          view.cellRect(grid, view.rowOf(grid, L"Walls"), 3);
                                      return cell ? std::optional<POINT>(ui::middleOf(*cell)) : std::nullopt;
                                  })
                      .doubleClickCell(grid, 1, 0) // site!Base, which no message refuses
                      .click(IDOK)
                      .waitForControl(IDC_LSTATE_RES_LIST)
                      .look("the updates", [&](const View&) { updates = ui::callsOf("imp.updateLayerStateLayer"); }));
    EXPECT_EQ(updates.size(), 2u);
    EXPECT_EQ(std::ranges::count(updates, "imp.updateLayerStateLayer(\"Plan\", object, false) = true"), 1);
}

TEST_F(AddLayersChoice, SurvivesEachOfItsHostCallsFailing) {
    const TestDrawing drawing = TestDrawing().state(L"Plan", MaskColor).layer(L"Walls");
    int runs = 0;
    for (bool struck = true; struck && !HasFailure(); ++runs) {
        open(drawing);
        std::vector<std::wstring> found;
        editPlan(
            Script()
                .look("one call is to fail",
                      [&](const View&) {
                          instruments::clearTrace();
                          instruments::failAnyCall(runs + 1, &sweep::statusOf);
                      })
                .click(IDC_ADD_LAYERS)
                .waitUntil("something has come",
                           [](const View& view) { return !view.has(IDC_ADD_LAYERS) || instruments::faultStruck(); })
                .look("choose the first row",
                      [](const View& view) {
                          if (view.has(grid) && !view.has(IDC_ADD_LAYERS))
                              ui::pressKey(VK_SPACE);
                      })
                .answerAllUntil(IDC_ADD_LAYERS)
                .look("the rows",
                      [&](const View& view) {
                          struck = instruments::faultStruck();
                          instruments::clearFaults();
                          found = rows(view);
                      })
                .press(VK_ESCAPE));
        SCOPED_TRACE("call " + std::to_string(runs + 1) + " of " + instruments::struckOperation());
        EXPECT_THAT(instruments::ledger(), IsEmpty());
        EXPECT_THAT(wholenessProblems(database()), IsEmpty());
        ASSERT_FALSE(found.empty());
        EXPECT_EQ(found.back(), L"Base");
        EXPECT_LE(found.size(), 3u); // a layer that doesn't tell its name is offered, though it may have a row
    }
    EXPECT_GT(runs, 10);
}

} // namespace

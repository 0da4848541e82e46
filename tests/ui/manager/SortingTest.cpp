// Sorting the manager's list by clicks on its headings.
#include "ManagerTest.h"

#include <algorithm>

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

namespace {

constexpr int kList = IDC_LSTATE_RES_LIST;
using Texts = std::vector<std::wstring>;

class Sorting : public ManagerTest {
  protected:
    static Script expectNames(const Texts& names) {
        return Script().look("the rows", [names](const View& view) { EXPECT_EQ(view.column(kList, 0), names); });
    }
};

TEST_F(Sorting, TheNameTwiceAndThenTheDescription) {
    open(house());
    manage(expectNames({L"Ground floor", L"Plumbing plan", L"Bare"})
               .clickHeading(kList, 0)
               .then(expectNames({L"Bare", L"Ground floor", L"Plumbing plan"}))
               .clickHeading(kList, 0)
               .then(expectNames({L"Plumbing plan", L"Ground floor", L"Bare"}))
               .clickHeading(kList, 3)
               .then(expectNames({L"Plumbing plan", L"Bare", L"Ground floor"}))
               .press(VK_ESCAPE));
}

TEST_F(Sorting, AsksTheHostNothingAndShowsTheWaitCursor) {
    open(house());
    manage(Script()
               .look("from here", [](const View&) { instruments::clearTrace(); })
               .clickHeading(kList, 0)
               .look("the calls",
                     [](const View&) {
                         EXPECT_THAT(instruments::trace(), ElementsAre("DoWaitCursor(1)", "DoWaitCursor(-1)"));
                     })
               .press(VK_ESCAPE));
}

TEST_F(Sorting, EveryColumnSortsByTheTextThatItShows) {
    open(houseOnSite());
    for (const int column : {0, 1, 2, 3})
        manage(Script()
                   .clickHeading(kList, column)
                   .look("upwards",
                         [column](const View& view) {
                             const Texts texts = view.column(kList, column);
                             EXPECT_TRUE(std::is_sorted(texts.begin(), texts.end())) << column;
                             EXPECT_EQ(view.rowCount(kList), 5);
                         })
                   .clickHeading(kList, column)
                   .look("downwards",
                         [column](const View& view) {
                             const Texts texts = view.column(kList, column);
                             EXPECT_TRUE(std::is_sorted(texts.rbegin(), texts.rend())) << column;
                         })
                   .press(VK_ESCAPE));
}

TEST_F(Sorting, TheSelectedStateStaysSelectedWithItsBoxesAndIsTheOneThatIsRestored) {
    open(house());
    manage(Script()
               .clickCell(kList, 1, 0)
               .clickHeading(kList, 0)
               .look("in its new place",
                     [](const View& view) {
                         EXPECT_THAT(view.selectedRows(kList), ElementsAre(2));
                         EXPECT_EQ(view.focusedRow(kList), 2);
                         EXPECT_EQ(view.cell(kList, 2, 0), L"Plumbing plan");
                         EXPECT_EQ(shownMask(view), MaskOn | MaskColor | MaskLinetype);
                     })
               .click(IDC_LSTATE_RES_RESTORE));
    EXPECT_THAT(ui::callsOf("restoreLayerState"),
                ElementsAre(testing::StartsWith("restoreLayerState(\"Plumbing plan\"")));
}

TEST_F(Sorting, IsForgottenWhenTheManagerOpensAgain) {
    open(house());
    manage(Script().clickHeading(kList, 0).press(VK_ESCAPE));
    manage(expectNames({L"Ground floor", L"Plumbing plan", L"Bare"})
               .clickHeading(kList, 0)
               .then(expectNames({L"Bare", L"Ground floor", L"Plumbing plan"}))
               .press(VK_ESCAPE));
}

TEST_F(Sorting, IsUndoneByAFillWhichRemembersTheDirection) {
    open(house());
    manage(Script()
               .clickHeading(kList, 0)
               .click(IDC_LSTATE_RES_HIDEXREFS)
               .then(expectNames({L"Ground floor", L"Plumbing plan", L"Bare"}))
               .clickHeading(kList, 0)
               .then(expectNames({L"Plumbing plan", L"Ground floor", L"Bare"}))
               .press(VK_ESCAPE));
}

TEST_F(Sorting, KeepsTheNameThatIsBeingTypedBeforeTheRowsMove) {
    open(house());
    manage(Script()
               .clickCell(kList, 2, 0)
               .press(VK_F2)
               .type(L"Zoned")
               .clickHeading(kList, 0)
               .then(expectNames({L"Ground floor", L"Plumbing plan", L"Zoned"}))
               .clickHeading(kList, 0)
               .then(expectNames({L"Zoned", L"Plumbing plan", L"Ground floor"}))
               .look("selected", [](const View& view) { EXPECT_THAT(view.selectedRows(kList), ElementsAre(0)); })
               .press(VK_ESCAPE));
    EXPECT_THAT(ui::callsOf("renameLayerState"), ElementsAre("renameLayerState(\"Bare\", \"Zoned\") = 0"));
}

TEST_F(Sorting, WaitsForANameThatCanBeUsed) {
    open(house());
    std::wstring taken = resourceText(IDS_LSTATE_NAME_TAKEN);
    taken.replace(taken.find(L"%s"), 2, L"Ground floor");
    manage(
        Script()
            .clickCell(kList, 2, 0)
            .press(VK_F2)
            .type(L"Ground floor")
            .clickHeading(kList, 0)
            .waitForControl(IDOK)
            .press(VK_RETURN)
            .waitForControl(kList)
            .waitUntil("the box is open again", [](const View& view) { return view.labelEditorText(kList) == L"Bare"; })
            .then(expectNames({L"Ground floor", L"Plumbing plan", L"Bare"}))
            .press(VK_ESCAPE)
            .clickHeading(kList, 0)
            .then(expectNames({L"Bare", L"Ground floor", L"Plumbing plan"}))
            .press(VK_ESCAPE));
    EXPECT_THAT(ui::callsOf("renameLayerState"), IsEmpty());
}

TEST_F(Sorting, OfAnEmptyListDoesNothing) {
    open(ui::TestDrawing());
    manage(Script()
               .clickHeading(kList, 0)
               .clickHeading(kList, 3)
               .look("still empty", [](const View& view) { EXPECT_EQ(view.rowCount(kList), 0); })
               .press(VK_ESCAPE));
}

} // namespace

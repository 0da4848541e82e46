// What opens the editor over a description in the manager, and what doesn't.
#include "DescriptionTest.h"

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

namespace {

class DescriptionStart : public DescriptionTest {
  protected:
    static Script expectShown(bool shown) {
        return Script().look(shown ? "the editor is open" : "no editor is open",
                             [shown](const View& view) { EXPECT_EQ(isEditorShown(view), shown); });
    }
    /// Clicks where nothing happens until the left button has been pressed an even number of times, or an odd one.
    static Script clickUntil(bool even) {
        return Script().step(even ? "an even number of clicks" : "an odd number of clicks",
                             [even](const View& view) -> ui::Obstacle {
                                 if ((GetKeyState(VK_LBUTTON) & 1) == (even ? 0 : 1))
                                     return std::nullopt;
                                 if (ui::pointerRestsAt(ui::middleOf(view.rect(IDC_LSTATE_RES_CURRENT))))
                                     ui::click();
                                 return "one more";
                             });
    }
};

TEST_F(DescriptionStart, TheClickThatSelectsARowOpensNothingAndTheSecondOneOpensItsDescription) {
    manage(Script()
               .clickCell(kList, 1, kDescriptionColumn)
               .look("selected", [](const View& view) { EXPECT_THAT(view.selectedRows(kList), ElementsAre(1)); })
               .then(expectShown(false))
               .clickCell(kList, 1, kDescriptionColumn)
               .then(expectOpen(L"the second"))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionStart, TheSecondClickOpensTheCellUnderItAlsoWhenTheFirstWasOnAnotherOneOfTheRow) {
    manage(Script()
               .clickCell(kList, 1, 0)
               .then(expectShown(false))
               .clickCell(kList, 1, kDescriptionColumn)
               .then(expectOpen(L"the second"))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionStart, TheFirstRowOpensAsAnyOther) {
    manage(openCell(0).then(expectOpen(L"")).press(VK_ESCAPE).press(VK_ESCAPE));
}

TEST_F(DescriptionStart, TheRowThatTheArrowsReachedOpensAtTheFirstClick) {
    manage(clickUntil(true)
               .press(VK_DOWN)
               .clickCell(kList, 1, kDescriptionColumn)
               .then(expectOpen(L"the second"))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionStart, TheRowThatTheArrowsReachedTakesTwoClicksWhileTheLeftButtonIsToggled) {
    manage(clickUntil(false)
               .press(VK_DOWN)
               .clickCell(kList, 1, kDescriptionColumn)
               .then(expectShown(false))
               .clickCell(kList, 1, kDescriptionColumn)
               .then(expectOpen(L"the second"))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionStart, TheOtherCellsOfTheRowOpenNothing) {
    Script script;
    script.clickCell(kList, 1, 0);
    for (const int column : {0, 1, 2})
        script.clickCell(kList, 1, column).then(expectShown(false));
    script.look("nor does the name", [](const View& view) { EXPECT_EQ(view.labelEditorText(kList), std::nullopt); });
    manage(script.press(VK_ESCAPE));
}

TEST_F(DescriptionStart, ADependentStatesDescriptionOpensNothing) {
    manage(Script()
               .clickCell(kList, 3, kDescriptionColumn)
               .clickCell(kList, 3, kDescriptionColumn)
               .look("a state of the reference",
                     [](const View& view) {
                         EXPECT_EQ(view.cells(kList, 3).front(), L"site!Survey");
                         EXPECT_FALSE(isEditorShown(view));
                     })
               .press(VK_ESCAPE));
    EXPECT_THAT(ui::callsOf("setLayerStateDescription"), IsEmpty());
}

TEST_F(DescriptionStart, EmptySpaceBelowTheRowsOpensNothing) {
    manage(Script()
               .clickCell(kList, 1, 0)
               .clickEmptySpace(kList)
               .then(expectShown(false))
               .clickCell(kList, 1, kDescriptionColumn)
               .then(expectShown(false))
               .press(VK_ESCAPE));
}

TEST_F(DescriptionStart, ADoubleClickOnTheSelectedRowsDescriptionOpensItAndRestoresNothing) {
    manage(Script()
               .clickCell(kList, 1, 0)
               .doubleClickCell(kList, 1, kDescriptionColumn)
               .then(expectOpen(L"the second"))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
    EXPECT_THAT(ui::callsOf("restoreLayerState"), IsEmpty());
}

TEST_F(DescriptionStart, ShowsALongDescriptionWhole) {
    const std::wstring text = std::wstring(4990, L'x') + L" and so on";
    ASSERT_EQ(states().setLayerStateDescription(L"Two", text.c_str()), Vorn::eOk);
    manage(openCell(1).then(expectOpen(text)).press(VK_ESCAPE).press(VK_ESCAPE));
}

} // namespace

// Opening and closing the property panel: geometry, the button's two faces, and what is kept.

#include "ManagerTest.h"

namespace {

using ui::Script;
using ui::View;

constexpr int movedButtons[] = {IDC_LSTATE_RES_RESTORE, IDC_LSTATE_RES_CLOSE, ID_HELP, IDC_LSTATE_RES_EXPAND};
constexpr int kPanelControls[] = {IDC_LSTATE_RES_PANEL, IDC_LSTATE_RES_SELECTALL, IDC_LSTATE_RES_CLEARALL};

// Where everything stands, in the dialog's own coordinates, and how wide and high the dialog is.
struct Layout {
    LONG width = 0, height = 0;
    LONG left = 0, top = 0;
    std::vector<RECT> buttons;
    LONG panelWidth = 0;
    std::vector<COLORREF> face;
    std::wstring faceText;
};

Layout layoutOf(const View& view) {
    Layout layout;
    const RECT dialog = view.rect();
    layout.width = dialog.right - dialog.left;
    layout.height = dialog.bottom - dialog.top;
    layout.left = dialog.left;
    layout.top = dialog.top;
    for (const int button : movedButtons) {
        RECT rect = view.rect(button);
        OffsetRect(&rect, -dialog.left, -dialog.top);
        layout.buttons.push_back(rect);
    }
    layout.panelWidth = view.rect(IDC_LSTATE_RES_PANEL).right - view.rect(IDC_LSTATE_RES_NEW).right;
    layout.face = view.pixels(IDC_LSTATE_RES_EXPAND);
    layout.faceText = view.text(IDC_LSTATE_RES_EXPAND);
    return layout;
}

void expectShifted(const Layout& from, const Layout& to, LONG by) {
    EXPECT_EQ(to.width, from.width + by);
    EXPECT_EQ(to.height, from.height);
    EXPECT_EQ(to.left, from.left);
    EXPECT_EQ(to.top, from.top);
    for (std::size_t i = 0; i < from.buttons.size(); ++i) {
        RECT expected = from.buttons[i];
        OffsetRect(&expected, by, 0);
        EXPECT_TRUE(EqualRect(&expected, &to.buttons[i])) << "button " << movedButtons[i];
    }
}

class Panel : public ManagerTest {
  protected:
    static Script& note(Script& script, Layout& into) {
        // Moves focus and pointer away, because both would change the button's face.
        script.press(VK_TAB).hover(IDC_LSTATE_RES_CURRENT);
        return script.look("the layout", [&into](const View& view) { into = layoutOf(view); });
    }
    static void expectPanel(const View& view, bool shown) {
        for (const int control : kPanelControls)
            EXPECT_EQ(view.isVisible(control), shown) << control;
        for (const BoxBit& row : propertyBoxes)
            EXPECT_EQ(view.isVisible(row.box), shown) << row.box;
    }
};

TEST_F(Panel, OpeningMovesTheFourButtonsByTheWidthOfThePanelAndClosingBringsThemBack) {
    open(house());
    Layout closed, opened, closedAgain, openedAgain;
    Script script;
    note(script, closed).click(IDC_LSTATE_RES_EXPAND);
    script.look("shown", [](const View& view) { expectPanel(view, true); });
    note(script, opened).click(IDC_LSTATE_RES_EXPAND);
    script.look("hidden", [](const View& view) { expectPanel(view, false); });
    note(script, closedAgain).click(IDC_LSTATE_RES_EXPAND);
    note(script, openedAgain).press(VK_ESCAPE);
    ASSERT_TRUE(manage(script));
    EXPECT_GT(closed.panelWidth, 0);
    expectShifted(closed, opened, closed.panelWidth);
    expectShifted(opened, closedAgain, -closed.panelWidth);
    expectShifted(closed, openedAgain, closed.panelWidth);
}

TEST_F(Panel, ADoubleClickOnTheButtonOpensThePanelAndPressesNothingElse) {
    open(house());
    ASSERT_TRUE(manage(Script()
                           .clickCell(IDC_LSTATE_RES_LIST, 0, 0)
                           .look("the calls from here on", [](const View&) { instruments::clearTrace(); })
                           .doubleClick(IDC_LSTATE_RES_EXPAND)
                           .waitUntil("open", [](const View& view) { return view.isVisible(IDC_LSTATE_RES_PANEL); })
                           .hover(IDC_LSTATE_RES_CURRENT)
                           .look("nothing was restored",
                                 [](const View& view) {
                                     expectPanel(view, true);
                                     EXPECT_THAT(instruments::trace(),
                                                 testing::Not(testing::Contains("startTransaction() = object")));
                                 })
                           .press(VK_ESCAPE)));
}

TEST_F(Panel, TheButtonHasAFaceAndATextForEachState) {
    open(house());
    Layout closed, opened, closedAgain;
    Script script;
    note(script, closed).click(IDC_LSTATE_RES_EXPAND);
    note(script, opened).click(IDC_LSTATE_RES_EXPAND);
    // The button notices only after a while that the pointer has left it.
    script.press(VK_TAB).hover(IDC_LSTATE_RES_CURRENT).waitUntil("the first face is back", [&closed](const View& view) {
        return view.pixels(IDC_LSTATE_RES_EXPAND) == closed.face;
    });
    note(script, closedAgain).press(VK_ESCAPE);
    ASSERT_TRUE(manage(script));
    EXPECT_EQ(closed.faceText, resourceText(IDS_LSTATE_EXPAND));
    EXPECT_EQ(opened.faceText, resourceText(IDS_LSTATE_CONTRACT));
    EXPECT_EQ(closedAgain.faceText, resourceText(IDS_LSTATE_EXPAND));
    EXPECT_NE(closed.face, opened.face);
}

TEST_F(Panel, ADialogThatOpensExpandedStandsAsTheTemplateHasIt) {
    open(house());
    Layout contracted, expanded;
    Script first;
    note(first, contracted);
    ASSERT_TRUE(manage(first.press(VK_ESCAPE)));
    keep(managerName, L"Expanded", 1);
    Script second;
    note(second, expanded);
    second.look("shown", [](const View& view) { expectPanel(view, true); });
    ASSERT_TRUE(manage(second.press(VK_ESCAPE)));
    EXPECT_EQ(expanded.faceText, resourceText(IDS_LSTATE_CONTRACT));
    EXPECT_NE(expanded.face, contracted.face);
    EXPECT_EQ(expanded.width, contracted.width + contracted.panelWidth);
    EXPECT_EQ(expanded.height, contracted.height);
}

TEST_F(Panel, OpeningTakesBackTheEnablesThatDontApply) {
    open(house());
    manage(Script()
               .clickEmptySpace(IDC_LSTATE_RES_LIST)
               .click(IDC_LSTATE_RES_EXPAND)
               .look("no row, no boxes",
                     [](const View& view) {
                         for (const BoxBit& row : propertyBoxes)
                             EXPECT_FALSE(view.isEnabled(row.box)) << row.box;
                         EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_SELECTALL));
                     })
               .press(VK_ESCAPE));
}

TEST_F(Panel, ClosingDisablesWhatItHidesUntilTheSelectionChanges) {
    open(house());
    keep(managerName, L"Expanded", 1);
    manage(Script()
               .click(IDC_LSTATE_RES_EXPAND)
               .look("disabled, still ticked",
                     [](const View& view) {
                         for (const BoxBit& row : propertyBoxes)
                             EXPECT_FALSE(view.isEnabled(row.box)) << row.box;
                         for (const int control : kPanelControls)
                             EXPECT_FALSE(view.isEnabled(control)) << control;
                         EXPECT_EQ(shownMask(view), MaskAllProperties);
                     })
               .clickCell(IDC_LSTATE_RES_LIST, 1, 0)
               .look("as the selection has it",
                     [](const View& view) { EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_COLOR)); })
               .press(VK_ESCAPE));
}

TEST_F(Panel, IsKeptByCloseAndReopensAsItWas) {
    open(house());
    ASSERT_TRUE(manage(Script().click(IDC_LSTATE_RES_EXPAND).click(IDC_LSTATE_RES_CLOSE)));
    EXPECT_EQ(kept(managerName, L"Expanded"), 1);
    ASSERT_TRUE(manage(Script()
                           .look("open", [](const View& view) { expectPanel(view, true); })
                           .click(IDC_LSTATE_RES_EXPAND)
                           .click(IDC_LSTATE_RES_CLOSE)));
    EXPECT_EQ(kept(managerName, L"Expanded"), 0);
    ASSERT_TRUE(manage(Script()
                           .look("closed",
                                 [](const View& view) {
                                     expectPanel(view, false);
                                     EXPECT_EQ(view.text(IDC_LSTATE_RES_EXPAND), resourceText(IDS_LSTATE_EXPAND));
                                 })
                           .click(IDC_LSTATE_RES_CLOSE)));
}

TEST_F(Panel, IsNotKeptByEscapeNorByClosingTheWindow) {
    open(house());
    ASSERT_TRUE(manage(Script().click(IDC_LSTATE_RES_EXPAND).press(VK_ESCAPE)));
    EXPECT_EQ(kept(managerName, L"Expanded"), -1);
    ASSERT_TRUE(manage(Script().click(IDC_LSTATE_RES_EXPAND).press(VK_F4, ui::holdAlt)));
    EXPECT_EQ(kept(managerName, L"Expanded"), -1);
}

} // namespace

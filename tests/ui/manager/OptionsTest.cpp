// The options: what a click on each changes at once, and what it keeps at once.

#include "ManagerTest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using ui::Script;
using ui::View;

class Options : public ManagerTest {
  protected:
    /// A step that finds a value kept while the dialog is still open.
    static void expectKept(Script& script, const wchar_t* key, long value) {
        script.look("what is kept", [key, value](const View&) { EXPECT_EQ(kept(managerName, key), value); });
    }
};

TEST_F(Options, HidingTheStatesOfReferencesFillsTheListAnewAndSelectsTheFirstRow) {
    open(houseOnSite());
    Script script;
    script.clickCellOf(IDC_LSTATE_RES_LIST, L"site!Survey")
        .click(IDC_LSTATE_RES_HIDEXREFS)
        .look("the house's own states", [](const View& view) {
            EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0), ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare"));
            EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0));
            EXPECT_EQ(view.focusedRow(IDC_LSTATE_RES_LIST), 0);
            EXPECT_EQ(shownMask(view), MaskAllProperties);
        });
    expectKept(script, L"ShowXrefs", 0);
    script.click(IDC_LSTATE_RES_HIDEXREFS).look("all states", [](const View& view) {
        EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0),
                    ElementsAre(L"Ground floor", L"Plumbing plan", L"Bare", L"site!Survey", L"site!Trees"));
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0));
    });
    expectKept(script, L"ShowXrefs", 1);
    manage(script.press(VK_ESCAPE));
}

TEST_F(Options, HidingInAnEmptyDrawingEnablesTheListAndSelectsNothing) {
    open(ui::TestDrawing());
    manage(
        Script()
            .look("a disabled list", [](const View& view) { EnableWindow(view.control(IDC_LSTATE_RES_LIST), FALSE); })
            .click(IDC_LSTATE_RES_HIDEXREFS)
            .look("no row in a list that is enabled",
                  [](const View& view) {
                      EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 0);
                      EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_LIST));
                      EXPECT_EQ(kept(managerName, L"ShowXrefs"), 0);
                  })
            .press(VK_ESCAPE));
}

TEST_F(Options, TurningOffUnknownLayersIsKeptAtOnce) {
    open(house());
    Script script;
    script.click(IDC_LSTATE_RES_LAYERNOTFOUND);
    expectKept(script, L"LayerNotFound", 0);
    script.click(IDC_LSTATE_RES_LAYERNOTFOUND);
    expectKept(script, L"LayerNotFound", 1);
    manage(script.press(VK_ESCAPE));
}

TEST_F(Options, RestoringAsOverridesIsKeptAtOnce) {
    open(house().inViewport());
    Script script;
    script.click(IDC_LSTATE_RES_OVERRIDES);
    expectKept(script, L"RestoreAsOverrides", 0);
    script.click(IDC_LSTATE_RES_OVERRIDES);
    expectKept(script, L"RestoreAsOverrides", 1);
    manage(script.press(VK_ESCAPE));
}

TEST_F(Options, AClickOnAnOverridablePropertyEnablesTheOverridesAlsoInModelSpace) {
    open(house());
    keep(managerName, L"Expanded", 1);
    Script script;
    script.look("disabled at first", [](const View& view) { EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES)); });
    script.click(IDC_LSTATE_RES_COLOR).look("enabled: the other three are ticked", [](const View& view) {
        EXPECT_FALSE(view.isTicked(IDC_LSTATE_RES_COLOR));
        EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES));
    });
    script.click(IDC_LSTATE_RES_LINETYPE).click(IDC_LSTATE_RES_LINEWEIGHT);
    script.look("still one", [](const View& view) { EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES)); });
    script.click(IDC_LSTATE_RES_PLOTSTYLE).look("none", [](const View& view) {
        EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES));
    });
    for (const int box :
         {IDC_LSTATE_RES_COLOR, IDC_LSTATE_RES_LINETYPE, IDC_LSTATE_RES_LINEWEIGHT, IDC_LSTATE_RES_PLOTSTYLE})
        script.click(box)
            .look("one is enough", [](const View& view) { EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES)); })
            .click(box)
            .look("none", [](const View& view) { EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES)); });
    manage(script.press(VK_ESCAPE));
}

TEST_F(Options, AStateWithoutOverridablePropertiesInAViewportEnablesTheOverridesOnlyAfterAClickOnABox) {
    open(house().lastRestored(L"Bare").inViewport());
    keep(managerName, L"Expanded", 1);
    manage(Script()
               .look("off at first",
                     [](const View& view) {
                         EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(2));
                         EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES));
                     })
               .click(IDC_LSTATE_RES_LINEWEIGHT)
               .look("on", [](const View& view) { EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES)); })
               .press(VK_ESCAPE));
}

TEST_F(Options, SelectAllAndClearAllLeaveDisabledBoxesAndTheOverridesAlone) {
    open(house().lastRestored(L"Plumbing plan"));
    keep(managerName, L"Expanded", 1);
    const LayerStateMask others = MaskAllProperties & ~MaskViewportFrozen;
    manage(Script()
               .click(IDC_LSTATE_RES_SELECTALL)
               .look("all but the one for viewports",
                     [others](const View& view) {
                         EXPECT_EQ(shownMask(view), others);
                         EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES));
                     })
               .click(IDC_LSTATE_RES_CLEARALL)
               .look("none",
                     [](const View& view) {
                         EXPECT_EQ(shownMask(view), 0u);
                         EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES));
                     })
               .press(VK_ESCAPE));
}

TEST_F(Options, ClearAllKeepsATickThatIsDisabled) {
    open(house()); // the first state holds all ten properties
    keep(managerName, L"Expanded", 1);
    manage(Script()
               .click(IDC_LSTATE_RES_CLEARALL)
               .look("the one for viewports", [](const View& view) { EXPECT_EQ(shownMask(view), MaskViewportFrozen); })
               .press(VK_ESCAPE));
}

TEST_F(Options, InAViewportClearAllLeavesTheOverridesEnabled) {
    open(house().inViewport());
    keep(managerName, L"Expanded", 1);
    manage(Script()
               .click(IDC_LSTATE_RES_CLEARALL)
               .look("the boxes",
                     [](const View& view) {
                         EXPECT_EQ(shownMask(view), MaskOn | MaskFrozen); // disabled here
                         EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES));
                     })
               .press(VK_ESCAPE));
}

} // namespace

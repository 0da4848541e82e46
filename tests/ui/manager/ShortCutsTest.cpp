// Keys and double clicks of the manager.

#include "ManagerTest.h"

#include <commctrl.h>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using ui::Script;
using ui::View;

class ShortCuts : public ManagerTest {
  protected:
    /// The names of the states that the host was asked to restore.
    static std::vector<std::string> restores() {
        std::vector<std::string> found = ui::callsOf("restoreLayerState");
        for (std::string& line : found)
            line.resize(line.find(','));
        return found;
    }
    static void expectExpanded(Script& script, bool expanded) {
        script.look(expanded ? "the panel is open" : "the panel is closed",
                    [expanded](const View& view) { EXPECT_EQ(view.isVisible(IDC_LSTATE_RES_PANEL), expanded); });
    }
};

TEST_F(ShortCuts, TheArrowsMoveTheSelectionAndTheControlsFollow) {
    open(house());
    manage(Script()
               .press(VK_DOWN)
               .look("the second row",
                     [](const View& view) {
                         EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(1));
                         EXPECT_EQ(shownMask(view), MaskOn | MaskColor | MaskLinetype);
                     })
               .press(VK_DOWN, ui::holdShift)
               .look("two rows",
                     [](const View& view) {
                         EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(1, 2));
                         EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_RESTORE));
                     })
               .press(VK_HOME)
               .look("the first row",
                     [](const View& view) {
                         EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0));
                         EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_RESTORE));
                     })
               .press(VK_ESCAPE));
}

TEST_F(ShortCuts, ADoubleClickOnARowRestoresItAndClosesTheManager) {
    for (int column = 0; column < 4; ++column) {
        open(house());
        manage(Script().doubleClickCell(IDC_LSTATE_RES_LIST, 1, column));
        EXPECT_THAT(restores(), ElementsAre("restoreLayerState(\"Plumbing plan\"")) << "column " << column;
    }
}

TEST_F(ShortCuts, ADoubleClickOnEmptySpaceDoesNothing) {
    open(house());
    manage(Script()
               .doubleClickEmptySpace(IDC_LSTATE_RES_LIST)
               .look("still open", [](const View& view) { EXPECT_EQ(view.rowCount(IDC_LSTATE_RES_LIST), 3); })
               .press(VK_ESCAPE));
    EXPECT_THAT(restores(), IsEmpty());
}

TEST_F(ShortCuts, ADoubleClickElsewhereInTheDialogDoesNothing) {
    open(house());
    manage(Script()
               .doubleClick(IDC_LSTATE_RES_CURRENT)
               .look("still open", [](const View& view) { EXPECT_TRUE(view.has(IDC_LSTATE_RES_LIST)); })
               .press(VK_ESCAPE));
    EXPECT_THAT(restores(), IsEmpty());
}

TEST_F(ShortCuts, ADoubleClickWithSeveralRowsSelectedRestoresTheTopMost) {
    open(house());
    // Shift held keeps both rows selected while the double click comes.
    manage(Script()
               .clickCell(IDC_LSTATE_RES_LIST, 1, 0)
               .press(VK_DOWN, ui::holdShift)
               .doubleClickCell(IDC_LSTATE_RES_LIST, 2, 0, ui::holdShift));
    EXPECT_THAT(restores(), ElementsAre("restoreLayerState(\"Plumbing plan\""));
}

TEST_F(ShortCuts, AltWithTheAngleBracketsOpensAndClosesThePanel) {
    open(house());
    Script script;
    script.pressAlt(L'<');
    expectExpanded(script, false); // closed already: swallowed
    script.pressAlt(L'>');
    expectExpanded(script, true);
    script.pressAlt(L'>');
    expectExpanded(script, true);
    script.pressAlt(L'<');
    expectExpanded(script, false);
    manage(script.press(VK_ESCAPE));
}

// Counts the characters with Alt that get through to a window.
LRESULT CALLBACK countAltCharacters(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR count) {
    if (message == WM_SYSCHAR)
        ++*reinterpret_cast<int*>(count);
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(ShortCuts, AltWithAnAngleBracketIsConsumedWhetherOrNotThereIsSomethingToDo) {
    open(house());
    int reached = 0;
    const auto listOf = [](const View& view) { return view.control(IDC_LSTATE_RES_LIST); };
    Script script;
    script.look("count at the list, which has the focus", [&](const View& view) {
        EXPECT_EQ(view.focusedControl(), IDC_LSTATE_RES_LIST);
        SetWindowSubclass(listOf(view), countAltCharacters, 1, reinterpret_cast<DWORD_PTR>(&reached));
    });
    for (const wchar_t character : {L'<', L'>', L'>', L'<'})
        script.pressAlt(character);
    // J is no short cut and gets through, so when it arrives all keys before it have been dealt with.
    script.pressAlt(L'j').waitUntil("the last one", [&](const View&) { return reached > 0; });
    script.look("no more than that one", [&](const View& view) {
        EXPECT_EQ(reached, 1);
        RemoveWindowSubclass(listOf(view), countAltCharacters, 1);
    });
    manage(script.press(VK_ESCAPE));
}

TEST_F(ShortCuts, ADoubleClickOnARowIsConsumedAlsoWhenTheRestoreCantStart) {
    open(house());
    manage(Script()
               .look("no transaction can be started",
                     [](const View&) {
                         instruments::failCall("startTransaction", 1);
                         instruments::clearTrace();
                     })
               .doubleClickCell(IDC_LSTATE_RES_LIST, 0, 0)
               .waitUntil("the restore was tried", [](const View&) { return instruments::faultStruck(); })
               .look("the list hasn't been told of it",
                     [](const View&) { EXPECT_EQ(instruments::trace().back(), "startTransaction() = null"); })
               .press(VK_ESCAPE));
}

TEST_F(ShortCuts, EscapeEndsTheManagerWithNothingDoneAndNothingKept) {
    open(house());
    manage(Script().press(VK_ESCAPE));
    EXPECT_THAT(restores(), IsEmpty());
    EXPECT_EQ(kept(managerName, L"Expanded"), -1);
}

TEST_F(ShortCuts, EnterPressesTheDefaultButtonWhichIsRestore) {
    open(house());
    manage(Script().press(VK_DOWN).press(VK_RETURN));
    EXPECT_THAT(restores(), ElementsAre("restoreLayerState(\"Plumbing plan\""));
}

TEST_F(ShortCuts, EnterDoesNothingWhileRestoreIsDisabled) {
    open(house());
    manage(Script()
               .press(VK_DOWN, ui::holdShift)
               .press(VK_RETURN)
               .look("still open",
                     [](const View& view) { EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0, 1)); })
               .press(VK_ESCAPE));
    EXPECT_THAT(restores(), IsEmpty());
}

TEST_F(ShortCuts, TheMnemonicsReachTheirControls) {
    open(house());
    const bool before = true;
    manage(Script()
               .look("ticked",
                     [before](const View& view) { EXPECT_EQ(view.isTicked(IDC_LSTATE_RES_LAYERNOTFOUND), before); })
               .pressMnemonicOf(IDC_LSTATE_RES_LAYERNOTFOUND)
               .look("cleared", [](const View& view) { EXPECT_FALSE(view.isTicked(IDC_LSTATE_RES_LAYERNOTFOUND)); })
               .pressMnemonicOf(IDC_LSTATE_RES_HIDEXREFS)
               .look("ticked", [](const View& view) { EXPECT_TRUE(view.isTicked(IDC_LSTATE_RES_HIDEXREFS)); })
               .pressMnemonicOf(IDC_LSTATE_RES_RESTORE));
    EXPECT_THAT(restores(), ElementsAre("restoreLayerState(\"Ground floor\""));
}

TEST_F(ShortCuts, F2OpensTheNameOfTheOneSelectedStateForEditing) {
    open(house());
    manage(Script()
               .clickCell(IDC_LSTATE_RES_LIST, 1, 0)
               .press(VK_F2)
               .look("the editor",
                     [](const View& view) { EXPECT_EQ(view.labelEditorText(IDC_LSTATE_RES_LIST), L"Plumbing plan"); })
               .press(VK_ESCAPE)
               .look("closed again",
                     [](const View& view) { EXPECT_EQ(view.labelEditorText(IDC_LSTATE_RES_LIST), std::nullopt); })
               .press(VK_ESCAPE));
}

TEST_F(ShortCuts, F2TakesTheRowThatTheArrowsOrTheOpeningSelected) {
    open(house().lastRestored(L"Plumbing plan"));
    const auto expectEditing = [](Script& script, const wchar_t* name) {
        script.press(VK_F2)
            .look("the editor",
                  [name](const View& view) { EXPECT_EQ(view.labelEditorText(IDC_LSTATE_RES_LIST), name); })
            .press(VK_ESCAPE);
    };
    Script script;
    expectEditing(script, L"Plumbing plan");
    script.press(VK_DOWN);
    expectEditing(script, L"Bare");
    manage(script.press(VK_ESCAPE));
}

TEST_F(ShortCuts, F2DoesNothingForADependentState) {
    open(houseOnSite());
    manage(Script()
               .clickCellOf(IDC_LSTATE_RES_LIST, L"site!Survey")
               .press(VK_F2)
               .look("no editor",
                     [](const View& view) { EXPECT_EQ(view.labelEditorText(IDC_LSTATE_RES_LIST), std::nullopt); })
               .press(VK_ESCAPE));
}

TEST_F(ShortCuts, F2DoesNothingWithTwoRowsOrNone) {
    open(house());
    manage(Script()
               .press(VK_DOWN, ui::holdShift)
               .press(VK_F2)
               .look("two rows, no editor",
                     [](const View& view) { EXPECT_EQ(view.labelEditorText(IDC_LSTATE_RES_LIST), std::nullopt); })
               .clickEmptySpace(IDC_LSTATE_RES_LIST)
               .press(VK_F2)
               .look("no row, no editor",
                     [](const View& view) { EXPECT_EQ(view.labelEditorText(IDC_LSTATE_RES_LIST), std::nullopt); })
               .press(VK_ESCAPE));
}

TEST_F(ShortCuts, TheHelpButtonAndTheF1KeyOpenTheManagersTopic) {
    const auto expectHelp = [this](Script ask) {
        open(house());
        manage(
            Script()
                .look("from here", [](const View&) { instruments::clearTrace(); })
                .then(ask)
                .waitUntil("something is asked of the host", [](const View&) { return !instruments::trace().empty(); })
                .look("the topic, and nothing else",
                      [](const View&) {
                          EXPECT_THAT(instruments::trace(),
                                      ElementsAre("keledHelp(null, \"RESTORELAYERSTATEDIALOG\", 0)"));
                      })
                .press(VK_ESCAPE));
    };
    expectHelp(Script().click(ID_HELP));
    expectHelp(Script().press(VK_F1));
}

} // namespace

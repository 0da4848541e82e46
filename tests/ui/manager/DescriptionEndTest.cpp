// How the edit of a description ends in the manager: what is kept, what the host is asked, and where the focus is then.
#include "DescriptionTest.h"

#include <commctrl.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using ui::Script;
using ui::View;

namespace {

class DescriptionEnd : public DescriptionTest {
  protected:
    static Script expectCell(int row, const std::wstring& text) {
        return Script().look("the cell",
                             [=](const View& view) { EXPECT_EQ(view.cell(kList, row, kDescriptionColumn), text); });
    }
    /// The calls begin with those of keeping "typed" for "Two".
    static void expectKeptFirst() {
        Calls calls = instruments::trace();
        const Calls kept = keeping("Two", "typed");
        ASSERT_GE(calls.size(), kept.size());
        EXPECT_THAT(ui::callsOf("setLayerStateDescription"), testing::SizeIs(1));
        calls.resize(kept.size());
        EXPECT_EQ(calls, kept);
    }
    /// Only the text is kept for "Two", once, whatever else happens.
    static void expectKeptOnce() {
        EXPECT_THAT(ui::callsOf("setLayerStateDescription"),
                    ElementsAre("setLayerStateDescription(\"Two\", \"typed\") = 0"));
    }
    static int topRow(const View& view) {
        return static_cast<int>(SendMessageW(view.control(kList), LVM_GETTOPINDEX, 0, 0));
    }
    /// The arrow at the far end of one of the list's scroll bars.
    static std::optional<POINT> scrollArrow(const View& view, LONG bar) {
        SCROLLBARINFO info = {};
        info.cbSize = sizeof info;
        if (!GetScrollBarInfo(view.control(kList), bar, &info) || (info.rgstate[0] & STATE_SYSTEM_INVISIBLE))
            return std::nullopt;
        return POINT{info.rcScrollBar.right - 5, info.rcScrollBar.bottom - 5};
    }
};

TEST_F(DescriptionEnd, EnterKeepsTheTextOnce) {
    manage(typeInto(1, L"typed")
               .press(VK_RETURN)
               .then(expectEnd(keeping("Two", "typed")))
               .then(expectCell(1, L"typed"))
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"typed");
}

TEST_F(DescriptionEnd, EnterKeepsAnUnchangedTextAllTheSame) {
    manage(openCell(1).press(VK_RETURN).then(expectEnd(keeping("Two", "the second"))).press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, AnEmptyTextIsKept) {
    manage(openCell(1)
               .press(VK_DELETE)
               .press(VK_RETURN)
               .then(expectEnd(keeping("Two", "")))
               .then(expectCell(1, L""))
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"");
}

TEST_F(DescriptionEnd, ATextIsKeptAsItWasTyped) {
    for (const wchar_t* const text :
         {L"  between blanks  ", L" ", L"100 % of \"all\" 'that' is %s%n", L"Überzug: 5 €", L"a\\b"}) {
        manage(typeInto(1, text).press(VK_RETURN).then(expectCell(1, text)).press(VK_ESCAPE));
        EXPECT_EQ(described(L"Two"), text);
    }
}

TEST_F(DescriptionEnd, FiveThousandCharactersAreKept) {
    const std::wstring text(5000, L'w');
    manage(openCell(1)
               .look("as if pasted",
                     [&](const View& view) {
                         SendMessageW(editor(view), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
                     })
               .type(L"!")
               .press(VK_RETURN)
               .then(openCell(1))
               .then(expectOpen(text + L"!"))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), text + L"!");
}

TEST_F(DescriptionEnd, EscDropsTheTextAndAsksNothing) {
    manage(
        typeInto(1, L"typed").press(VK_ESCAPE).then(expectEnd({})).then(expectCell(1, L"the second")).press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"the second");
}

TEST_F(DescriptionEnd, TabKeepsTheTextAndGivesTheFocusToTheListFromWhereTheNextTabMovesOn) {
    manage(typeInto(1, L"typed")
               .press(VK_TAB)
               .then(expectEnd(keeping("Two", "typed")))
               .then(expectCell(1, L"typed"))
               .press(VK_TAB)
               .look("on", [](const View& view) { EXPECT_EQ(view.focusedControl(), IDC_LSTATE_RES_NEW); })
               .press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, ShiftAndTabKeepTheText) {
    manage(
        typeInto(1, L"typed").press(VK_TAB, ui::holdShift).then(expectEnd(keeping("Two", "typed"))).press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"typed");
}

TEST_F(DescriptionEnd, AClickOnAnotherRowKeepsTheTextForTheRowThatItWasTypedFor) {
    manage(typeInto(1, L"typed")
               .clickCell(kList, 2, kDescriptionColumn)
               .look("the other row is selected, and not opened",
                     [](const View& view) {
                         expectKeptOnce();
                         EXPECT_THAT(view.selectedRows(kList), ElementsAre(2));
                         EXPECT_FALSE(isEditorShown(view));
                         EXPECT_EQ(view.focusedControl(), kList);
                     })
               .then(expectCell(1, L"typed"))
               .then(expectCell(2, L""))
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"typed");
    EXPECT_EQ(described(L"Three"), L"");
}

TEST_F(DescriptionEnd, AClickOnAnotherCellOfTheRowKeepsTheText) {
    manage(typeInto(1, L"typed")
               .clickCell(kList, 1, 1)
               .look("kept, and nothing else opened",
                     [](const View& view) {
                         expectKeptOnce();
                         EXPECT_FALSE(isEditorShown(view));
                     })
               .press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, AClickIntoTheEditorGoesOnWithTheEdit) {
    manage(typeInto(1, L"typed")
               .clickCell(kList, 1, kDescriptionColumn)
               .then(expectOpen(L"typed"))
               .look("nothing asked", [](const View&) { EXPECT_THAT(instruments::trace(), IsEmpty()); })
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, AClickOnEmptySpaceKeepsTheText) {
    manage(typeInto(1, L"typed")
               .clickEmptySpace(kList)
               .look("kept",
                     [](const View& view) {
                         expectKeptOnce();
                         EXPECT_FALSE(isEditorShown(view));
                     })
               .press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, AClickOnAnotherControlKeepsTheTextAndTakesEffectButTheListHasTheFocus) {
    Calls calls = keeping("Two", "typed");
    calls.emplace_back("SetDialogData(\"LayerNotFound\", 0) = true");
    manage(typeInto(1, L"typed").click(IDC_LSTATE_RES_LAYERNOTFOUND).then(expectEnd(calls)).press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, AClickOnCloseKeepsTheTextAndCloses) {
    manage(typeInto(1, L"typed").click(IDC_LSTATE_RES_CLOSE));
    Calls calls = keeping("Two", "typed");
    calls.emplace_back("SetDialogData(\"Expanded\", 0) = true");
    EXPECT_EQ(instruments::trace(), calls);
    EXPECT_EQ(described(L"Two"), L"typed");
}

TEST_F(DescriptionEnd, ClosingTheManagerByItsCaptionKeepsTheText) {
    manage(typeInto(1, L"typed").look("closed by its caption", [](const View& view) {
        PostMessageW(view.window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    }));
    EXPECT_EQ(instruments::trace(), keeping("Two", "typed"));
    EXPECT_EQ(described(L"Two"), L"typed");
}

TEST_F(DescriptionEnd, AnExportWhoseFileDialogCannotBeShownKeepsTheText) {
    manage(typeInto(1, L"typed")
               .look("it is invoked, as a screen reader does it",
                     [](const View& view) {
                         instruments::failCall("keledGetFileNavDialog", 1);
                         PostMessageW(view.window(), WM_COMMAND, IDC_LSTATE_RES_EXPORT, 0);
                     })
               .waitUntil("the editor is closed", [](const View& view) { return !isEditorShown(view); })
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"typed");
}

TEST_F(DescriptionEnd, AClickOnRestoreKeepsTheTextAndRestores) {
    manage(typeInto(1, L"typed").click(IDC_LSTATE_RES_RESTORE));
    expectKeptFirst();
    EXPECT_THAT(ui::callsOf("restoreLayerState"), ElementsAre(StartsWith("restoreLayerState(\"Two\"")));
    EXPECT_EQ(described(L"Two"), L"typed");
}

TEST_F(DescriptionEnd, AClickOnRenameKeepsTheTextAndOpensTheName) {
    manage(typeInto(1, L"typed")
               .click(IDC_LSTATE_RES_RENAME)
               .look("the box over the name",
                     [](const View& view) {
                         expectKeptFirst();
                         EXPECT_FALSE(isEditorShown(view));
                         EXPECT_EQ(view.labelEditorText(kList), L"Two");
                     })
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, F2KeepsTheTextAndOpensTheName) {
    manage(typeInto(1, L"typed")
               .press(VK_F2)
               .look("the box over the name",
                     [](const View& view) {
                         expectKeptOnce();
                         EXPECT_FALSE(isEditorShown(view));
                         EXPECT_EQ(view.labelEditorText(kList), L"Two");
                     })
               .type(L"Second")
               .press(VK_RETURN)
               .look("renamed, and the edits are over",
                     [](const View& view) {
                         EXPECT_EQ(view.cell(kList, 1, 0), L"Second");
                         EXPECT_EQ(view.cell(kList, 1, kDescriptionColumn), L"typed");
                         EXPECT_EQ(view.labelEditorText(kList), std::nullopt);
                     })
               .click(IDC_LSTATE_RES_CLOSE));
    EXPECT_EQ(described(L"Second"), L"typed");
}

TEST_F(DescriptionEnd, TheAccessKeyOfAButtonKeepsTheTextBeforeItsDialogOpens) {
    manage(typeInto(1, L"typed")
               .pressMnemonicOf(IDC_LSTATE_RES_NEW)
               .waitForControl(IDC_LSTATE_SAVE_NAME)
               .look("kept", [](const View&) { expectKeptOnce(); })
               .press(VK_ESCAPE)
               .waitForControl(kList)
               .then(expectCell(1, L"typed"))
               .press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, TheAccessKeyOfRestoreKeepsTheText) {
    manage(typeInto(1, L"typed").pressMnemonicOf(IDC_LSTATE_RES_RESTORE));
    expectKeptFirst();
    EXPECT_EQ(described(L"Two"), L"typed");
}

TEST_F(DescriptionEnd, AClickOnAHeadingKeepsTheTextAndThenSorts) {
    Calls calls = keeping("Two", "typed");
    calls.insert(calls.begin(), "DoWaitCursor(1)");
    calls.emplace_back("DoWaitCursor(-1)");
    manage(typeInto(1, L"typed")
               .clickHeading(kList, 0)
               .clickHeading(kList, 0)
               .look("sorted downwards",
                     [&](const View& view) {
                         Calls first = instruments::trace();
                         first.resize(calls.size());
                         EXPECT_EQ(first, calls);
                         EXPECT_EQ(view.column(kList, 0),
                                   (std::vector<std::wstring>{L"site!Survey", L"Two", L"Three", L"One"}));
                         EXPECT_EQ(view.column(kList, kDescriptionColumn),
                                   (std::vector<std::wstring>{L"as surveyed", L"typed", L"", L""}));
                         EXPECT_THAT(view.selectedRows(kList), ElementsAre(1));
                         EXPECT_FALSE(isEditorShown(view));
                     })
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"typed");
}

TEST_F(DescriptionEnd, TheWheelOverTheListKeepsTheTextBeforeItScrolls) {
    open(manyStates());
    const auto lowerPart = [](const View& view) -> std::optional<POINT> {
        const RECT list = view.rect(kList);
        return POINT{list.left + 30, list.bottom - 20};
    };
    manage(typeInto(1, L"typed")
               .turnWheel("the list", lowerPart, -WHEEL_DELTA)
               .waitUntil("it has scrolled", [](const View& view) { return topRow(view) > 0; })
               .then(expectEnd(keeping("State 11", "typed")))
               .press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, TheWheelOverTheEditorMovesNothing) {
    open(manyStates());
    const auto overEditor = [](const View& view) -> std::optional<POINT> {
        RECT place{};
        GetWindowRect(editor(view), &place);
        return ui::middleOf(place);
    };
    manage(typeInto(1, L"typed")
               .turnWheel("the editor", overEditor, -WHEEL_DELTA)
               .type(L" on") // when this has arrived, so has the turn
               .waitUntil("typed on", [](const View& view) { return ui::textOf(editor(view)) == L"typed on"; })
               .then(expectOpen(L"typed on"))
               .look("not scrolled", [](const View& view) { EXPECT_EQ(topRow(view), 0); })
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionEnd, TheVerticalScrollBarKeepsTheText) {
    open(manyStates());
    manage(typeInto(1, L"typed")
               .clickPoint("the arrow down", [](const View& view) { return scrollArrow(view, OBJID_VSCROLL); })
               .waitUntil("it has scrolled", [](const View& view) { return topRow(view) > 0; })
               .then(expectEnd(keeping("State 11", "typed")))
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"State 11"), L"typed");
}

TEST_F(DescriptionEnd, TheHorizontalScrollBarKeepsTheText) {
    const auto position = [](const View& view) { return GetScrollPos(view.control(kList), SB_HORZ); };
    manage(Script()
               .look("a wide column",
                     [](const View& view) {
                         SendMessageW(view.control(kList), LVM_SETCOLUMNWIDTH, kDescriptionColumn, 200);
                     })
               .then(typeInto(1, L"typed"))
               .clickPoint("the arrow to the right", [](const View& view) { return scrollArrow(view, OBJID_HSCROLL); })
               .waitUntil("it has scrolled", [&](const View& view) { return position(view) > 0; })
               .then(expectEnd(keeping("Two", "typed")))
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"typed");
}

} // namespace

// How the box over a state's name opens, and which ways don't open it.

#include "ImportFaults.h"
#include "RenameTest.h"

#include <commctrl.h>

#include <memory>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

constexpr int kList = IDC_LSTATE_RES_LIST;

/// Which window had the focus when a label edit began.
LRESULT CALLBACK noteFocusAtBegin(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR focus) {
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == LVN_BEGINLABELEDITW)
        *reinterpret_cast<int*>(focus) = GetDlgCtrlID(GetFocus());
    return DefSubclassProc(window, message, wParam, lParam);
}

class RenameStart : public RenameTest {
  protected:
    /// Sends the list the platform's message that begins a label edit.
    static Script editLabel(int row) {
        return Script().look("LVM_EDITLABEL", [row](const View& view) {
            PostMessageW(view.control(kList), LVM_EDITLABELW, static_cast<WPARAM>(row), 0);
        });
    }
    static Script expectSelected(std::initializer_list<int> rows) {
        return Script().look("these rows are selected", [rows = std::vector<int>(rows)](const View& view) {
            EXPECT_THAT(view.selectedRows(kList), ElementsAreArray(rows));
        });
    }
    static Script noBox() {
        return Script().look("no box", [](const View& view) {
            EXPECT_EQ(view.labelEditorText(kList), std::nullopt);
            EXPECT_TRUE(view.has(kList));
        });
    }
    /// Waits for longer than the platform waits after a click before it opens the box of itself.
    static Script waitOutSlowClick() {
        const auto since = std::make_shared<ULONGLONG>(0);
        return Script()
            .look("from now", [since](const View&) { *since = GetTickCount64(); })
            .waitUntil("the time of a slow click has passed",
                       [since](const View&) { return GetTickCount64() - *since > 5 * GetDoubleClickTime(); });
    }
    Script notingFocusAtBegin(const Script& script) {
        return Script()
            .look("note the focus",
                  [this](const View& view) {
                      SetWindowSubclass(view.window(), noteFocusAtBegin, 1, reinterpret_cast<DWORD_PTR>(&m_focus));
                  })
            .then(script)
            .look("no longer", [](const View& view) { RemoveWindowSubclass(view.window(), noteFocusAtBegin, 1); });
    }

    int m_focus = 0;
};

TEST_F(RenameStart, F2OpensTheNameAndEnterGivesTheStateTheNewOne) {
    open(threeStates());
    manage(Script()
               .then(count())
               .then(begin())
               .then(boxHolds(L"One"))
               .then(expectCalls(
                   joined({callsOfService(), {"isDependentLayerState(\"One\") = false"}, callsOfBox("One")})))
               .type(L"Ground")
               .then(expectCalls({}))
               .press(VK_RETURN)
               .then(expectCalls(joined({callsOfCheck("Ground"),
                                         callsOfService(),
                                         {"renameLayerState(\"One\", \"Ground\") = 0"},
                                         callsOfSelection("Ground", kMask)})))
               .look("the row is still selected, and the list has the focus",
                     [](const View& view) {
                         EXPECT_THAT(view.selectedRows(kList), ElementsAre(0));
                         EXPECT_EQ(view.focusedControl(), kList);
                     })
               .then(expectOver({L"Ground", L"Two", L"Three"})));
    EXPECT_THAT(namesOfDrawing(), ElementsAre(L"Ground", L"Two", L"Three"));
}

TEST_F(RenameStart, F2OpensNothingWithoutAStateManager) {
    open(threeStates());
    manage(Script()
               .look("no state manager, once", [](const View&) { instruments::failCall("getLayerStateManager", 1); })
               .press(VK_F2)
               .then(noBox())
               .then(expectOver({L"One", L"Two", L"Three"})));
    EXPECT_TRUE(instruments::faultStruck());
}

TEST_F(RenameStart, TheButtonOpensTheName) {
    open(threeStates());
    manage(Script()
               .press(VK_DOWN)
               .then(count())
               .click(IDC_LSTATE_RES_RENAME)
               .then(boxHolds(L"Two"))
               .then(expectCalls(callsOfBox("Two")))
               .type(L"Ground")
               .press(VK_RETURN)
               .then(expectOver({L"One", L"Ground", L"Three"})));
    EXPECT_THAT(namesOfDrawing(), ElementsAre(L"One", L"Ground", L"Three"));
}

TEST_F(RenameStart, ThePlatformsMessageOpensTheName) {
    open(threeStates());
    manage(Script()
               .then(count())
               .then(editLabel(0))
               .then(boxHolds(L"One"))
               .then(expectCalls(callsOfBox("One")))
               .type(L"Ground")
               .press(VK_RETURN)
               .then(expectOver({L"Ground", L"Two", L"Three"})));
}

TEST_F(RenameStart, ASlowSecondClickOnTheNameOpensNothing) {
    open(threeStates());
    manage(Script()
               .clickCell(kList, 1, 0)
               .then(waitOutSlowClick())
               .clickCell(kList, 1, 0)
               .then(count())
               .then(waitOutSlowClick())
               .then(noBox())
               .then(expectCalls({}))
               // The refused click leaves nothing behind.
               .then(rename(L"Ground"))
               .then(expectOver({L"One", L"Ground", L"Three"})));
}

TEST_F(RenameStart, F2GivesTheListTheFocusFirst) {
    open(threeStates());
    manage(notingFocusAtBegin(Script()
                                  .press(VK_TAB)
                                  .look("another control has the focus",
                                        [](const View& view) { EXPECT_EQ(view.focusedControl(), IDC_LSTATE_RES_NEW); })
                                  .then(begin())
                                  .press(VK_ESCAPE))
               .press(VK_ESCAPE));
    EXPECT_EQ(m_focus, kList) << "the system opens the box only in a list that has the focus";
}

TEST_F(RenameStart, ARefusedNameOpensAgainWithTheFocusInTheList) {
    open(threeStates());
    manage(notingFocusAtBegin(Script()
                                  .then(typeName(L"Two"))
                                  .look("from here", [this](const View&) { m_focus = 0; })
                                  .click(IDC_LSTATE_RES_HIDEXREFS)
                                  .then(answer(resourceTextWith(IDS_LSTATE_NAME_TAKEN, L"Two")))
                                  .then(boxHolds(L"One"))
                                  .press(VK_ESCAPE))
               .press(VK_ESCAPE));
    EXPECT_EQ(m_focus, kList);
}

TEST_F(RenameStart, WithSeveralRowsSelectedTheBoxOpensAndWhatIsTypedIsDropped) {
    open(threeStates());
    manage(Script()
               .press(VK_DOWN, ui::holdShift)
               .then(expectSelected({0, 1}))
               .press(VK_F2)
               .then(noBox())
               .then(editLabel(0))
               .then(boxHolds(L"One"))
               .type(L"Ground")
               .then(count())
               .press(VK_RETURN)
               .then(expectCalls({}))
               .then(expectOver({L"One", L"Two", L"Three"})));
    EXPECT_THAT(namesOfDrawing(), ElementsAre(L"One", L"Two", L"Three"));
}

TEST_F(RenameStart, TheNameOfADependentStateIsRefusedWithABeep) {
    ui::TestDrawing site;
    site.layer(L"Trees").state(L"Survey", kMask);
    open(threeStates().reference(L"site", site));
    const ImportFaults system({L"KelLayerApps.xmod"});
    ImportFaults::begin();
    Calls refused = callsOfBox("site!Survey");
    refused.back() = "isDependentLayerState(\"site!Survey\") = true";
    manage(Script()
               .clickCellOf(kList, L"site!Survey")
               .then(count())
               .press(VK_F2)
               .then(noBox())
               .then(expectCalls(joined({callsOfService(), {refused.back()}})))
               .look("no beep, for F2 asks by itself",
                     [](const View&) { EXPECT_EQ(ImportFaults::calls("MessageBeep"), 0); })
               .then(editLabel(3))
               .waitUntil("it beeps", [](const View&) { return ImportFaults::calls("MessageBeep") == 1; })
               .then(noBox())
               .then(expectCalls(refused))
               .then(expectOver({L"One", L"Two", L"Three", L"site!Survey"})));
}

TEST_F(RenameStart, TheButtonTakesTheRowOfTheSelectionMarkAndRefusesADependentStateThere) {
    ui::TestDrawing site;
    site.layer(L"Trees").state(L"Survey", kMask);
    open(threeStates().reference(L"site", site));
    const ImportFaults system({L"KelLayerApps.xmod"});
    ImportFaults::begin();
    // The second click with Control takes the row out of the selection; the mark stays on it.
    manage(Script()
               .clickCellOf(kList, L"site!Survey", ui::holdControl)
               .clickCellOf(kList, L"site!Survey", ui::holdControl)
               .then(expectSelected({0}))
               .click(IDC_LSTATE_RES_RENAME)
               .waitUntil("it beeps", [](const View&) { return ImportFaults::calls("MessageBeep") == 1; })
               .then(noBox())
               .then(expectOver({L"One", L"Two", L"Three", L"site!Survey"})));
}

TEST_F(RenameStart, TheBoxTakesAsManyCharactersAsTheHostAllows) {
    open(threeStates());
    const std::wstring longest(255, L'n');
    manage(Script()
               .then(begin())
               .type(longest + L"xyz")
               .then(boxHolds(longest))
               .press(VK_RETURN)
               .then(expectOver({longest, L"Two", L"Three"})));
    EXPECT_THAT(namesOfDrawing(), ElementsAre(longest, L"Two", L"Three"));
}

TEST_F(RenameStart, TheBoxTakesFewerCharactersUnderTheHostsOldRules) {
    open(threeStates());
    manage(Script()
               .look("old rules, once", [](const View&) { instruments::failCall("extendedNamesMode", 1); })
               .then(begin())
               .type(std::wstring(40, L'n'))
               .then(boxHolds(std::wstring(31, L'n')))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

} // namespace

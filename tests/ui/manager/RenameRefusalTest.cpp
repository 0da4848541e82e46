// Names that are refused: what the user is told, the box that opens again, and the buttons meanwhile.

#include "RenameTest.h"

#include <commctrl.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

constexpr int kList = IDC_LSTATE_RES_LIST;

const std::vector<std::wstring> kOldNames = {L"One", L"Two", L"Three"};

class RenameRefusal : public RenameTest {
  protected:
    void SetUp() override {
        RenameTest::SetUp();
        open(threeStates());
        m_taken = resourceTextWith(IDS_LSTATE_NAME_TAKEN, L"Two");
    }
    static Script expectNoCalls() { return expectCalls({}); }
    static Script failing(const char* operation, Vorn::ErrorStatus status) {
        return Script().look(std::string(operation) + " is to fail",
                             [=](const View&) { instruments::failCall(operation, 1, status); });
    }
    /// The call of one of the host's dialogs about names, closed by its Close.
    static std::string callOfDialog(const char* operation) {
        return std::string(operation) + "(" + instruments::describe(resourceText(IDS_LSTATE_KIND)) + ", " +
               instruments::describe(resourceText(IDS_LSTATE_NAME_ADVICE)) + ") = 8";
    }
    /// Has `name` refused. The box opens again with the old name, and Esc leads out.
    void expectRefusal(const std::wstring& name, const Script& prepare, const Script& answers, const Calls& calls) {
        manage(Script()
                   .then(typeName(name))
                   .then(count())
                   .then(prepare)
                   .press(VK_RETURN)
                   .then(answers)
                   .then(boxHolds(L"One"))
                   .then(expectCalls(joined({calls, callsOfBox("One")})))
                   .press(VK_ESCAPE)
                   .then(expectNoCalls())
                   .then(expectOver(kOldNames)));
        EXPECT_EQ(namesOfDrawing(), kOldNames);
    }
    /// Presses a button in the way of `press` with a refused name in the box; nothing happens but the refusal.
    void expectInert(int button, const Script& press) {
        SCOPED_TRACE("button " + std::to_string(button));
        open(threeStates());
        manage(Script()
                   .then(typeName(L"Two"))
                   .then(count())
                   .then(press)
                   .then(answer(m_taken))
                   .then(boxHolds(L"One"))
                   .then(expectCalls(callsOfBox("One")))
                   .press(VK_ESCAPE)
                   .then(expectNoCalls())
                   .then(expectOver(kOldNames)));
    }

    std::wstring m_taken;
    /// Of the box of a rename: what it gets of the messages that a text to be corrected is shown by.
    static LRESULT CALLBACK noteShowing(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                        DWORD_PTR noted) {
        auto& lines = *reinterpret_cast<std::vector<std::string>*>(noted);
        if (message == WM_SETFOCUS)
            lines.emplace_back("focus");
        if (message == EM_SETSEL)
            lines.push_back("select " + std::to_string(wParam) + " " + std::to_string(lParam));
        if (message == EM_SCROLLCARET)
            lines.emplace_back("show the caret");
        return DefSubclassProc(box, message, wParam, lParam);
    }
    static constexpr int kButtons[] = {IDC_LSTATE_RES_NEW,     IDC_LSTATE_RES_RENAME, IDC_LSTATE_RES_DELETE,
                                       IDC_LSTATE_RES_EDIT,    IDC_LSTATE_RES_IMPORT, IDC_LSTATE_RES_EXPORT,
                                       IDC_LSTATE_RES_RESTORE, IDC_LSTATE_RES_CLOSE};
};

TEST_F(RenameRefusal, OfTheNameOfAnotherRowInAnyCaseTellsItsName) {
    expectRefusal(L"Two", {}, answer(m_taken), {});
    expectRefusal(L" tWO ", {}, answer(resourceTextWith(IDS_LSTATE_NAME_TAKEN, L"tWO")), {});
}

TEST_F(RenameRefusal, OfUnsupportedCharactersShowsTheHostsDialog) {
    expectRefusal(
        L"a?b", {}, answer(kCharactersRefused),
        joined({callsOfCheck("a?b", Vorn::eInvalidInput), {callOfDialog("ShowInvalidNameUnsupportedCharacters")}}));
}

TEST_F(RenameRefusal, OfANameThatIsTooLongShowsTheHostsDialog) {
    expectRefusal(L"long", failing("validateNameCharacters", Vorn::eNameTooLong), answer(kLengthRefused),
                  joined({callsOfCheck("long", Vorn::eNameTooLong), {callOfDialog("ShowInvalidNameTooLongDialog")}}));
}

TEST_F(RenameRefusal, OfANameThatCannotBeUsedSelectsItInTheBoxThatCloses) {
    std::vector<std::string> shown;
    manage(Script()
               .then(typeName(L"a?b"))
               .look("the box is watched",
                     [&](const View& view) {
                         const auto box =
                             reinterpret_cast<HWND>(SendMessageW(view.control(kList), LVM_GETEDITCONTROL, 0, 0));
                         SetWindowSubclass(box, noteShowing, 1, reinterpret_cast<DWORD_PTR>(&shown));
                     })
               .press(VK_RETURN)
               .then(answer(kCharactersRefused))
               .then(boxHolds(L"One"))
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
    EXPECT_THAT(shown, ElementsAre("focus", "select 0 -1", "show the caret"));
}

TEST_F(RenameRefusal, WithoutAReasonOfTheHostIsSilent) {
    expectRefusal(L"Ground", failing("validateNameCharacters", Vorn::eKeyNotFound), {},
                  callsOfCheck("Ground", Vorn::eKeyNotFound));
}

TEST_F(RenameRefusal, WithoutAStateManagerIsSilent) {
    Calls calls = joined({callsOfCheck("Ground"), callsOfService()});
    calls.back() = "getLayerStateManager() = null";
    expectRefusal(L"Ground", failing("getLayerStateManager", Vorn::eInvalidInput), {}, calls);
}

TEST_F(RenameRefusal, ByTheHostIsTold) {
    // A state that the list doesn't show may bear the name.
    expectRefusal(L"Ground", failing("renameLayerState", Vorn::eDuplicateRecordName),
                  answer(resourceText(IDS_LSTATE_RENAME_FAILED)),
                  joined({callsOfCheck("Ground"),
                          callsOfService(),
                          {"renameLayerState(\"One\", \"Ground\") = " + std::to_string(Vorn::eDuplicateRecordName)}}));
}

TEST_F(RenameRefusal, ByTheHostComesForANameThatOnlyTheHostTakesForAnotherRows) {
    // The list compares without regard to the case of A to Z, the host to that of all letters.
    open(threeStates().state(L"\x00DC"
                             L"bersicht",
                             kMask));
    manage(Script()
               .then(rename(L"\x00FC"
                            L"bersicht"))
               .then(answer(resourceText(IDS_LSTATE_RENAME_FAILED)))
               .then(boxHolds(L"One"))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(RenameRefusal, OfADependentStatesNameComesFromTheListOrWhenItIsHiddenFromTheHost) {
    ui::TestDrawing site;
    site.layer(L"Trees").state(L"Survey", kMask);
    open(threeStates().reference(L"site", site));
    manage(Script()
               .then(rename(L"SITE!Survey"))
               .then(answer(resourceTextWith(IDS_LSTATE_NAME_TAKEN, L"SITE!Survey")))
               .then(boxHolds(L"One"))
               .press(VK_ESCAPE)
               .click(IDC_LSTATE_RES_HIDEXREFS)
               .then(rename(L"SITE!Survey"))
               .then(answer(kCharactersRefused))
               .then(boxHolds(L"One"))
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
}

TEST_F(RenameRefusal, ShowsANameAsItStandsWhateverCharactersItHolds) {
    for (const wchar_t* name :
         {L"100 % of %s and %d", L"A & B && C", L"'single' \"double\"", L"a\\nb", L"\x00C4\x4E2D"}) {
        open(threeStates().state(name, kMask));
        manage(Script()
                   .then(rename(name))
                   .then(answer(resourceTextWith(IDS_LSTATE_NAME_TAKEN, name)))
                   .then(boxHolds(L"One"))
                   .press(VK_ESCAPE)
                   .press(VK_ESCAPE));
    }
    const std::wstring longest(255, L'n');
    open(threeStates().state(longest, kMask));
    manage(Script()
               .then(rename(longest))
               .then(answer(resourceTextWith(IDS_LSTATE_NAME_TAKEN, longest)))
               .then(boxHolds(L"One"))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(RenameRefusal, OpensAgainUntilANameIsGood) {
    manage(Script()
               .then(rename(L"Two"))
               .then(answer(m_taken))
               .then(boxHolds(L"One"))
               .type(L"a?b")
               .press(VK_RETURN)
               .then(answer(kCharactersRefused))
               .then(boxHolds(L"One"))
               .type(L"Ground")
               .press(VK_RETURN)
               .then(expectOver({L"Ground", L"Two", L"Three"})));
}

TEST_F(RenameRefusal, LeavesTheButtonsInertThatEndedTheRenameByAPressOfTheMouse) {
    for (const int button : kButtons)
        expectInert(button, Script().click(button));
    expectInert(IDC_LSTATE_RES_UPDATE, Script().click(IDC_LSTATE_RES_UPDATE));
    expectInert(IDC_LSTATE_RES_HIDEXREFS, Script().click(IDC_LSTATE_RES_HIDEXREFS));
}

TEST_F(RenameRefusal, LeavesTheButtonsInertThatEndedTheRenameByTheirMnemonic) {
    // The mnemonic presses the button after the refusal.
    for (const int button : kButtons)
        // Close has none. Import asks for its file all the same, and then imports nothing.
        if (button != IDC_LSTATE_RES_CLOSE && button != IDC_LSTATE_RES_IMPORT)
            expectInert(button, Script().pressMnemonicOf(button));
}

TEST_F(RenameRefusal, LeavesTheButtonsInertThatAreInvokedWhileTheBoxIsOpenAgain) {
    // As a screen reader does it: the focus stays in the box.
    for (const int button : kButtons) {
        if (button == IDC_LSTATE_RES_IMPORT)
            continue; // its file dialog takes the focus, which ends the rename
        SCOPED_TRACE("button " + std::to_string(button));
        open(threeStates());
        manage(Script()
                   .then(rename(L"Two"))
                   .then(answer(m_taken))
                   .then(boxHolds(L"One"))
                   .then(count())
                   .look("the button is invoked",
                         [button](const View& view) {
                             PostMessageW(view.window(), WM_COMMAND, static_cast<WPARAM>(button), 0);
                         })
                   .then(expectNoCalls())
                   .then(boxHolds(L"One"))
                   .press(VK_ESCAPE)
                   .then(expectOver(kOldNames)));
    }
}

TEST_F(RenameRefusal, AllowsAnUpdateByItsMnemonicAndThenOpensAgain) {
    // Update is the one button that doesn't wait for the end of a rename.
    manage(Script()
               .then(typeName(L"Two"))
               .then(count())
               .pressMnemonicOf(IDC_LSTATE_RES_UPDATE)
               .then(answer(m_taken))
               .waitForText(resourceTextWith(IDS_LSTATE_CONFIRM_UPDATE, L"One"))
               .click(IDNO)
               .then(boxHolds(L"One"))
               .then(expectCalls(joined({callsOfService(), {"hasLayerState(\"One\") = true"}, callsOfBox("One")})))
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
}

TEST_F(RenameRefusal, TheEndIsntLookedAtAgainWhenItIsReportedOnceMoreUnderTheMessage) {
    HWND list = nullptr;
    manage(Script()
               .look("the list", [&](const View& view) { list = view.control(kList); })
               .then(rename(L"Two"))
               .waitForText(m_taken)
               .then(count())
               .look("the end once more, as a version of the control may report it that loses the focus to the message",
                     [&](const View&) {
                         wchar_t good[] = L"Ground";
                         wchar_t* const texts[] = {good, nullptr};
                         for (wchar_t* text : texts) {
                             NMLVDISPINFOW report{};
                             report.hdr = {list, static_cast<UINT_PTR>(kList), LVN_ENDLABELEDITW};
                             report.item.pszText = text;
                             EXPECT_EQ(
                                 SendMessageW(GetParent(list), WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&report)), 0);
                         }
                     })
               .then(expectNoCalls())
               .then(answer(m_taken))
               .then(boxHolds(L"One"))
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
}

TEST_F(RenameRefusal, OpensAgainOnItsRowAlsoWhenTheClickThatEndedTheRenameIsReportedAfterIt) {
    HWND list = nullptr;
    manage(Script()
               // The pointer is over another row from here on.
               .clickCell(kList, 1, 0)
               .press(VK_HOME)
               .look("the list", [&](const View& view) { list = view.control(kList); })
               .then(rename(L"Two"))
               .waitForText(m_taken)
               .look("the click, which Windows reports only when the press has been dealt with",
                     [&](const View&) {
                         NMITEMACTIVATE report{};
                         report.hdr = {list, static_cast<UINT_PTR>(kList), NM_CLICK};
                         SendMessageW(GetParent(list), WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&report));
                     })
               .then(answer(m_taken))
               .then(boxHolds(L"One"))
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
}

TEST_F(RenameRefusal, IsOverWhenItsRowIsGoneBeforeItCanOpenAgain) {
    HWND list = nullptr;
    manage(Script()
               .press(VK_END)
               .look("the list", [&](const View& view) { list = view.control(kList); })
               .then(rename(L"Two"))
               .waitForText(m_taken)
               .look("the row goes", [&](const View&) { SendMessageW(list, LVM_DELETEITEM, 2, 0); })
               .then(answer(m_taken))
               .waitUntil("the manager is back", [](const View& view) { return view.has(kList); })
               .then(expectOver({L"One", L"Two"})));
}

TEST_F(RenameRefusal, IsOverWhenTheListIsFilledAnew) {
    // The mnemonic both ends the rename and toggles the box.
    manage(Script()
               .then(typeName(L"Two"))
               .pressMnemonicOf(IDC_LSTATE_RES_HIDEXREFS)
               .then(answer(m_taken))
               .waitUntil("the list is filled anew",
                          [](const View& view) { return view.isTicked(IDC_LSTATE_RES_HIDEXREFS); })
               .then(expectOver(kOldNames)));
}

TEST_F(RenameRefusal, AnOpenRenameIsOverWhenTheListIsFilledAnew) {
    manage(Script()
               .press(VK_END)
               .then(typeName(L"Ground"))
               .look("the list is filled anew under the box",
                     [](const View& view) { PostMessageW(view.window(), WM_COMMAND, IDC_LSTATE_RES_HIDEXREFS, 0); })
               .then(count())
               .press(VK_RETURN)
               .then(expectNoCalls())
               .then(expectOver(kOldNames)));
    EXPECT_EQ(namesOfDrawing(), kOldNames);
}

} // namespace

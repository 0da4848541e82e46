// How the edit of a name ends: by keys, by a loss of the focus, with a text or without, and when the dialog goes.

#include "OtherProgram.h"
#include "RenameTest.h"

#include <commctrl.h>

#include <functional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

constexpr int kList = IDC_LSTATE_RES_LIST;

const std::vector<std::wstring> kOldNames = {L"One", L"Two", L"Three"};
const std::vector<std::wstring> kNewNames = {L"Ground", L"Two", L"Three"};

const Calls kGoodRename =
    joined({callsOfCheck("Ground"), callsOfService(), {"renameLayerState(\"One\", \"Ground\") = 0"}});

class RenameEnd : public RenameTest {
  protected:
    void SetUp() override {
        RenameTest::SetUp();
        open(threeStates());
    }
    /// Sends the dialog the notification of an end, as the platform does.
    static LRESULT reportEnd(const View& view, wchar_t* text) {
        NMLVDISPINFOW report{};
        report.hdr = {view.control(kList), static_cast<UINT_PTR>(kList), LVN_ENDLABELEDITW};
        report.item.mask = LVIF_TEXT;
        report.item.pszText = text;
        return SendMessageW(GetParent(report.hdr.hwndFrom), WM_NOTIFY, report.hdr.idFrom,
                            reinterpret_cast<LPARAM>(&report));
    }
    /// What the host was asked to rename.
    static Calls renames() { return ui::callsOf("renameLayerState"); }
    static Script expectNoCalls() { return expectCalls({}); }
    static Script expectNoRestore() {
        return Script().look("nothing is restored",
                             [](const View&) { EXPECT_THAT(ui::callsOf("startTransaction"), IsEmpty()); });
    }
    /// Another program takes the input until `shown` tells that this has shown.
    Script loseFocusToOtherProgram(std::function<bool(const View&)> shown) {
        return Script()
            .look("another program starts", [this](const View&) { ASSERT_TRUE(m_other.start()); })
            .waitUntil("it has taken the input", std::move(shown), std::chrono::seconds(20))
            .look("it ends", [this](const View&) { m_other.end(); });
    }

  private:
    OtherProgram m_other;
};

TEST_F(RenameEnd, EscDropsWhatWasTyped) {
    manage(Script()
               .then(typeName(L"Ground"))
               .then(count())
               .press(VK_ESCAPE)
               .then(expectNoCalls())
               .then(expectOver(kOldNames)));
    EXPECT_EQ(namesOfDrawing(), kOldNames);
}

TEST_F(RenameEnd, TheNameIsTrimmedBeforeItIsCheckedAndShown) {
    manage(Script()
               .then(typeName(L"  Ground \x00A0 "))
               .then(count())
               .press(VK_RETURN)
               .then(expectCalls(joined({kGoodRename, callsOfSelection("Ground", kMask)})))
               .then(expectOver(kNewNames)));
    EXPECT_EQ(namesOfDrawing(), kNewNames);
}

TEST_F(RenameEnd, ALossOfTheFocusToAnotherControlIsAsEnter) {
    manage(Script()
               .then(typeName(L"Ground"))
               .then(count())
               .click(IDC_LSTATE_RES_LAYERNOTFOUND)
               .then(expectCalls(joined(
                   {kGoodRename, callsOfSelection("Ground", kMask), {"SetDialogData(\"LayerNotFound\", 0) = true"}})))
               .then(expectOver(kNewNames)));
}

TEST_F(RenameEnd, ALossOfTheFocusToAnotherWindowOfTheProgramIsAsEnter) {
    HWND other = nullptr;
    HWND manager = nullptr;
    manage(Script()
               .then(typeName(L"Ground"))
               .then(count())
               .look("another window",
                     [&](const View& view) {
                         manager = view.window();
                         other = CreateWindowExW(0, L"Static", L"Other", WS_POPUP | WS_CAPTION, 10, 10, 200, 100,
                                                 nullptr, nullptr, nullptr, nullptr);
                         ShowWindow(other, SW_SHOW);
                         SetFocus(other);
                     })
               .waitUntil("it has the input", [&](const View& view) { return view.window() == other; })
               .then(expectCalls(joined({kGoodRename, callsOfSelection("Ground", kMask)})))
               .look("back again", [&](const View&) { DestroyWindow(other); })
               .waitUntil("the manager has the input", [&](const View& view) { return view.window() == manager; })
               .then(expectOver(kNewNames)));
}

TEST_F(RenameEnd, ALossOfTheFocusToAnotherProgramIsAsEnter) {
    manage(Script()
               .then(typeName(L"Ground"))
               .then(count())
               .then(loseFocusToOtherProgram([](const View&) { return !renames().empty(); }))
               .then(expectCalls(joined({kGoodRename, callsOfSelection("Ground", kMask)})))
               .then(expectOver(kNewNames)));
}

TEST_F(RenameEnd, ARefusedNameOpensAgainAlsoWhenAnotherProgramTookTheFocus) {
    const std::wstring taken = resourceTextWith(IDS_LSTATE_NAME_TAKEN, L"Two");
    manage(
        Script()
            .then(typeName(L"Two"))
            .then(loseFocusToOtherProgram([taken](const View& view) { return view.controlWithText(taken) != nullptr; }))
            .then(answer(taken))
            .then(boxHolds(L"One"))
            .type(L"Ground")
            .press(VK_RETURN)
            .then(expectOver(kNewNames)));
}

TEST_F(RenameEnd, AnEmptiedNameIsRefusedAndTheOldOneOpensAgain) {
    const Calls refused = {"ShowInvalidNameEmptyNameDialog(" + instruments::describe(resourceText(IDS_LSTATE_KIND)) +
                           ", " + instruments::describe(resourceText(IDS_LSTATE_NAME_ADVICE)) + ") = 8"};
    for (const wchar_t* text : {L"", L"   ", L" \t\x3000 "}) {
        open(threeStates());
        manage(Script()
                   .then(begin())
                   .press(VK_DELETE)
                   .type(text)
                   .then(count())
                   .press(VK_RETURN)
                   .then(answer(kEmptyRefused))
                   .then(boxHolds(L"One"))
                   .then(expectCalls(joined({refused, callsOfBox("One")})))
                   .press(VK_ESCAPE)
                   .then(expectNoCalls())
                   .then(expectOver(kOldNames)));
    }
}

TEST_F(RenameEnd, AnEmptiedNameIsRefusedAlsoWhenTheBoxLosesTheFocus) {
    manage(Script()
               .then(begin())
               .press(VK_DELETE)
               .click(IDC_LSTATE_RES_LAYERNOTFOUND)
               .then(answer(kEmptyRefused))
               .then(boxHolds(L"One"))
               .look("the box that was clicked is still ticked",
                     [](const View& view) { EXPECT_TRUE(view.isTicked(IDC_LSTATE_RES_LAYERNOTFOUND)); })
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
}

TEST_F(RenameEnd, EscInAnEmptiedBoxDropsTheEdit) {
    manage(Script()
               .then(begin())
               .press(VK_DELETE)
               .then(boxHolds(L""))
               .then(count())
               .press(VK_ESCAPE)
               .then(expectNoCalls())
               .then(expectOver(kOldNames)));
}

TEST_F(RenameEnd, AnUnchangedNameEndsTheEditWhenThePlatformReportsNoText) {
    for (const wchar_t* typed : {L"", L"One"}) {
        open(threeStates());
        manage(Script()
                   .then(begin())
                   .type(typed)
                   .then(boxHolds(L"One"))
                   .then(count())
                   .press(VK_RETURN)
                   .then(expectNoCalls())
                   .then(expectOver(kOldNames)));
    }
}

TEST_F(RenameEnd, AnUnchangedNameGoesToTheHostWhenThePlatformReportsIt) {
    manage(Script()
               .then(begin())
               .then(count())
               .look("the end, as Windows reports it after the name was typed again",
                     [](const View& view) {
                         wchar_t name[] = L"One";
                         EXPECT_NE(reportEnd(view, name), 0);
                     })
               .then(expectCalls(
                   joined({callsOfCheck("One"), callsOfService(), {"renameLayerState(\"One\", \"One\") = 0"}})))
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
}

TEST_F(RenameEnd, TheTrimmedNameIsWhatTheRowShowsAndWhatThePlatformIsToStore) {
    manage(Script()
               .then(begin())
               .look("the end with blanks",
                     [](const View& view) {
                         wchar_t name[] = L"  Ground ";
                         EXPECT_NE(reportEnd(view, name), 0);
                         EXPECT_STREQ(name, L"Ground");
                         EXPECT_EQ(view.cell(kList, 0, 0), L"Ground");
                     })
               .press(VK_ESCAPE)
               .then(expectOver(kNewNames)));
}

TEST_F(RenameEnd, AnEmptyNameIsRefusedWhenThePlatformReportsIt) {
    manage(Script()
               .then(begin())
               .look("the end, as Windows reports it, soon",
                     [](const View& view) {
                         // Not in this step: a message is going to open, which the next one has to answer.
                         SetTimer(view.window(), 1, 0, [](HWND window, UINT, UINT_PTR timer, DWORD) {
                             KillTimer(window, timer);
                             wchar_t nothing[] = L"";
                             EXPECT_EQ(reportEnd(View(window), nothing), 0);
                         });
                     })
               .then(answer(kEmptyRefused))
               .then(boxHolds(L"One"))
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
}

TEST_F(RenameEnd, AChangeOfCaseGoesToTheHost) {
    manage(Script()
               .then(typeName(L"ONE"))
               .then(count())
               .press(VK_RETURN)
               .then(expectCalls(joined({callsOfCheck("ONE"),
                                         callsOfService(),
                                         {"renameLayerState(\"One\", \"ONE\") = 0"},
                                         callsOfSelection("ONE", kMask)})))
               .then(expectOver({L"ONE", L"Two", L"Three"})));
}

TEST_F(RenameEnd, TabStaysInTheBox) {
    manage(Script().then(begin()).press(VK_TAB).then(boxHolds(L"One")).press(VK_ESCAPE).then(expectOver(kOldNames)));
}

TEST_F(RenameEnd, AClickOnAnotherRowIsAsEnterAndSelectsIt) {
    manage(Script()
               .then(typeName(L"Ground"))
               .clickCell(kList, 1, 0)
               .waitUntil("the state is renamed", [](const View&) { return !renames().empty(); })
               .look("the other row", [](const View& view) { EXPECT_THAT(view.selectedRows(kList), ElementsAre(1)); })
               .then(expectOver(kNewNames)));
    EXPECT_THAT(renames(), ElementsAre("renameLayerState(\"One\", \"Ground\") = 0"));
}

TEST_F(RenameEnd, TheRowThatIsRenamedCanBeGivenItsOwnNameByAClickOnAnotherRow) {
    // On Wine the other row is selected before the end is reported.
    manage(Script()
               .then(typeName(L"ONE"))
               .clickCell(kList, 1, 0)
               .waitUntil("the state is renamed", [](const View&) { return !renames().empty(); })
               .then(expectOver({L"ONE", L"Two", L"Three"})));
}

TEST_F(RenameEnd, ARefusedNameOpensAgainOnItsRowAfterAClickElsewhereInTheList) {
    const auto tryWith = [this](const Script& click) {
        open(threeStates());
        manage(Script()
                   .then(typeName(L"Two"))
                   .then(click)
                   .then(answer(resourceTextWith(IDS_LSTATE_NAME_TAKEN, L"Two")))
                   .then(boxHolds(L"One"))
                   .type(L"Ground")
                   .press(VK_RETURN)
                   .then(expectOver(kNewNames)));
        EXPECT_EQ(namesOfDrawing(), kNewNames);
    };
    tryWith(Script().clickCell(kList, 2, 0));
    tryWith(Script().clickCell(kList, 2, 0, ui::holdControl));
    tryWith(Script().clickCell(kList, 0, 3)); // its own description
    tryWith(Script().clickEmptySpace(kList));
    tryWith(Script().doubleClickCell(kList, 2, 0));
}

TEST_F(RenameEnd, ADoubleClickOnARowEndsTheRenameAndRestoresNothing) {
    manage(Script()
               .then(typeName(L"Ground"))
               .doubleClickCell(kList, 1, 0)
               .waitUntil("the state is renamed", [](const View&) { return !renames().empty(); })
               .then(expectNoRestore())
               .look("a person sees the row selected",
                     [](const View& view) { EXPECT_THAT(view.selectedRows(kList), ElementsAre(1)); })
               // The next one restores, as ever.
               .doubleClickCell(kList, 1, 0));
    EXPECT_EQ(namesOfDrawing(), kNewNames);
    EXPECT_THAT(ui::callsOf("restoreLayerState"), ElementsAre("restoreLayerState(\"Two\", null, 5, null) = 0"));
}

TEST_F(RenameEnd, ADoubleClickWhoseFirstHalfWasntSeenRestoresNothingDuringARename) {
    manage(Script()
               .then(typeName(L"Ground"))
               .look("a double click alone",
                     [](const View& view) {
                         RECT row{};
                         row.left = LVIR_LABEL;
                         SendMessageW(view.control(kList), LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
                         PostMessageW(view.control(kList), WM_LBUTTONDBLCLK, MK_LBUTTON,
                                      MAKELPARAM(row.left + 2, row.top + 2));
                     })
               .then(expectNoRestore())
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
}

TEST_F(RenameEnd, ADoubleClickInTheBoxIsTheBoxesOwn) {
    manage(Script()
               .then(begin())
               .then(count())
               .step("double click the box",
                     [](const View& view) -> ui::Obstacle {
                         const auto box =
                             reinterpret_cast<HWND>(SendMessageW(view.control(kList), LVM_GETEDITCONTROL, 0, 0));
                         if (!ui::pointerRestsAt(ui::middleOf(View(box).rect())))
                             return "the pointer doesn't come to rest there";
                         ui::click(2);
                         return std::nullopt;
                     })
               .then(expectNoCalls())
               .then(boxHolds(L"One"))
               .press(VK_ESCAPE)
               .then(expectOver(kOldNames)));
}

TEST_F(RenameEnd, TheTitleBarsCloseEndsTheRenameAsEnterDoes) {
    const auto closeBox = [](const View& view) { PostMessageW(view.window(), WM_SYSCOMMAND, SC_CLOSE, 0); };
    manage(Script().then(typeName(L"Ground")).look("close", closeBox));
    EXPECT_EQ(namesOfDrawing(), kNewNames);
    open(threeStates());
    manage(Script()
               .then(typeName(L"Two"))
               .look("close", closeBox)
               .then(answer(resourceTextWith(IDS_LSTATE_NAME_TAKEN, L"Two"))));
    EXPECT_EQ(namesOfDrawing(), kOldNames);
}

} // namespace

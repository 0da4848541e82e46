// A description that the host refuses: the editor stays with its text, and the user mends it or drops it.
#include "DescriptionTest.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using ui::Script;
using ui::View;

namespace {

class DescriptionRefusal : public DescriptionTest {
  protected:
    /// A text in the editor over "Two" that the host will refuse.
    Script typeRefused() { return typeInto(1, L"typed").then(beginRefusing()); }
    static Script expectRefused(std::size_t times) {
        return expectOpen(L"typed").look("the host has refused", [times](const View&) {
            const Calls calls = ui::callsOf("setLayerStateDescription");
            EXPECT_THAT(calls, SizeIs(times));
            EXPECT_THAT(calls, testing::Each("setLayerStateDescription(\"Two\", \"typed\") = 8"));
        });
    }
};

TEST_F(DescriptionRefusal, LeavesTheEditorOpenWithItsTextAndWithoutAMessage) {
    Calls calls = keeping("Two", "typed");
    calls.back().replace(calls.back().size() - 1, 1, "8");
    manage(typeRefused()
               .press(VK_RETURN)
               .then(expectOpen(L"typed"))
               .look("asked once, and the cell is as it was",
                     [&](const View& view) {
                         EXPECT_EQ(instruments::trace(), calls);
                         EXPECT_EQ(view.cell(kList, 1, kDescriptionColumn), L"the second");
                     })
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionRefusal, IsOverWithEscWhichAsksNothing) {
    manage(typeRefused()
               .press(VK_RETURN)
               .then(expectRefused(1))
               .look("from here", [](const View&) { instruments::clearTrace(); })
               .press(VK_ESCAPE)
               .then(expectEnd({}))
               .press(VK_ESCAPE));
}

TEST_F(DescriptionRefusal, IsOverWithATextThatTheHostAccepts) {
    manage(typeRefused()
               .press(VK_RETURN)
               .then(expectRefused(1))
               .then(endRefusing())
               .type(L" again")
               .press(VK_RETURN)
               .then(expectEnd(keeping("Two", "typed again")))
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"typed again");
}

TEST_F(DescriptionRefusal, ComesAlsoWithoutAStateService) {
    manage(typeInto(1, L"typed")
               .look("there is no service", [](const View&) { instruments::failCall("getLayerStateManager", 1); })
               .press(VK_RETURN)
               .then(expectOpen(L"typed"))
               .look("nobody was asked",
                     [](const View&) {
                         EXPECT_THAT(instruments::trace(),
                                     ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                                                 "getLayerStateManager() = null"));
                         instruments::clearTrace();
                     })
               .press(VK_RETURN)
               .then(expectEnd(keeping("Two", "typed")))
               .press(VK_ESCAPE));
}

TEST_F(DescriptionRefusal, KeepsTheFocusInTheEditorAtTab) {
    manage(typeRefused()
               .press(VK_TAB)
               .then(expectRefused(1))
               .press(VK_TAB, ui::holdShift)
               .then(expectRefused(2))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionRefusal, KeepsTheFocusInTheEditorAtAClickOnAControlWhichTakesEffect) {
    manage(typeRefused()
               .click(IDC_LSTATE_RES_LAYERNOTFOUND)
               .then(expectRefused(1))
               .look("the option has changed",
                     [](const View& view) { EXPECT_FALSE(view.isTicked(IDC_LSTATE_RES_LAYERNOTFOUND)); })
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

TEST_F(DescriptionRefusal, LetsNothingSort) {
    manage(typeRefused()
               .clickHeading(kList, 0)
               .then(expectRefused(1))
               .look("the rows as they were",
                     [](const View& view) {
                         EXPECT_EQ(view.column(kList, 0),
                                   (std::vector<std::wstring>{L"One", L"Two", L"Three", L"site!Survey"}));
                     })
               .then(endRefusing())
               .clickHeading(kList, 0)
               .look("kept, then sorted upwards, as at a first click",
                     [](const View& view) {
                         EXPECT_EQ(view.column(kList, 0),
                                   (std::vector<std::wstring>{L"One", L"Three", L"Two", L"site!Survey"}));
                         EXPECT_EQ(view.cell(kList, 2, kDescriptionColumn), L"typed");
                     })
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Two"), L"typed");
}

TEST_F(DescriptionRefusal, LetsTheManagerClose) {
    manage(typeRefused().click(IDC_LSTATE_RES_CLOSE));
    // Asked when the button takes the focus, and when the dialog takes it to close.
    Calls refused = keeping("Two", "typed");
    refused.back().replace(refused.back().size() - 1, 1, "8");
    Calls calls = refused;
    calls.emplace_back("SetDialogData(\"Expanded\", 0) = true");
    calls.insert(calls.end(), refused.begin(), refused.end());
    EXPECT_EQ(instruments::trace(), calls);
}

TEST_F(DescriptionRefusal, OpensNoNameBesideTheEditor) {
    manage(typeRefused()
               .click(IDC_LSTATE_RES_RENAME)
               .look("no box over the name",
                     [](const View& view) { EXPECT_EQ(view.labelEditorText(kList), std::nullopt); })
               .then(expectOpen(L"typed"))
               .press(VK_F2)
               .look("nor by F2", [](const View& view) { EXPECT_EQ(view.labelEditorText(kList), std::nullopt); })
               .then(expectOpen(L"typed"))
               .press(VK_ESCAPE)
               .look("the buttons work", [](const View& view) { EXPECT_FALSE(isEditorShown(view)); })
               .click(IDC_LSTATE_RES_CLOSE));
}

TEST_F(DescriptionRefusal, EndsWhenTheListIsFilledAnewSoThatNoOtherStateGetsTheText) {
    manage(Script()
               .clickHeading(kList, 0)
               .clickHeading(kList, 0) // site!Survey, Two, Three, One
               .then(typeRefused())
               .click(IDC_LSTATE_RES_HIDEXREFS) // One, Three
               .look("the editor is closed",
                     [](const View& view) {
                         EXPECT_EQ(view.column(kList, 0), (std::vector<std::wstring>{L"One", L"Three"}));
                         EXPECT_FALSE(isEditorShown(view));
                         EXPECT_EQ(view.focusedControl(), kList);
                     })
               .press(VK_ESCAPE));
    EXPECT_EQ(described(L"One"), L"");
    EXPECT_EQ(described(L"Three"), L"");
}

TEST_F(DescriptionRefusal, EndsWhenARowIsDeleted) {
    manage(
        typeRefused()
            .then(endRefusing())
            .look("the delete goes well, the description doesn't",
                  [](const View&) { instruments::failCall("setLayerStateDescription", 1); })
            .click(IDC_LSTATE_RES_DELETE)
            .waitForText(resourceText(IDS_LSTATE_CONFIRM_DELETE))
            .click(IDYES)
            .waitForControl(kList)
            .look("the editor is closed",
                  [](const View& view) {
                      EXPECT_EQ(view.column(kList, 0), (std::vector<std::wstring>{L"One", L"Three", L"site!Survey"}));
                      EXPECT_FALSE(isEditorShown(view));
                  })
            .press(VK_ESCAPE));
    EXPECT_EQ(described(L"Three"), L"");
}

TEST_F(DescriptionRefusal, DoesntKeepTheListFromScrolling) {
    open(manyStates());
    manage(typeInto(1, L"typed")
               .look("the host refuses",
                     [this](const View&) { ASSERT_EQ(states().deleteLayerState(L"State 11"), Vorn::eOk); })
               .look("scrolled by the program",
                     [](const View& view) { SendMessageW(view.control(kList), WM_VSCROLL, SB_LINEDOWN, 0); })
               .then(expectOpen(L"typed"))
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
    EXPECT_THAT(ui::callsOf("setLayerStateDescription"), SizeIs(1));
}

} // namespace

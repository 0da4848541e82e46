// The tips of the two buttons under the grid, and that nothing else of the dialog's own has one.

#include "EditTest.h"

namespace {

using ui::Script;
using ui::View;

class ButtonTips : public EditTest {
  protected:
    void SetUp() override {
        EditTest::SetUp();
        open(house());
        m_add = resourceText(IDS_LSTATE_ADD_LAYERS_TIP);
        m_remove = resourceText(IDS_LSTATE_REMOVE_LAYERS_TIP);
        ASSERT_FALSE(m_add.empty() || m_remove.empty());
    }
    /// Asks the dialog for the text of a tip, as a tip window does, which has "?" there at first.
    static Script expectAnswer(const std::wstring& text) {
        return Script().look("the answer to a tip", [text](const View& view) {
            NMTTDISPINFOW info{};
            info.hdr.hwndFrom = view.window();
            info.hdr.code = TTN_GETDISPINFOW;
            info.szText[0] = L'?';
            SendMessageW(view.window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&info));
            EXPECT_EQ(std::wstring(info.szText), text);
        });
    }
    std::wstring m_add;
    std::wstring m_remove;
};

TEST_F(ButtonTips, SayWhatTheButtonsDo) {
    edit(Script()
             .hover(IDC_ADD_LAYERS)
             .waitForTip(m_add)
             .hover(IDC_REMOVE_LAYERS)
             .waitForTip(m_remove)
             .hover(IDC_ADD_LAYERS)
             .waitForTip(m_add)
             .pointAway()
             .waitForTip(L"")
             .press(VK_ESCAPE));
}

TEST_F(ButtonTips, GoWithAKeyAndComeAgainAfterAnotherButtons) {
    edit(Script()
             .hover(IDC_REMOVE_LAYERS)
             .waitForTip(m_remove)
             .press(VK_SHIFT)
             .waitForTip(L"")
             .hover(IDC_ADD_LAYERS)
             .waitForTip(m_add)
             .hover(IDC_REMOVE_LAYERS)
             .waitForTip(m_remove)
             .press(VK_ESCAPE));
}

TEST_F(ButtonTips, BesideTheButtonsNoneShows) {
    edit(Script()
             .hover(IDC_ADD_LAYERS)
             .waitForTip(m_add)
             .pointAt([] {
                 const RECT button = View::facing().rect(IDC_REMOVE_LAYERS);
                 return POINT{button.right + 10, button.top + 2};
             })
             .waitForTip(L"")
             .seeNoTip()
             .press(VK_ESCAPE));
}

TEST_F(ButtonTips, AreTheAnswerToATipThatAsksForItsTextOverAButton) {
    edit(Script()
             .hover(IDC_ADD_LAYERS)
             .then(expectAnswer(m_add))
             .hover(IDC_REMOVE_LAYERS)
             .then(expectAnswer(m_remove))
             .hover(IDOK)
             .then(expectAnswer(L"?"))
             .pointAway()
             .then(expectAnswer(L"?"))
             .press(VK_ESCAPE));
}

} // namespace

// The module's message boxes: what they show, and what they answer.
#include "MessageBoxes.h"

#include "Driver.h"
#include "HostTest.h"

#include <gmock/gmock.h>

using ui::Script;

namespace {

constexpr const wchar_t* kText = L"100 % of “it”, or less?";

class MessageBoxes : public ui::HostTest {
  protected:
    MessageBoxes() {
        EXPECT_TRUE(m_owner.CreateEx(0, AfxRegisterWndClass(0), L"The dialog that asks", WS_OVERLAPPEDWINDOW,
                                     CRect(0, 0, 600, 400), nullptr, 0));
    }
    ~MessageBoxes() override { m_owner.DestroyWindow(); }

    /// Asks, looks at the question, and has it answered by `answer`.
    bool ask(Script answer) {
        bool yes = false;
        Script script;
        script.waitForText(kText)
            .look("the question",
                  [this](const ui::View& view) {
                      EXPECT_EQ(view.title(), L"The dialog that asks");
                      EXPECT_EQ(view.icon(), LoadIconW(nullptr, IDI_QUESTION));
                      EXPECT_EQ(GetWindow(view.window(), GW_OWNER), m_owner.m_hWnd);
                  })
            .then(answer);
        ui::perform(std::move(script), [&] { yes = askYesNo(m_owner, kText); });
        return yes;
    }

    CWnd m_owner;
};

} // namespace

TEST_F(MessageBoxes, aQuestionBearsTheTitleOfTheWindowThatAsks) {
    EXPECT_TRUE(ask(Script().click(IDYES)));
    EXPECT_FALSE(ask(Script().click(IDNO)));
}

TEST_F(MessageBoxes, aFailureIsTitledByTheSystemAndHasAnExclamation) {
    Script script;
    script.waitForText(kText)
        .look("the message",
              [this](const ui::View& view) {
                  EXPECT_EQ(view.title(), L"Error");
                  EXPECT_EQ(view.icon(), LoadIconW(nullptr, IDI_EXCLAMATION));
                  EXPECT_EQ(GetWindow(view.window(), GW_OWNER), m_owner.m_hWnd);
              })
        .click(IDOK);
    EXPECT_TRUE(ui::perform(std::move(script), [this] { showFailure(m_owner, kText); }));
}

TEST_F(MessageBoxes, aQuestionIsPutAgainWhenEscapeClosesIt) {
    const Script escape = Script().press(VK_ESCAPE).waitForText(kText).press(VK_F4, ui::holdAlt).waitForText(kText);
    EXPECT_FALSE(ask(Script().then(escape).click(IDNO)));
    EXPECT_TRUE(ask(Script().then(escape).click(IDYES)));
}

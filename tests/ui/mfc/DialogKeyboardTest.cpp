// A dialog's keyboard with real key strokes: Tab, Enter, Escape and mnemonics, in modal and modeless dialogs.
#include "Driver.h"
#include "MfcTestIds.h"
#include "Program.h"

namespace {

using testing::ElementsAre;
using ui::Script;
using ui::View;

class KeysDialog : public CDialog {
  public:
    KeysDialog() : CDialog(IDD_KEYS) {}
    Log log;
    CString text;

  protected:
    void OnOpen() { log.push_back("open"); }
    void OnTicked() { log.push_back("ticked"); }
    void OnOK() override {
        GetDlgItemText(IDC_TEXT, text);
        CDialog::OnOK();
    }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(KeysDialog, CDialog)
    ON_BN_CLICKED(IDC_OPEN, &KeysDialog::OnOpen)
    ON_BN_CLICKED(IDC_CHECK, &KeysDialog::OnTicked)
END_MESSAGE_MAP()
// clang-format on

Script focusIs(int control) {
    return Script().look("the focus is on " + std::to_string(control),
                         [control](const View& view) { EXPECT_EQ(view.focusedControl(), control); });
}

class DialogKeyboardTest : public MfcTest {
  protected:
    INT_PTR run(const Script& script) {
        INT_PTR answer = 0;
        ui::perform(script, [&] { answer = dialog.DoModal(); });
        return answer;
    }
    KeysDialog dialog;
};

TEST_F(DialogKeyboardTest, TabGoesThroughTheControlsAndRoundAndShiftTabBack) {
    Script script = focusIs(IDC_TEXT);
    for (const int next : {IDC_CHECK, IDC_LINES, IDC_OPEN, IDOK, IDCANCEL, IDC_TEXT})
        script.press(VK_TAB).then(focusIs(next));
    script.press(VK_TAB, ui::holdShift).then(focusIs(IDCANCEL)).press(VK_ESCAPE);
    EXPECT_EQ(run(script), IDCANCEL);
}

TEST_F(DialogKeyboardTest, EnterPressesTheDefaultButton) {
    EXPECT_EQ(run(Script().type(L"Walls").press(VK_RETURN)), IDOK);
    EXPECT_EQ(dialog.text, L"Walls");
}

TEST_F(DialogKeyboardTest, EnterPressesTheButtonThatTabHasReached) {
    EXPECT_EQ(run(Script().press(VK_TAB).press(VK_TAB).press(VK_TAB).press(VK_RETURN).press(VK_ESCAPE)), IDCANCEL);
    EXPECT_THAT(dialog.log, ElementsAre("open"));
}

TEST_F(DialogKeyboardTest, EscapeCancels) {
    EXPECT_EQ(run(Script().type(L"x").press(VK_ESCAPE)), IDCANCEL);
    EXPECT_TRUE(dialog.text.IsEmpty());
}

TEST_F(DialogKeyboardTest, EscapeCancelsInAnEditOfSeveralLinesToo) {
    EXPECT_EQ(run(Script().click(IDC_LINES).press(VK_ESCAPE)), IDCANCEL);
}

TEST_F(DialogKeyboardTest, MnemonicOfALabelMovesTheFocusBehindIt) {
    EXPECT_EQ(run(Script().click(IDC_OPEN).pressAlt(L'n').then(focusIs(IDC_TEXT)).press(VK_ESCAPE)), IDCANCEL);
}

TEST_F(DialogKeyboardTest, MnemonicPressesAButtonAndTicksABox) {
    EXPECT_EQ(run(Script()
                      .pressMnemonicOf(IDC_OPEN)
                      .pressAlt(L'f')
                      .look("the tick", [](const View& view) { EXPECT_TRUE(view.isTicked(IDC_CHECK)); })
                      .press(VK_ESCAPE)),
              IDCANCEL);
    EXPECT_THAT(dialog.log, ElementsAre("open", "ticked"));
}

TEST_F(DialogKeyboardTest, SpaceTicksTheBoxWithTheFocus) {
    EXPECT_EQ(run(Script()
                      .press(VK_TAB)
                      .press(VK_SPACE)
                      .look("the tick", [](const View& view) { EXPECT_TRUE(view.isTicked(IDC_CHECK)); })
                      .press(VK_SPACE)
                      .look("no tick", [](const View& view) { EXPECT_FALSE(view.isTicked(IDC_CHECK)); })
                      .press(VK_ESCAPE)),
              IDCANCEL);
}

/// Modeless in the program's message loop, which ends when this dialog is cancelled.
class ModelessKeys : public KeysDialog {
  protected:
    void OnCancel() override {
        log.push_back("cancel");
        DestroyWindow();
        ::PostQuitMessage(0);
    }
};

TEST_F(DialogKeyboardTest, WorksInAModelessDialogInTheProgramsLoop) {
    ModelessKeys modeless;
    ASSERT_TRUE(modeless.Create(IDD_KEYS));
    modeless.ShowWindow(SW_SHOW);
    modeless.SetForegroundWindow();
    ui::perform(focusIs(IDC_TEXT).press(VK_TAB).then(focusIs(IDC_CHECK)).pressMnemonicOf(IDC_OPEN).press(VK_ESCAPE),
                [] { theProgram().CWinThread::Run(); });
    EXPECT_THAT(modeless.log, ElementsAre("open", "cancel"));
}

/// Takes keys for itself before the dialog sees them.
class GreedyEdit : public CEdit {
  public:
    Log log;
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message != WM_KEYDOWN || (message->wParam != VK_RETURN && message->wParam != VK_ESCAPE))
            return CEdit::PreTranslateMessage(message);
        log.push_back(message->wParam == VK_RETURN ? "enter" : "escape");
        return TRUE;
    }
};

TEST_F(DialogKeyboardTest, AControlMayTakeAKeyBeforeTheDialog) {
    struct GreedyDialog : KeysDialog {
        GreedyEdit edit;
        BOOL OnInitDialog() override { return KeysDialog::OnInitDialog() && edit.SubclassDlgItem(IDC_TEXT, this); }
    } greedy;
    INT_PTR answer = 0;
    ui::perform(Script().press(VK_RETURN).press(VK_ESCAPE).press(VK_TAB).press(VK_RETURN),
                [&] { answer = greedy.DoModal(); });
    EXPECT_EQ(answer, IDOK);
    EXPECT_THAT(greedy.edit.log, ElementsAre("enter", "escape"));
}

} // namespace

// A tip window that its dialog feeds itself: what it shows of a tool whose text is asked for each time.
#include "ToolTipFixture.h"

namespace {

using ui::Script;
using ui::View;

/// Has a tip over one control, whose text is a member, and relays the mouse to it.
class RelayingDialog : public CDialog {
  public:
    RelayingDialog() : CDialog(IDD_KEYS) {}
    CToolTipCtrl tip;
    CString text = L"first";
    /// Called before a move is relayed.
    std::function<void()> beforeMove;

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        return tip.Create(this) && tip.AddTool(GetDlgItem(IDC_LINES), LPSTR_TEXTCALLBACK);
    }
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message >= WM_MOUSEFIRST && message->message <= WM_MOUSELAST) {
            if (message->message == WM_MOUSEMOVE && beforeMove)
                beforeMove();
            tip.RelayEvent(message);
        }
        return CDialog::PreTranslateMessage(message);
    }

  protected:
    BOOL OnNeedText(UINT, NMHDR* header, LRESULT*) {
        EXPECT_EQ(header->hwndFrom, tip.m_hWnd);
        EXPECT_EQ(header->idFrom, reinterpret_cast<UINT_PTR>(GetDlgItem(IDC_LINES)->m_hWnd));
        ::lstrcpyn(reinterpret_cast<NMTTDISPINFO*>(header)->szText, text, 80);
        return TRUE;
    }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(RelayingDialog, CDialog)
    ON_NOTIFY_EX(TTN_NEEDTEXT, 0, &RelayingDialog::OnNeedText)
END_MESSAGE_MAP()
// clang-format on

class ToolTipCtrlTest : public ToolTipFixture {
  protected:
    RelayingDialog dialog;
    Script script;
};

TEST_F(ToolTipCtrlTest, AsksTheDialogForTheTextOverItsToolAlone) {
    script.hover(IDC_LINES).waitForTip(L"first").hover(IDC_OPEN).waitForTip(L"").seeNoTip();
    act(script, [this] { dialog.text = L"second"; });
    run(dialog, script.hover(IDC_LINES).waitForTip(L"second"));
}

TEST_F(ToolTipCtrlTest, PoppedATipGoesAtOnce) {
    script.hover(IDC_LINES).waitForTip(L"first");
    act(script, [this] {
        dialog.tip.Pop();
        EXPECT_EQ(ui::shownTip(), L"");
    });
    run(dialog, script);
}

TEST_F(ToolTipCtrlTest, PoppedAndUpdatedATipComesWithAnotherTextOverTheSameTool) {
    script.hover(IDC_LINES).waitForTip(L"first");
    act(script, [this] {
        dialog.beforeMove = [this] {
            dialog.beforeMove = nullptr;
            dialog.text = L"second";
            dialog.tip.Pop();
            dialog.tip.Update();
        };
    });
    pointAt(script, dialog, IDC_LINES, 20);
    run(dialog, script.waitForTip(L"second"));
}

TEST_F(ToolTipCtrlTest, DeactivatedItShowsNone) {
    act(script, [this] { dialog.tip.Activate(FALSE); });
    script.hover(IDC_LINES).seeNoTip();
    act(script, [this] { dialog.tip.Activate(TRUE); });
    run(dialog, script.hover(IDC_OPEN).hover(IDC_LINES).waitForTip(L"first"));
}

} // namespace

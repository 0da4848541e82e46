// The tips of windows that have enabled them, under a real mouse: when they come, and when they go.
#include "Input.h"
#include "ToolTipFixture.h"

#include <type_traits>

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using ui::Script;
using ui::View;

static_assert(std::is_same_v<decltype(&CWnd::EnableToolTips), BOOL (CWnd::*)(BOOL)>);
static_assert(std::is_same_v<decltype(&CWnd::CancelToolTips), void (*)(BOOL)>);
static_assert(std::is_same_v<decltype(&CWnd::FilterToolTipMessage), void (CWnd::*)(MSG*)>);
static_assert(std::is_same_v<decltype(&CWnd::OnToolHitTest), INT_PTR (CWnd::*)(CPoint, TOOLINFO*) const>);

class ToolTipTest : public ToolTipFixture {
  protected:
    TipDialog dialog;
    Script script;
};

TEST_F(ToolTipTest, TheDialogIsAskedForTheTextOfTheChildUnderThePointer) {
    run(dialog, script.hover(IDC_OPEN).waitForTip(L"tip 1010").hover(IDOK).waitForTip(L"tip 1"));
    EXPECT_THAT(dialog.askedBy, Not(IsEmpty()));
    EXPECT_THAT(dialog.askedBy, Each(0u));
}

TEST_F(ToolTipTest, WithoutEnablingThereAreNone) {
    dialog.setUp = [this] { dialog.EnableToolTips(FALSE); };
    run(dialog, script.hover(IDC_OPEN).seeNoTip());
    EXPECT_THAT(dialog.hits, IsEmpty());
}

TEST_F(ToolTipTest, BesideTheChildrenATipGoes) {
    script.hover(IDC_OPEN).waitForTip(L"tip 1010").pointAt([this] {
        CRect place;
        dialog.GetWindowRect(place);
        return CPoint(place.right - 5, place.bottom - 5);
    });
    run(dialog, script.waitForTip(L""));
}

TEST_F(ToolTipTest, DisabledTheyGoAtOnceAndStayAwayUntilTheyAreEnabled) {
    script.hover(IDC_OPEN).waitForTip(L"tip 1010");
    act(script, [this] {
        EXPECT_TRUE(dialog.EnableToolTips(FALSE));
        EXPECT_EQ(ui::shownTip(), L"");
    });
    script.hover(IDOK).seeNoTip();
    act(script, [this] { EXPECT_TRUE(dialog.EnableToolTips(TRUE)); });
    run(dialog, script.hover(IDCANCEL).waitForTip(L"tip 2"));
}

TEST_F(ToolTipTest, TheToolThatWasUnderThePointerHasItsTipAgainAfterMovesWithoutTips) {
    script.hover(IDC_OPEN).waitForTip(L"tip 1010");
    act(script, [this] { dialog.EnableToolTips(FALSE); });
    pointAt(script, dialog, IDC_OPEN, 3).seeNoTip();
    act(script, [this] { dialog.EnableToolTips(); });
    pointAt(script, dialog, IDC_OPEN);
    run(dialog, script.waitForTip(L"tip 1010"));
}

TEST_F(ToolTipTest, ALabelWithAnIdHasNoneUnlessItIsDisabled) {
    // The system passes over a label that sends no notifications, and answers the dialog instead.
    TipDialog form(IDD_FORM);
    pointAt(script, form, IDC_APART).seeNoTip();
    act(script, [&form] { form.GetDlgItem(IDC_APART)->EnableWindow(FALSE); });
    run(form, script.hover(IDC_CHECK).waitForTip(L"tip 1003").hover(IDC_APART).waitForTip(L"tip 1012"));
}

/// Switches its tips off for as long as the pointer's moves over one control are handled.
class QuietOverOne : public TipDialog {
  public:
    BOOL PreTranslateMessage(MSG* message) override {
        const bool isQuiet = message->message == WM_MOUSEMOVE && message->hwnd == ::GetDlgItem(m_hWnd, IDC_LINES);
        if (isQuiet)
            EnableToolTips(FALSE);
        const BOOL handled = TipDialog::PreTranslateMessage(message);
        if (isQuiet)
            EnableToolTips(TRUE);
        return handled;
    }
};

TEST_F(ToolTipTest, OneControlIsKeptOutBySwitchingThemOffDuringItsMoves) {
    QuietOverOne quiet;
    script.hover(IDC_OPEN).waitForTip(L"tip 1010").hover(IDC_LINES).waitForTip(L"").seeNoTip();
    run(quiet, script.hover(IDC_OPEN).waitForTip(L"tip 1010").hover(IDC_LINES).waitForTip(L""));
    EXPECT_THAT(quiet.hits, Not(testing::Contains(IDC_LINES)));
}

TEST_F(ToolTipTest, ADisabledChildHasItsTip) {
    dialog.setUp = [this] { dialog.GetDlgItem(IDC_OPEN)->EnableWindow(FALSE); };
    run(dialog, script.hover(IDC_OPEN).waitForTip(L"tip 1010"));
}

TEST_F(ToolTipTest, TheEditOfAComboBoxIsPartOfIt) {
    TipDialog form(IDD_FORM);
    script.pointAt([&form] {
        CRect place;
        form.GetDlgItem(IDC_COMBO)->GetWindowRect(place);
        return CPoint(place.left + 10, place.top + 10);
    });
    run(form, script.waitForTip(L"tip 1008"));
}

TEST_F(ToolTipTest, APressAndAKeyEndATipUntilThePointerIsOverAnotherTool) {
    script.hover(IDOK).waitForTip(L"tip 1").press(VK_SHIFT).waitForTip(L"");
    pointAt(script, dialog, IDOK, 5).seeNoTip();
    script.hover(IDC_OPEN).waitForTip(L"tip 1010");
    act(script, [] { ui::pressButton(); }).waitForTip(L"");
    script.pointAway();
    act(script, [] { ui::releaseButton(); });
    script.hover(IDC_LINES).waitForTip(L"tip 1009").click(IDC_LINES).waitForTip(L"");
    pointAt(script, dialog, IDC_LINES, 5).seeNoTip();
    run(dialog, script.hover(IDCANCEL).waitForTip(L"tip 2"));
}

TEST_F(ToolTipTest, EveryPressAndEveryKeyEndATipAndNothingElseDoes) {
    MSG message{};
    const auto filter = [this, &message](UINT number) {
        message.hwnd = dialog.m_hWnd;
        message.message = number;
        dialog.FilterToolTipMessage(&message);
    };
    const UINT ends[] = {WM_LBUTTONDOWN,   WM_LBUTTONDBLCLK,   WM_RBUTTONDOWN,     WM_RBUTTONDBLCLK, WM_MBUTTONDOWN,
                         WM_MBUTTONDBLCLK, WM_NCLBUTTONDOWN,   WM_NCLBUTTONDBLCLK, WM_NCRBUTTONDOWN, WM_NCRBUTTONDBLCLK,
                         WM_NCMBUTTONDOWN, WM_NCMBUTTONDBLCLK, WM_KEYDOWN,         WM_KEYUP,         WM_CHAR,
                         WM_SYSKEYDOWN,    WM_KEYLAST};
    int tool = IDOK;
    for (const UINT number : ends) {
        tool = IDOK + IDCANCEL - tool;
        script.hover(tool).waitForTip(L"tip " + std::to_wstring(tool));
        act(script, [filter, number, tool] {
            for (const UINT other : {WM_TIMER, WM_MOUSEWHEEL, WM_PAINT, WM_KEYFIRST - 1, WM_KEYLAST + 1})
                filter(static_cast<UINT>(other));
            EXPECT_EQ(ui::shownTip(), L"tip " + std::to_wstring(tool)) << number;
            filter(number);
            EXPECT_EQ(ui::shownTip(), L"") << number;
        });
    }
    run(dialog, script);
}

TEST_F(ToolTipTest, EveryMoveAndEveryReleaseAsks) {
    ASSERT_TRUE(dialog.Create(IDD_KEYS));
    for (const UINT number : {WM_MOUSEMOVE, WM_NCMOUSEMOVE, WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP, WM_NCLBUTTONUP,
                              WM_NCRBUTTONUP, WM_NCMBUTTONUP}) {
        MSG message{};
        message.hwnd = dialog.GetDlgItem(IDOK)->m_hWnd;
        message.message = number;
        CRect place;
        dialog.GetDlgItem(IDOK)->GetWindowRect(place);
        message.pt = place.CenterPoint();
        dialog.hits.clear();
        dialog.FilterToolTipMessage(&message);
        EXPECT_THAT(dialog.hits, ElementsAre(IDOK)) << number;
    }
    dialog.DestroyWindow();
}

TEST_F(ToolTipTest, WhileAButtonIsHeldNobodyIsAskedAndNoTipComes) {
    script.hover(IDC_OPEN).waitForTip(L"tip 1010");
    act(script, [this] {
        ui::pressButton();
        dialog.hits.clear();
    });
    script.hover(IDOK).seeNoTip();
    act(script, [this] {
        EXPECT_THAT(dialog.hits, IsEmpty());
        ui::releaseButton();
    });
    script.waitUntil("the release asks", [this](const View&) { return !dialog.hits.empty(); });
    pointAt(script, dialog, IDOK, 5);
    run(dialog, script.waitForTip(L"tip 1"));
}

TEST_F(ToolTipTest, CancelEndsTheTipThatIsShown) {
    script.hover(IDC_OPEN).waitForTip(L"tip 1010");
    act(script, [] {
        CWnd::CancelToolTips();
        EXPECT_EQ(ui::shownTip(), L"");
    });
    run(dialog, script);
}

TEST_F(ToolTipTest, AWindowThatIsNoLongerActiveShowsNone) {
    Frame other;
    ASSERT_TRUE(other.CreateAt(CRect(600, 500, 800, 600)));
    script.hover(IDC_OPEN).waitForTip(L"tip 1010");
    act(script, [&other] {
        other.SetActiveWindow();
        EXPECT_EQ(ui::shownTip(), L"");
    });
    pointAt(script, dialog, IDOK).seeNoTip();
    act(script, [this] { dialog.SetActiveWindow(); });
    run(dialog, script.hover(IDCANCEL).waitForTip(L"tip 2"));
    other.DestroyWindow();
}

TEST_F(ToolTipTest, ATipWindowThatIsNewShowsNoneOverAWindowThatIsNotActive) {
    Frame other;
    ASSERT_TRUE(other.CreateAt(CRect(600, 500, 800, 600)));
    act(script, [&other] { other.SetActiveWindow(); });
    pointAt(script, dialog, IDOK).seeNoTip();
    act(script, [this] { dialog.SetActiveWindow(); });
    run(dialog, script);
    other.DestroyWindow();
    EXPECT_THAT(dialog.hits, testing::Contains(IDOK));
}

/// Shows its tips while another window is active, too.
class AlwaysTips : public TipDialog {
  public:
    INT_PTR OnToolHitTest(CPoint point, TOOLINFO* tool) const override {
        tool->uFlags |= TTF_ALWAYSTIP | TTF_NOTBUTTON;
        return TipDialog::OnToolHitTest(point, tool);
    }
};

TEST_F(ToolTipTest, AToolMayHaveItsTipWhileAnotherWindowIsActive) {
    AlwaysTips always;
    Frame other;
    ASSERT_TRUE(other.CreateAt(CRect(600, 500, 800, 600)));
    act(script, [&other] { other.SetActiveWindow(); });
    pointAt(script, always, IDOK).waitForTip(L"tip 1");
    act(script, [&always] {
        // The control hears nothing of the flags that are the library's.
        TOOLINFO tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        ASSERT_THAT(tipWindows(), SizeIs(1));
        ASSERT_TRUE(::SendMessage(tipWindows()[0], TTM_ENUMTOOLS, 0, reinterpret_cast<LPARAM>(&tool)));
        EXPECT_EQ(tool.uFlags & (TTF_ALWAYSTIP | TTF_NOTBUTTON), 0u);
        always.SetActiveWindow();
    });
    run(always, script);
    other.DestroyWindow();
}

/// Keeps the messages of the mouse from its base.
class KeepsMessages : public TipDialog {
  public:
    bool filters = false;
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message < WM_MOUSEFIRST || message->message > WM_MOUSELAST)
            return TipDialog::PreTranslateMessage(message);
        if (filters)
            FilterToolTipMessage(message);
        return FALSE;
    }
};

TEST_F(ToolTipTest, AnOverrideThatKeepsMessagesFromItsBaseFiltersThemItself) {
    KeepsMessages keeps;
    script.hover(IDC_OPEN).seeNoTip();
    act(script, [&keeps] { keeps.filters = true; });
    run(keeps, script.hover(IDOK).waitForTip(L"tip 1"));
}

TEST_F(ToolTipTest, TheBaseFindsTheVisibleChildUnderAPoint) {
    ASSERT_TRUE(dialog.Create(IDD_KEYS));
    const auto at = [this](const CWnd* child, TOOLINFO* tool) {
        CRect place;
        child->GetWindowRect(place);
        dialog.ScreenToClient(place);
        return dialog.CWnd::OnToolHitTest(place.CenterPoint(), tool);
    };
    TOOLINFO tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    EXPECT_EQ(at(dialog.GetDlgItem(IDC_OPEN), &tool), IDC_OPEN);
    EXPECT_EQ(tool.hwnd, dialog.m_hWnd);
    EXPECT_EQ(tool.uId, reinterpret_cast<UINT_PTR>(dialog.GetDlgItem(IDC_OPEN)->m_hWnd));
    EXPECT_EQ(tool.uFlags, UINT{TTF_IDISHWND});
    EXPECT_EQ(tool.lpszText, LPSTR_TEXTCALLBACK);
    tool.uFlags = 0;
    EXPECT_EQ(at(dialog.GetDlgItem(IDC_TEXT), &tool), IDC_TEXT);
    EXPECT_EQ(tool.uFlags, TTF_IDISHWND | TTF_NOTBUTTON | TTF_CENTERTIP);
    // The label, whose id is -1.
    EXPECT_EQ(at(dialog.GetWindow(GW_CHILD), nullptr), -1);
    dialog.GetDlgItem(IDC_OPEN)->EnableWindow(FALSE);
    EXPECT_EQ(at(dialog.GetDlgItem(IDC_OPEN), nullptr), IDC_OPEN);
    dialog.GetDlgItem(IDC_OPEN)->ShowWindow(SW_HIDE);
    EXPECT_EQ(at(dialog.GetDlgItem(IDC_OPEN), nullptr), -1);
    TOOLINFO small{};
    small.cbSize = TTTOOLINFOW_V1_SIZE - 1;
    EXPECT_EQ(at(dialog.GetDlgItem(IDOK), &small), IDOK);
    EXPECT_EQ(small.hwnd, nullptr);
    dialog.DestroyWindow();
}

} // namespace

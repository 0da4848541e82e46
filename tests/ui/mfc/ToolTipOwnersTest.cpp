// Tips of windows in windows: which of them is asked, whose the tip window is, and what is left when one goes.
#include "ToolTipFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using ui::Script;
using ui::View;

/// Whose the only tip window is.
HWND ownerOfTips(const std::vector<HWND>& windows) {
    EXPECT_THAT(windows, SizeIs(1));
    return windows.empty() ? nullptr : ::GetWindow(windows[0], GW_OWNER);
}

class NestedToolTipTest : public ToolTipFixture {
  protected:
    void SetUp() override {
        ToolTipFixture::SetUp();
        outer.open = [this] { nested.DoModal(); };
        nested.setUp = [this] {
            // One button over the other, so that the outer dialog would find a tool of its own there.
            CRect below;
            CRect above;
            outer.GetDlgItem(IDC_OPEN)->GetWindowRect(below);
            nested.GetDlgItem(IDOK)->GetWindowRect(above);
            CRect place;
            nested.GetWindowRect(place);
            place.OffsetRect(below.CenterPoint() - above.CenterPoint());
            nested.MoveWindow(place);
            nested.EnableToolTips(nestedHasTips);
        };
        script.hover(IDC_OPEN).waitForTip(L"tip 1010");
        act(script, [this] { EXPECT_EQ(ownerOfTips(tipWindows()), outer.m_hWnd); });
        script.click(IDC_OPEN).waitUntil("the nested dialog is shown", [this](const View& view) {
            return nested.m_hWnd && view.window() == nested.m_hWnd && nested.IsWindowVisible();
        });
    }
    /// Closes the nested dialog, and looks for the outer one's tips.
    void runToTheEnd() {
        script.press(VK_ESCAPE)
            .waitUntil("the nested dialog is gone", [this](const View&) { return !nested.m_hWnd; })
            .hover(IDCANCEL)
            .waitForTip(L"tip 2");
        act(script, [this] { EXPECT_EQ(ownerOfTips(tipWindows()), outer.m_hWnd); });
        run(outer, script);
    }

    TipDialog outer;
    TipDialog nested{IDD_NESTED, &outer};
    BOOL nestedHasTips = TRUE;
    Script script;
};

TEST_F(NestedToolTipTest, ANestedDialogHasTipsOfItsOwn) {
    pointAt(script, nested, IDOK, 3).waitForTip(L"tip 1");
    act(script, [this] { EXPECT_EQ(ownerOfTips(tipWindows()), nested.m_hWnd); });
    runToTheEnd();
}

TEST_F(NestedToolTipTest, ANestedDialogWithoutTipsShowsNoneOfTheOneBelow) {
    nestedHasTips = FALSE;
    act(script, [this] { outer.hits.clear(); });
    pointAt(script, nested, IDOK, 3).seeNoTip();
    act(script, [this] { EXPECT_THAT(outer.hits, IsEmpty()); });
    // The caption is no business of IsDialogMessage, so its moves go up to the outer dialog.
    script.pointAt([this] {
        CRect place;
        nested.GetWindowRect(place);
        return CPoint(place.right - 60, place.top + 10);
    });
    script.seeNoTip();
    runToTheEnd();
}

/// A window inside the dialog that describes itself as "page".
class Page : public CWnd {
  public:
    INT_PTR OnToolHitTest(CPoint, TOOLINFO* tool) const override {
        tool->hwnd = m_hWnd;
        tool->uId = 1;
        GetClientRect(&tool->rect);
        tool->lpszText = _wcsdup(L"page");
        return 1;
    }
};

class PageToolTipTest : public ToolTipFixture {
  protected:
    void SetUp() override {
        ToolTipFixture::SetUp();
        dialog.setUp = [this] {
            CRect place;
            dialog.GetDlgItem(IDC_LINES)->GetWindowRect(place);
            dialog.ScreenToClient(place);
            dialog.GetDlgItem(IDC_LINES)->DestroyWindow();
            ASSERT_TRUE(page.Create(nullptr, L"", WS_VISIBLE, place, &dialog, IDC_LINES));
            page.EnableToolTips();
        };
    }
    TipDialog dialog;
    Page page;
    Script script;
};

TEST_F(PageToolTipTest, TheInnermostWindowWithTipsIsAsked) {
    script.hover(IDC_LINES).waitForTip(L"page");
    act(script, [this] {
        EXPECT_EQ(ownerOfTips(tipWindows()), dialog.m_hWnd);
        page.EnableToolTips(FALSE);
    });
    pointAt(script, dialog, IDC_LINES, 3);
    run(dialog, script.waitForTip(L"tip 1009"));
}

TEST_F(PageToolTipTest, TwoWindowsMayAnswerTheSameNumber) {
    run(dialog, script.hover(IDC_LINES).waitForTip(L"page").hover(IDOK).waitForTip(L"tip 1"));
}

TEST_F(PageToolTipTest, AWindowThatMovesIntoAnotherOneHasItsTipsThere) {
    Frame other;
    ASSERT_TRUE(other.CreateAt(CRect(600, 500, 900, 800)));
    script.hover(IDC_LINES).waitForTip(L"page");
    act(script, [&] {
        page.SetParent(&other);
        other.SetActiveWindow();
    });
    script.pointAt([this] {
        CRect place;
        page.GetWindowRect(place);
        return place.CenterPoint();
    });
    script.waitForTip(L"page");
    act(script, [&] {
        EXPECT_EQ(ownerOfTips(tipWindows()), other.m_hWnd);
        dialog.SetActiveWindow();
    });
    run(dialog, script);
    other.DestroyWindow();
}

TEST_F(PageToolTipTest, ANewTipWindowGetsTheToolThatTheFormerOneHad) {
    Frame other;
    ASSERT_TRUE(other.Create());
    ASSERT_TRUE(dialog.Create(IDD_KEYS));
    for (CWnd* const parent : {static_cast<CWnd*>(&dialog), static_cast<CWnd*>(&other)}) {
        page.SetParent(parent);
        MSG move{};
        move.hwnd = page.m_hWnd;
        move.message = WM_MOUSEMOVE;
        page.FilterToolTipMessage(&move);
        EXPECT_EQ(ownerOfTips(tipWindows()), parent->m_hWnd);
        EXPECT_EQ(::SendMessage(tipWindows().at(0), TTM_GETTOOLCOUNT, 0, 0), 1);
    }
    other.DestroyWindow();
    dialog.DestroyWindow();
}

TEST_F(PageToolTipTest, DisablingThoseOfOneWindowLeavesTheTipOfAnother) {
    script.hover(IDC_OPEN).waitForTip(L"tip 1010");
    act(script, [this] {
        page.EnableToolTips(FALSE);
        EXPECT_EQ(ui::shownTip(), L"tip 1010");
    });
    run(dialog, script);
}

TEST_F(PageToolTipTest, AWindowThatGoesTakesItsTipAlong) {
    script.hover(IDC_LINES).waitForTip(L"page");
    act(script, [this] {
        page.DestroyWindow();
        EXPECT_EQ(ui::shownTip(), L"");
        ASSERT_THAT(tipWindows(), SizeIs(1));
        EXPECT_EQ(::SendMessage(tipWindows()[0], TTM_GETTOOLCOUNT, 0, 0), 0);
    });
    run(dialog, script.hover(IDC_OPEN).waitForTip(L"tip 1010"));
}

TEST_F(PageToolTipTest, ADialogThatGoesUnderItsTipCanOpenAgain) {
    dialog.setUp = nullptr;
    for (int time = 0; time < 2; ++time) {
        Script each;
        each.hover(IDC_OPEN).waitForTip(L"tip 1010");
        act(each, [this] { dialog.EndDialog(IDOK); });
        ui::bringPointerAway();
        ui::perform(each, [this] { EXPECT_EQ(dialog.DoModal(), IDOK); });
        EXPECT_THAT(tipWindows(), IsEmpty());
    }
}

} // namespace

// The list's hit test, and who hears its notifications.

#include "DialogFixture.h"

namespace {

class FrameworkList : public DialogFixture {
  protected:
    TestDialog dialog{IDD_FIXED};
    COrvUiListCtrl list;

    FrameworkList() {
        dialog.setUp = [this] {
            list.SubclassDlgItem(IDC_TEST_LIST, &dialog);
            list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80, 0);
            list.InsertColumn(1, L"Description", LVCFMT_LEFT, 60, 1);
            list.InsertItem(0, L"First");
            list.SetItemText(0, 1, L"A text too long for it");
            list.InsertItem(1, L"Second");
        };
    }
    CPoint middleOf(int row, int column) {
        RECT bounds = {};
        ListView_GetSubItemRect(list.GetSafeHwnd(), row, column, LVIR_BOUNDS, &bounds);
        if (column == 0)
            bounds.right = bounds.left + list.GetColumnWidth(0);
        return CPoint((bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2);
    }
    ui::Script& pointAtCell(ui::Script& script, int row, int column) {
        return script.pointAt([this, row, column] {
            POINT point = middleOf(row, column);
            ClientToScreen(list.GetSafeHwnd(), &point);
            return point;
        });
    }
    CPoint onScreen(CPoint point) {
        ClientToScreen(list.GetSafeHwnd(), &point);
        return point;
    }
    /// The colour of a row left of its name, where nothing is written.
    COLORREF background(int row) {
        RECT label = {};
        ListView_GetItemRect(list.GetSafeHwnd(), row, &label, LVIR_LABEL);
        CClientDC dc(&list);
        return ::GetPixel(dc.m_hDC, label.left + 1, (label.top + label.bottom) / 2);
    }
    bool offersTip() {
        CRect rect;
        return list.OnGetTipRect(rect) != 0;
    }
};

TEST_F(FrameworkList, theHitTestTellsTheCell) {
    dialog.run(look("the cells", [&] {
        int row = -5;
        int column = -5;
        CPoint point = onScreen(middleOf(1, 1));
        EXPECT_EQ(list.GetItemAtPoint(point, row, column), 0);
        EXPECT_EQ(point, middleOf(1, 1)) << "in client coordinates now";
        EXPECT_EQ(row, 1);
        EXPECT_EQ(column, 1);
        point = onScreen(middleOf(0, 0));
        EXPECT_EQ(list.GetItemAtPoint(point, row, column), 0);
        EXPECT_EQ(row, 0);
        EXPECT_EQ(column, 0);
    }));
}

TEST_F(FrameworkList, beyondTheLastRowAndColumnThereIsNoCellAndNoTip) {
    dialog.run(look("the cells", [&] {
        for (const CPoint& where : {CPoint(20, 100), CPoint(200, middleOf(0, 0).y), CPoint(-5, -5)}) {
            int row = 5;
            int column = 5;
            CPoint point = onScreen(where);
            EXPECT_NE(list.GetItemAtPoint(point, row, column), 0);
            EXPECT_LT(row, 0);
            EXPECT_LT(column, 0);
            CRect rect;
            CString text;
            EXPECT_FALSE(list.TipAtPoint(where, rect, text));
        }
    }));
}

/// A list that decides itself about tips, as the grids of modules do.
class DecidingList : public COrvUiListCtrl {
  public:
    BOOL answer = FALSE;
    BOOL OnGetTipRect(CRect& rect) override {
        COrvUiListCtrl::OnGetTipRect(rect);
        rect.right = rect.left + 11;
        return answer;
    }
};

TEST_F(FrameworkList, aDerivedListDecidesWhetherATipShowsAndWhere) {
    DecidingList deciding;
    CPoint cell;
    const auto setUp = dialog.setUp;
    dialog.setUp = [&] {
        setUp();
        cell = middleOf(0, 1);
        list.UnsubclassWindow();
        deciding.SubclassDlgItem(IDC_TEST_LIST, &dialog);
    };
    ui::Script script;
    script.pointAt([&] {
        POINT point = cell;
        ClientToScreen(deciding.GetSafeHwnd(), &point);
        return point;
    });
    script.look("its decision", [&](const ui::View&) {
        CRect rect;
        CString text;
        EXPECT_FALSE(deciding.TipAtPoint(cell, rect, text));
        deciding.answer = TRUE;
        EXPECT_TRUE(deciding.TipAtPoint(cell, rect, text));
        EXPECT_EQ(rect.Width(), 11);
        EXPECT_STREQ(text, L"A text too long for it");
    });
    dialog.run(script);
}

TEST_F(FrameworkList, aTipShowsForCutOffTextOnly) {
    ui::Script script;
    pointAtCell(script, 0, 1);
    script.look("the long text", [&](const ui::View&) {
        CRect rect;
        EXPECT_TRUE(list.OnGetTipRect(rect));
        EXPECT_TRUE(rect.PtInRect(middleOf(0, 1)));
        EXPECT_EQ(rect.Width(), 60);
    });
    pointAtCell(script, 0, 0);
    script.look("a short text", [&](const ui::View&) { EXPECT_FALSE(offersTip()); });
    script.look("room for the long one", [&](const ui::View&) { list.SetColumnWidth(1, 200); });
    pointAtCell(script, 0, 1);
    script.look("a long text with room", [&](const ui::View&) { EXPECT_FALSE(offersTip()); });
    dialog.run(script);
}

TEST_F(FrameworkList, whatTheWindowsEdgeCutsOffIsCutOff) {
    CRect client;
    ui::Script script = look("a column of which only 40 pixels are in the window", [&] {
        GetClientRect(list.GetSafeHwnd(), &client);
        list.SetColumnWidth(0, client.right - 40);
        list.SetColumnWidth(1, 400);
    });
    script.pointAt([&] {
        POINT point = {client.right - 20, middleOf(0, 0).y};
        ClientToScreen(list.GetSafeHwnd(), &point);
        return point;
    });
    script.look("the long text", [&](const ui::View&) { EXPECT_TRUE(offersTip()); });
    dialog.run(script);
}

/// A window that isn't the list's parent and counts the notifications that it gets.
class Listener : public CWnd {
  public:
    int selections = 0;

  protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        selections += reinterpret_cast<NMHDR*>(lParam)->code == LVN_ITEMCHANGED;
        return CWnd::OnNotify(wParam, lParam, result);
    }
};

TEST_F(FrameworkList, theNamedWindowHearsTheNotificationsWhereverItStands) {
    Listener listener;
    dialog.run(look("selections", [&] {
        ASSERT_TRUE(listener.CreateEx(0, L"STATIC", L"", WS_CHILD, 0, 0, 1, 1, dialog.GetSafeHwnd(), nullptr));
        list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
        EXPECT_EQ(listener.selections, 0);
        list.SetOrvUiParent(&listener);
        list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
        EXPECT_GT(listener.selections, 0);
        const int heard = listener.selections;
        list.SetOrvUiParent(nullptr);
        list.SetItemState(0, 0, LVIS_SELECTED);
        EXPECT_EQ(listener.selections, heard);
        listener.DestroyWindow();
    }));
}

int distance(COLORREF one, COLORREF other) {
    return std::abs(GetRValue(one) - GetRValue(other)) + std::abs(GetGValue(one) - GetGValue(other)) +
           std::abs(GetBValue(one) - GetBValue(other));
}

TEST_F(FrameworkList, aSelectedRowIsSeenAlsoWithoutTheFocus) {
    COLORREF focused = 0, unfocused = 0, other = 0;
    const COLORREF window = ::GetSysColor(COLOR_WINDOW);
    ui::Script script;
    script
        .look("a selection",
              [&](const ui::View&) {
                  list.ModifyStyle(0, LVS_SHOWSELALWAYS);
                  list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
                  list.SetFocus();
              })
        .waitUntil("drawn with the focus",
                   [&](const ui::View&) { return (focused = background(1)) == ::GetSysColor(COLOR_HIGHLIGHT); })
        .look("the focus goes", [&](const ui::View&) { ::SetFocus(dialog.control(IDCANCEL)); })
        .waitUntil("drawn without it", [&](const ui::View&) { return (unfocused = background(1)) != focused; })
        .look("another row", [&](const ui::View&) { other = background(0); });
    dialog.run(script);
    EXPECT_EQ(other, window);
    EXPECT_GT(distance(unfocused, window), 60);
    EXPECT_GT(distance(unfocused, ::GetSysColor(COLOR_BTNFACE)), 60);
    EXPECT_GT(distance(unfocused, focused), 60);
}

TEST_F(FrameworkList, aListThatHidesItsSelectionWithoutTheFocusDoesSo) {
    COLORREF unfocused = 0;
    ui::Script script;
    script
        .look("a selection",
              [&](const ui::View&) {
                  list.ModifyStyle(LVS_SHOWSELALWAYS, 0);
                  list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
                  list.SetFocus();
              })
        .waitUntil("drawn with the focus",
                   [&](const ui::View&) { return background(1) == ::GetSysColor(COLOR_HIGHLIGHT); })
        .look("the focus goes", [&](const ui::View&) { ::SetFocus(dialog.control(IDCANCEL)); })
        .waitUntil("drawn without it",
                   [&](const ui::View&) { return (unfocused = background(1)) != ::GetSysColor(COLOR_HIGHLIGHT); });
    dialog.run(script);
    EXPECT_EQ(unfocused, ::GetSysColor(COLOR_WINDOW));
}

} // namespace

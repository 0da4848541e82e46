// The list's hit test, and who hears its notifications.

#include "DialogFixture.h"

namespace {

class ListCtrl : public DialogFixture {
  protected:
    TestDialog dialog{IDD_FIXED};
    COrvUiListCtrl list;

    ListCtrl() {
        dialog.setUp = [this] {
            list.SubclassDlgItem(IDC_TEST_LIST, &dialog);
            list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80, 0);
            list.InsertColumn(1, L"Description", LVCFMT_LEFT, 60, 1);
            list.InsertItem(0, L"First");
            list.SetItemText(0, 1, L"A description that is far too long for its column");
            list.InsertItem(1, L"Second");
            movePointer({1, 1});
        };
    }
    void run(std::vector<Step> steps) {
        steps.push_back(dialog.close());
        Steps running(std::move(steps));
        dialog.DoModal();
    }
    CPoint middleOf(int row, int column) {
        RECT bounds = {};
        ListView_GetSubItemRect(list.GetSafeHwnd(), row, column, LVIR_BOUNDS, &bounds);
        if (column == 0)
            bounds.right = bounds.left + list.GetColumnWidth(0);
        return CPoint((bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2);
    }
    void pointAt(int row, int column) {
        POINT point = middleOf(row, column);
        ClientToScreen(list.GetSafeHwnd(), &point);
        movePointer(point);
    }
};

TEST_F(ListCtrl, theHitTestTellsTheCell) {
    run({act("test", [&] {
        int row = -5;
        int column = -5;
        CPoint point = middleOf(1, 1);
        EXPECT_EQ(list.GetItemAtPoint(point, row, column), 0);
        EXPECT_EQ(row, 1);
        EXPECT_EQ(column, 1);
        point = middleOf(0, 0);
        EXPECT_EQ(list.GetItemAtPoint(point, row, column), 0);
        EXPECT_EQ(row, 0);
        EXPECT_EQ(column, 0);
    })});
}

TEST_F(ListCtrl, beyondTheLastRowThereIsNoCellAndNoTip) {
    run({act("test", [&] {
        int row = 5;
        int column = 5;
        CPoint point(20, 100);
        EXPECT_NE(list.GetItemAtPoint(point, row, column), 0);
        EXPECT_LT(row, 0);
        EXPECT_LT(column, 0);
    })});
}

TEST_F(ListCtrl, aTipShowsForCutOffTextOnly) {
    run({act("point at the long text", [&] { pointAt(0, 1); }),
         {"a tip for it",
          [&] {
              CRect rect;
              return list.OnGetTipRect(rect) && rect.PtInRect(middleOf(0, 1));
          }},
         act("point at a short text", [&] { pointAt(0, 0); }),
         {"no tip for it",
          [&] {
              CRect rect;
              return !list.OnGetTipRect(rect);
          }},
         act("with room there is none for the long one either",
             [&] {
                 list.SetColumnWidth(1, 240);
                 pointAt(0, 1);
             }),
         {"no tip", [&] {
              CRect rect;
              return !list.OnGetTipRect(rect);
          }}});
}

TEST_F(ListCtrl, whatTheWindowsEdgeCutsOffIsCutOff) {
    run({act("a column that reaches beyond the window",
             [&] {
                 list.SetColumnWidth(0, 250);
                 list.SetColumnWidth(1, 400);
                 RECT client = {};
                 GetClientRect(list.GetSafeHwnd(), &client);
                 ASSERT_LT(client.right, 650);
                 POINT point = {client.right - 10, middleOf(0, 0).y};
                 ClientToScreen(list.GetSafeHwnd(), &point);
                 movePointer(point);
             }),
         {"a tip", [&] {
              CRect rect;
              return list.OnGetTipRect(rect) != 0;
          }}});
}

/// A window that is no parent of the list, and counts what it hears.
class Listener : public CWnd {
  public:
    int selections = 0;

  protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        selections += reinterpret_cast<NMHDR*>(lParam)->code == LVN_ITEMCHANGED;
        return CWnd::OnNotify(wParam, lParam, result);
    }
};

TEST_F(ListCtrl, theNamedWindowHearsTheNotificationsWhereverItStands) {
    Listener listener;
    run({act("select", [&] {
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
    })});
}

} // namespace

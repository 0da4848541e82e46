// A list view with a hit test by cell and tips for cells whose text is cut off.

#include "OrvUiControls.h"

#include "instruments/HostCalls.h"

BEGIN_MESSAGE_MAP(COrvUiListCtrl, CListCtrl)
END_MESSAGE_MAP()

namespace {

// The white space that a list view leaves on each side of a cell's text.
constexpr int kTextMargin = 6;

// A third of the way from the window's colour to that of a selection.
COLORREF paleSelection() {
    const COLORREF window = ::GetSysColor(COLOR_WINDOW);
    const COLORREF selection = ::GetSysColor(COLOR_HIGHLIGHT);
    const auto between = [](int from, int to) { return from + (to - from) / 3; };
    return RGB(between(GetRValue(window), GetRValue(selection)), between(GetGValue(window), GetGValue(selection)),
               between(GetBValue(window), GetBValue(selection)));
}

// Without the focus the control gives a selected row the colour of a dialog, which hardly anybody can tell from white.
LRESULT drawSelectionWithoutFocus(NMLVCUSTOMDRAW& draw) {
    const HWND list = draw.nmcd.hdr.hwndFrom;
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT)
        return ::GetFocus() == list ? CDRF_DODEFAULT : CDRF_NOTIFYITEMDRAW;
    const int row = static_cast<int>(draw.nmcd.dwItemSpec);
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || !ListView_GetItemState(list, row, LVIS_SELECTED) ||
        !(::GetWindowLong(list, GWL_STYLE) & LVS_SHOWSELALWAYS))
        return CDRF_DODEFAULT;
    draw.nmcd.uItemState &= ~CDIS_SELECTED; // or the control takes its own colours
    draw.clrText = ::GetSysColor(COLOR_WINDOWTEXT);
    draw.clrTextBk = paleSelection();
    return CDRF_DODEFAULT;
}

} // namespace

COrvUiListCtrl::COrvUiListCtrl() : m_notified(nullptr) {}
COrvUiListCtrl::~COrvUiListCtrl() {}

int COrvUiListCtrl::GetItemAtPoint(CPoint& point, int& row, int& column) {
    ScreenToClient(&point);
    return !CellAt(point, row, column);
}

bool COrvUiListCtrl::CellAt(CPoint point, int& row, int& column) const {
    LVHITTESTINFO hit = {};
    hit.pt = point;
    row = ListView_SubItemHitTest(GetSafeHwnd(), &hit);
    column = row < 0 ? -1 : hit.iSubItem;
    return row >= 0 && column >= 0;
}

int COrvUiListCtrl::OnGetTipRect(CRect& rect) {
    CPoint point;
    GetCursorPos(&point);
    int row = -1;
    int column = -1;
    if (GetItemAtPoint(point, row, column) != 0 || !CellRect(row, column, rect))
        return FALSE;
    return IsCutOff(row, column, rect);
}

void COrvUiListCtrl::SetOrvUiParent(CWnd* parent) {
    instruments::HostCall call("SetOrvUiParent", static_cast<const void*>(parent));
    m_notified = parent;
}

bool COrvUiListCtrl::TipAtPoint(CPoint point, CRect& rect, CString& text) {
    int row = -1;
    int column = -1;
    if (!CellAt(point, row, column) || !CellRect(row, column, rect) || !OnGetTipRect(rect))
        return false;
    text = GetItemText(row, column);
    return !text.IsEmpty();
}

BOOL COrvUiListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const BOOL handled = CListCtrl::OnChildNotify(message, wParam, lParam, result);
    if (!handled && message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == NM_CUSTOMDRAW) {
        *result = drawSelectionWithoutFocus(*reinterpret_cast<NMLVCUSTOMDRAW*>(lParam));
        return TRUE;
    }
    const bool elsewhere = m_notified && m_notified->GetSafeHwnd() != ::GetParent(GetSafeHwnd());
    if (handled || message != WM_NOTIFY || !elsewhere || !m_notified->GetSafeHwnd())
        return handled;
    const LRESULT answer = m_notified->SendMessage(WM_NOTIFY, wParam, lParam);
    if (result && answer)
        *result = answer;
    return answer != 0;
}

bool COrvUiListCtrl::CellRect(int row, int column, CRect& rect) const {
    // Column 0 stands for the whole row in the control's own answer, so its right edge comes from its width.
    if (!ListView_GetSubItemRect(GetSafeHwnd(), row, column, LVIR_BOUNDS, &rect))
        return false;
    if (column == 0)
        rect.right = rect.left + ListView_GetColumnWidth(GetSafeHwnd(), 0);
    return true;
}

bool COrvUiListCtrl::IsCutOff(int row, int column, const CRect& cell) const {
    const CString text = GetItemText(row, column);
    int room = cell.Width() - 2 * kTextMargin;
    RECT label = {};
    // Check box and image take their part of the first column.
    if (column == 0 && ListView_GetItemRect(GetSafeHwnd(), row, &label, LVIR_LABEL))
        room -= label.left - cell.left;
    RECT client = {};
    ::GetClientRect(GetSafeHwnd(), &client);
    if (cell.right > client.right) // the window's edge cuts as well as the column's
        room -= cell.right - client.right;
    return !text.IsEmpty() && ListView_GetStringWidth(GetSafeHwnd(), text.GetString()) > room;
}

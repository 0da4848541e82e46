// The list view's members that are more than one message.
#include <afxcmn.h>

IMPLEMENT_DYNAMIC(CListCtrl, CWnd)

namespace {

// A selection's POSITION is the item's number and 1, so that null is the end.
POSITION positionOf(int item) {
    return reinterpret_cast<POSITION>(static_cast<INT_PTR>(item) + 1);
}
int itemAt(POSITION position) {
    return static_cast<int>(reinterpret_cast<INT_PTR>(position)) - 1;
}

} // namespace

CImageList* CListCtrl::SetImageList(CImageList* pImageList, int nImageListType) {
    const LPARAM list = L(pImageList ? pImageList->m_hImageList : nullptr);
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(LVM_SETIMAGELIST, W(nImageListType), list)));
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem) {
    LVCOLUMN column = {};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = const_cast<LPTSTR>(lpszColumnHeading);
    column.fmt = nFormat;
    if (nWidth != -1) {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1) {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return InsertColumn(nCol, &column);
}

BOOL CListCtrl::GetColumnOrderArray(LPINT piArray, int iCount) const {
    const int count = iCount == -1 ? GetHeaderCtrl()->GetItemCount() : iCount;
    return Is(SendMessage(LVM_GETCOLUMNORDERARRAY, W(count), L(piArray)));
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const {
    return static_cast<CHeaderCtrl*>(CWnd::FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER))));
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                        LPARAM lParam, int nIndent) {
    LVITEM item = {};
    item.mask = nMask;
    item.iItem = nItem;
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.state = nState;
    item.stateMask = nStateMask;
    item.lParam = lParam;
    item.iIndent = nIndent;
    return SetItem(&item);
}

int CListCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                          LPARAM lParam) {
    LVITEM item = {};
    item.mask = nMask;
    item.iItem = nItem;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.state = nState;
    item.stateMask = nStateMask;
    item.iImage = nImage;
    item.lParam = lParam;
    return InsertItem(&item);
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const {
    CString text;
    // The control doesn't say how long a text is, only how much of it fitted.
    for (int capacity = 128;; capacity *= 2) {
        const int copied = GetItemText(nItem, nSubItem, text.GetBuffer(capacity), capacity);
        text.ReleaseBuffer(copied);
        if (copied < capacity - 1)
            return text;
    }
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const {
    LVITEM item = {};
    item.iSubItem = nSubItem;
    item.pszText = lpszText;
    item.cchTextMax = nLen;
    return static_cast<int>(SendMessage(LVM_GETITEMTEXT, W(nItem), L(&item)));
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText) {
    LVITEM item = {};
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPTSTR>(lpszText);
    return Is(SendMessage(LVM_SETITEMTEXT, W(nItem), L(&item)));
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const {
    LVITEM item = {};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
    GetItem(&item);
    return static_cast<DWORD_PTR>(item.lParam);
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData) {
    return SetItem(nItem, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(dwData));
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask) {
    LVITEM item = {};
    item.state = nState;
    item.stateMask = nMask;
    return SetItemState(nItem, &item);
}

POSITION CListCtrl::GetFirstSelectedItemPosition() const {
    return positionOf(GetNextItem(-1, LVNI_SELECTED));
}

int CListCtrl::GetNextSelectedItem(POSITION& pos) const {
    const int item = itemAt(pos);
    pos = positionOf(GetNextItem(item, LVNI_SELECTED));
    return item;
}

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const {
    lpRect->left = static_cast<LONG>(nCode);
    return Is(SendMessage(LVM_GETITEMRECT, W(nItem), L(lpRect)));
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const {
    ref.top = iSubItem;
    ref.left = nArea;
    return Is(SendMessage(LVM_GETSUBITEMRECT, W(iItem), L(&ref)));
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const {
    LVHITTESTINFO info = {};
    info.pt = pt;
    const int item = HitTest(&info);
    if (pFlags)
        *pFlags = info.flags;
    return item;
}

CEdit* CListCtrl::EditLabel(int nItem) {
    return static_cast<CEdit*>(CWnd::FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_EDITLABEL, W(nItem)))));
}

CEdit* CListCtrl::GetEditControl() const {
    return static_cast<CEdit*>(CWnd::FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_GETEDITCONTROL))));
}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

// CListCtrl: the list view. Items, subitems and columns count from 0; -1 says that there is none.
// Narrower than MFC: no groups, tiles or work areas; images by CImageList only.
#pragma once

#include "../afxtempl.h"
#include "CEdit.h"
#include "CHeaderCtrl.h"

class AFXMFC_API CListCtrl : public CWnd {
    DECLARE_DYNAMIC(CListCtrl)
  public:
    using CWnd::Create;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(WC_LISTVIEW, nullptr, dwStyle, rect, pParentWnd, nID);
    }

    // --- styles, colours, images ---
    DWORD GetExtendedStyle() const { return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE)); }
    DWORD SetExtendedStyle(DWORD dwNewStyle) {
        return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(dwNewStyle)));
    }
    COLORREF GetBkColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETBKCOLOR)); }
    BOOL SetBkColor(COLORREF cr) { return Is(SendMessage(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(cr))); }
    COLORREF GetTextColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETTEXTCOLOR)); }
    BOOL SetTextColor(COLORREF cr) { return Is(SendMessage(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(cr))); }
    COLORREF GetTextBkColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETTEXTBKCOLOR)); }
    BOOL SetTextBkColor(COLORREF cr) { return Is(SendMessage(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(cr))); }
    CImageList* GetImageList(int nImageList) const {
        return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(LVM_GETIMAGELIST, W(nImageList))));
    }
    CImageList* SetImageList(CImageList* pImageList, int nImageListType);
    UINT GetCallbackMask() const { return static_cast<UINT>(SendMessage(LVM_GETCALLBACKMASK)); }
    BOOL SetCallbackMask(UINT nMask) { return Is(SendMessage(LVM_SETCALLBACKMASK, nMask)); }

    // --- columns ---
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const { return Is(SendMessage(LVM_GETCOLUMN, W(nCol), L(pColumn))); }
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn) { return Is(SendMessage(LVM_SETCOLUMN, W(nCol), L(pColumn))); }
    int InsertColumn(int nCol, const LVCOLUMN* pColumn) {
        return static_cast<int>(SendMessage(LVM_INSERTCOLUMN, W(nCol), L(pColumn)));
    }
    /// A width or subitem of -1 is left to the control.
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nCol) { return Is(SendMessage(LVM_DELETECOLUMN, W(nCol))); }
    int GetColumnWidth(int nCol) const { return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, W(nCol))); }
    /// `cx` may be LVSCW_AUTOSIZE or LVSCW_AUTOSIZE_USEHEADER.
    BOOL SetColumnWidth(int nCol, int cx) {
        return Is(SendMessage(LVM_SETCOLUMNWIDTH, W(nCol), MAKELPARAM(static_cast<short>(cx), 0)));
    }
    BOOL GetColumnOrderArray(LPINT piArray, int iCount = -1) const;
    BOOL SetColumnOrderArray(int iCount, LPINT piArray) {
        return Is(SendMessage(LVM_SETCOLUMNORDERARRAY, W(iCount), L(piArray)));
    }
    CHeaderCtrl* GetHeaderCtrl() const;
    int GetSelectedColumn() const { return static_cast<int>(SendMessage(LVM_GETSELECTEDCOLUMN)); }
    void SetSelectedColumn(int iCol) { SendMessage(LVM_SETSELECTEDCOLUMN, W(iCol)); }

    // --- items ---
    int GetItemCount() const { return static_cast<int>(SendMessage(LVM_GETITEMCOUNT)); }
    void SetItemCount(int nItems) { SendMessage(LVM_SETITEMCOUNT, W(nItems)); }
    BOOL SetItemCountEx(int iCount, DWORD dwFlags = LVSICF_NOINVALIDATEALL) {
        return Is(SendMessage(LVM_SETITEMCOUNT, W(iCount), static_cast<LPARAM>(dwFlags)));
    }
    BOOL GetItem(LVITEM* pItem) const { return Is(SendMessage(LVM_GETITEM, 0, L(pItem))); }
    BOOL SetItem(const LVITEM* pItem) { return Is(SendMessage(LVM_SETITEM, 0, L(pItem))); }
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                 LPARAM lParam, int nIndent = 0);
    int InsertItem(const LVITEM* pItem) { return static_cast<int>(SendMessage(LVM_INSERTITEM, 0, L(pItem))); }
    int InsertItem(int nItem, LPCTSTR lpszItem) { return InsertItem(LVIF_TEXT, nItem, lpszItem, 0, 0, 0, 0); }
    int InsertItem(int nItem, LPCTSTR lpszItem, int nImage) {
        return InsertItem(LVIF_TEXT | LVIF_IMAGE, nItem, lpszItem, 0, 0, nImage, 0);
    }
    int InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage, LPARAM lParam);
    BOOL DeleteItem(int nItem) { return Is(SendMessage(LVM_DELETEITEM, W(nItem))); }
    BOOL DeleteAllItems() { return Is(SendMessage(LVM_DELETEALLITEMS)); }
    CString GetItemText(int nItem, int nSubItem) const;
    /// The number of characters copied.
    int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    DWORD_PTR GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    UINT GetItemState(int nItem, UINT nMask) const {
        return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, W(nItem), static_cast<LPARAM>(nMask)));
    }
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    BOOL SetItemState(int nItem, LVITEM* pItem) { return Is(SendMessage(LVM_SETITEMSTATE, W(nItem), L(pItem))); }
    BOOL GetCheck(int nItem) const { return (GetItemState(nItem, LVIS_STATEIMAGEMASK) >> 12) == 2; }
    BOOL SetCheck(int nItem, BOOL fCheck = TRUE) {
        return SetItemState(nItem, INDEXTOSTATEIMAGEMASK(fCheck ? 2u : 1u), LVIS_STATEIMAGEMASK);
    }
    int GetNextItem(int nItem, int nFlags) const {
        return static_cast<int>(SendMessage(LVM_GETNEXTITEM, W(nItem), MAKELPARAM(nFlags, 0)));
    }
    int FindItem(LVFINDINFO* pFindInfo, int nStart = -1) const {
        return static_cast<int>(SendMessage(LVM_FINDITEM, W(nStart), L(pFindInfo)));
    }
    /// Calls `pfnCompare(lParam of the one, lParam of the other, dwData)`.
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData) {
        return Is(SendMessage(LVM_SORTITEMS, dwData, reinterpret_cast<LPARAM>(pfnCompare)));
    }
    /// The same with item indexes instead of lParams.
    BOOL SortItemsEx(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData) {
        return Is(SendMessage(LVM_SORTITEMSEX, dwData, reinterpret_cast<LPARAM>(pfnCompare)));
    }

    // --- selection ---
    UINT GetSelectedCount() const { return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT)); }
    int GetSelectionMark() { return static_cast<int>(SendMessage(LVM_GETSELECTIONMARK)); }
    int SetSelectionMark(int iIndex) { return static_cast<int>(SendMessage(LVM_SETSELECTIONMARK, 0, iIndex)); }
    /// For GetNextSelectedItem; null without a selection.
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& pos) const;
    int GetHotItem() const { return static_cast<int>(SendMessage(LVM_GETHOTITEM)); }

    // --- geometry ---
    /// Client coordinates.
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const;
    BOOL GetItemPosition(int nItem, LPPOINT lpPoint) const {
        return Is(SendMessage(LVM_GETITEMPOSITION, W(nItem), L(lpPoint)));
    }
    int HitTest(LVHITTESTINFO* pHitTestInfo) const {
        return static_cast<int>(SendMessage(LVM_HITTEST, 0, L(pHitTestInfo)));
    }
    int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    int SubItemHitTest(LPLVHITTESTINFO pInfo) { return static_cast<int>(SendMessage(LVM_SUBITEMHITTEST, 0, L(pInfo))); }
    int GetTopIndex() const { return static_cast<int>(SendMessage(LVM_GETTOPINDEX)); }
    int GetCountPerPage() const { return static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE)); }
    int GetStringWidth(LPCTSTR lpsz) const { return static_cast<int>(SendMessage(LVM_GETSTRINGWIDTH, 0, L(lpsz))); }
    BOOL EnsureVisible(int nItem, BOOL bPartialOK) {
        return Is(SendMessage(LVM_ENSUREVISIBLE, W(nItem), MAKELPARAM(bPartialOK, 0)));
    }
    BOOL Scroll(CSize size) { return Is(SendMessage(LVM_SCROLL, W(size.cx), size.cy)); }
    BOOL RedrawItems(int nFirst, int nLast) { return Is(SendMessage(LVM_REDRAWITEMS, W(nFirst), nLast)); }
    BOOL Update(int nItem) { return Is(SendMessage(LVM_UPDATE, W(nItem))); }

    // --- label edit ---
    /// The edit control, null when the owner refused.
    CEdit* EditLabel(int nItem);
    CEdit* GetEditControl() const;
    void CancelEditLabel() { SendMessage(LVM_CANCELEDITLABEL); }
    HWND GetToolTipsWindow() const { return reinterpret_cast<HWND>(SendMessage(LVM_GETTOOLTIPS)); }

    /// Draws an LVS_OWNERDRAWFIXED list; the base draws nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

  private:
    static BOOL Is(LRESULT result) { return result != 0; }
    static WPARAM W(int number) { return static_cast<WPARAM>(number); }
    static LPARAM L(const void* pointer) { return reinterpret_cast<LPARAM>(pointer); }
};

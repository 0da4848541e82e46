// CStatusBarCtrl, CTabCtrl and CProgressCtrl: thin members over the common controls. Panes, tabs and positions count
// from 0. Narrower than MFC: the members below.
#pragma once

#include "CImageList.h"
#include "CWnd.h"

class AFXMFC_API CStatusBarCtrl : public CWnd {
    DECLARE_DYNAMIC(CStatusBarCtrl)
  public:
    using CWnd::Create;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(STATUSCLASSNAME, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    BOOL SetText(LPCTSTR lpszText, int nPane, int nType) {
        return static_cast<BOOL>(
            SendMessage(SB_SETTEXT, static_cast<WPARAM>(nPane | nType), reinterpret_cast<LPARAM>(lpszText)));
    }
    CString GetText(int nPane, int* pType = nullptr) const;
    BOOL SetParts(int nParts, int* pWidths) {
        return static_cast<BOOL>(
            SendMessage(SB_SETPARTS, static_cast<WPARAM>(nParts), reinterpret_cast<LPARAM>(pWidths)));
    }
    int GetParts(int nParts, int* pParts) const {
        return static_cast<int>(
            SendMessage(SB_GETPARTS, static_cast<WPARAM>(nParts), reinterpret_cast<LPARAM>(pParts)));
    }
    BOOL GetRect(int nPane, LPRECT lpRect) const {
        return static_cast<BOOL>(SendMessage(SB_GETRECT, static_cast<WPARAM>(nPane), reinterpret_cast<LPARAM>(lpRect)));
    }
    void SetMinHeight(int nMin) { SendMessage(SB_SETMINHEIGHT, static_cast<WPARAM>(nMin)); }
    BOOL SetSimple(BOOL bSimple = TRUE) {
        return static_cast<BOOL>(SendMessage(SB_SIMPLE, static_cast<WPARAM>(bSimple)));
    }
};

class AFXMFC_API CTabCtrl : public CWnd {
    DECLARE_DYNAMIC(CTabCtrl)
  public:
    using CWnd::Create;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(WC_TABCONTROL, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetItemCount() const { return Ask(TCM_GETITEMCOUNT); }
    int InsertItem(int nItem, TCITEM* pTabCtrlItem) { return Ask(TCM_INSERTITEM, nItem, pTabCtrlItem); }
    int InsertItem(int nItem, LPCTSTR lpszItem);
    BOOL GetItem(int nItem, TCITEM* pTabCtrlItem) const { return Ask(TCM_GETITEM, nItem, pTabCtrlItem); }
    BOOL SetItem(int nItem, TCITEM* pTabCtrlItem) { return Ask(TCM_SETITEM, nItem, pTabCtrlItem); }
    BOOL DeleteItem(int nItem) { return Ask(TCM_DELETEITEM, nItem); }
    BOOL DeleteAllItems() { return Ask(TCM_DELETEALLITEMS); }
    int GetCurSel() const { return Ask(TCM_GETCURSEL); }
    int SetCurSel(int nItem) { return Ask(TCM_SETCURSEL, nItem); }
    BOOL GetItemRect(int nItem, LPRECT lpRect) const { return Ask(TCM_GETITEMRECT, nItem, lpRect); }
    void AdjustRect(BOOL bLarger, LPRECT lpRect) { Ask(TCM_ADJUSTRECT, bLarger, lpRect); }
    int HitTest(TCHITTESTINFO* pHitTestInfo) const { return Ask(TCM_HITTEST, 0, pHitTestInfo); }

  private:
    int Ask(UINT message, int index = 0, const void* data = nullptr) const {
        return static_cast<int>(SendMessage(message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(data)));
    }
};

class AFXMFC_API CProgressCtrl : public CWnd {
    DECLARE_DYNAMIC(CProgressCtrl)
  public:
    using CWnd::Create;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(PROGRESS_CLASS, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    void SetRange32(int nLower, int nUpper) { SendMessage(PBM_SETRANGE32, static_cast<WPARAM>(nLower), nUpper); }
    int SetPos(int nPos) { return static_cast<int>(SendMessage(PBM_SETPOS, static_cast<WPARAM>(nPos))); }
    int GetPos() const { return static_cast<int>(SendMessage(PBM_GETPOS)); }
};

// CListBox, CComboBox and CScrollBar. Items count from 0; LB_ERR and CB_ERR (-1) say that there is none.
// Narrower than MFC: no directory listings; items are strings or 32-bit data.
#pragma once

#include "CWnd.h"

class AFXMFC_API CListBox : public CWnd {
    DECLARE_DYNAMIC(CListBox)
  public:
    using CWnd::Create;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(L"LISTBOX", nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetCount() const { return Ask(LB_GETCOUNT); }
    int AddString(LPCTSTR lpszItem) { return Ask(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszItem)); }
    int InsertString(int nIndex, LPCTSTR lpszItem) {
        return Ask(LB_INSERTSTRING, nIndex, reinterpret_cast<LPARAM>(lpszItem));
    }
    int DeleteString(UINT nIndex) { return Ask(LB_DELETESTRING, static_cast<int>(nIndex)); }
    void ResetContent() { SendMessage(LB_RESETCONTENT); }
    int GetCurSel() const { return Ask(LB_GETCURSEL); }
    int SetCurSel(int nSelect) { return Ask(LB_SETCURSEL, nSelect); }
    int GetSel(int nIndex) const { return Ask(LB_GETSEL, nIndex); }
    int SetSel(int nIndex, BOOL bSelect = TRUE) { return Ask(LB_SETSEL, bSelect, nIndex); }
    int GetSelCount() const { return Ask(LB_GETSELCOUNT); }
    int GetSelItems(int nMaxItems, LPINT rgIndex) const {
        return Ask(LB_GETSELITEMS, nMaxItems, reinterpret_cast<LPARAM>(rgIndex));
    }
    int GetText(int nIndex, LPTSTR lpszBuffer) const {
        return Ask(LB_GETTEXT, nIndex, reinterpret_cast<LPARAM>(lpszBuffer));
    }
    void GetText(int nIndex, CString& rString) const;
    int GetTextLen(int nIndex) const { return Ask(LB_GETTEXTLEN, nIndex); }
    DWORD_PTR GetItemData(int nIndex) const {
        return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
    }
    int SetItemData(int nIndex, DWORD_PTR dwItemData) {
        return Ask(LB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwItemData));
    }
    int GetItemRect(int nIndex, LPRECT lpRect) const {
        return Ask(LB_GETITEMRECT, nIndex, reinterpret_cast<LPARAM>(lpRect));
    }
    int GetItemHeight(int nIndex) const { return Ask(LB_GETITEMHEIGHT, nIndex); }
    int SetItemHeight(int nIndex, UINT cyItemHeight) {
        return Ask(LB_SETITEMHEIGHT, nIndex, static_cast<LPARAM>(cyItemHeight));
    }
    int GetTopIndex() const { return Ask(LB_GETTOPINDEX); }
    int SetTopIndex(int nIndex) { return Ask(LB_SETTOPINDEX, nIndex); }
    int GetCaretIndex() const { return Ask(LB_GETCARETINDEX); }
    int FindString(int nStartAfter, LPCTSTR lpszItem) const {
        return Ask(LB_FINDSTRING, nStartAfter, reinterpret_cast<LPARAM>(lpszItem));
    }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const {
        return Ask(LB_FINDSTRINGEXACT, nIndexStart, reinterpret_cast<LPARAM>(lpszFind));
    }
    int SelectString(int nStartAfter, LPCTSTR lpszItem) {
        return Ask(LB_SELECTSTRING, nStartAfter, reinterpret_cast<LPARAM>(lpszItem));
    }
    void SetHorizontalExtent(int cxExtent) { Ask(LB_SETHORIZONTALEXTENT, cxExtent); }

    // Of an owner-drawn list; the bases do nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}
    virtual int CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
    virtual void DeleteItem(LPDELETEITEMSTRUCT) {}

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

  private:
    int Ask(UINT message, int index = 0, LPARAM lParam = 0) const {
        return static_cast<int>(SendMessage(message, static_cast<WPARAM>(index), lParam));
    }
};

class AFXMFC_API CComboBox : public CWnd {
    DECLARE_DYNAMIC(CComboBox)
  public:
    using CWnd::Create;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(L"COMBOBOX", nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetCount() const { return Ask(CB_GETCOUNT); }
    int AddString(LPCTSTR lpszString) { return Ask(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString)); }
    int InsertString(int nIndex, LPCTSTR lpszString) {
        return Ask(CB_INSERTSTRING, nIndex, reinterpret_cast<LPARAM>(lpszString));
    }
    int DeleteString(UINT nIndex) { return Ask(CB_DELETESTRING, static_cast<int>(nIndex)); }
    void ResetContent() { SendMessage(CB_RESETCONTENT); }
    int GetCurSel() const { return Ask(CB_GETCURSEL); }
    int SetCurSel(int nSelect) { return Ask(CB_SETCURSEL, nSelect); }
    int GetLBText(int nIndex, LPTSTR lpszText) const {
        return Ask(CB_GETLBTEXT, nIndex, reinterpret_cast<LPARAM>(lpszText));
    }
    void GetLBText(int nIndex, CString& rString) const;
    int GetLBTextLen(int nIndex) const { return Ask(CB_GETLBTEXTLEN, nIndex); }
    DWORD_PTR GetItemData(int nIndex) const {
        return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
    }
    int SetItemData(int nIndex, DWORD_PTR dwItemData) {
        return Ask(CB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwItemData));
    }
    int GetItemHeight(int nIndex) const { return Ask(CB_GETITEMHEIGHT, nIndex); }
    int SetItemHeight(int nIndex, UINT cyItemHeight) {
        return Ask(CB_SETITEMHEIGHT, nIndex, static_cast<LPARAM>(cyItemHeight));
    }
    BOOL GetDroppedState() const { return Ask(CB_GETDROPPEDSTATE); }
    void ShowDropDown(BOOL bShowIt = TRUE) { Ask(CB_SHOWDROPDOWN, bShowIt); }
    void GetDroppedControlRect(LPRECT lprect) const {
        SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(lprect));
    }
    int SetDroppedWidth(UINT nWidth) { return Ask(CB_SETDROPPEDWIDTH, static_cast<int>(nWidth)); }
    int GetDroppedWidth() const { return Ask(CB_GETDROPPEDWIDTH); }
    int FindString(int nStartAfter, LPCTSTR lpszString) const {
        return Ask(CB_FINDSTRING, nStartAfter, reinterpret_cast<LPARAM>(lpszString));
    }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const {
        return Ask(CB_FINDSTRINGEXACT, nIndexStart, reinterpret_cast<LPARAM>(lpszFind));
    }
    int SelectString(int nStartAfter, LPCTSTR lpszString) {
        return Ask(CB_SELECTSTRING, nStartAfter, reinterpret_cast<LPARAM>(lpszString));
    }
    DWORD GetEditSel() const { return static_cast<DWORD>(SendMessage(CB_GETEDITSEL)); }
    BOOL SetEditSel(int nStartChar, int nEndChar) { return Ask(CB_SETEDITSEL, 0, MAKELONG(nStartChar, nEndChar)); }
    BOOL LimitText(int nMaxChars) { return Ask(CB_LIMITTEXT, nMaxChars); }
    BOOL GetComboBoxInfo(PCOMBOBOXINFO pcbi) const { return ::GetComboBoxInfo(m_hWnd, pcbi); }

    // Of an owner-drawn combo box; the bases do nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}
    virtual int CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
    virtual void DeleteItem(LPDELETEITEMSTRUCT) {}

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

  private:
    int Ask(UINT message, int index = 0, LPARAM lParam = 0) const {
        return static_cast<int>(SendMessage(message, static_cast<WPARAM>(index), lParam));
    }
};

class AFXMFC_API CScrollBar : public CWnd {
    DECLARE_DYNAMIC(CScrollBar)
  public:
    using CWnd::Create;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(L"SCROLLBAR", nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE) { return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw); }
    void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE) {
        ::SetScrollRange(m_hWnd, SB_CTL, nMinPos, nMaxPos, bRedraw);
    }
};

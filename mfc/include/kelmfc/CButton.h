// CButton and CStatic: push buttons, check boxes, radio buttons, group boxes; static text, icons and bitmaps.
// Narrower than MFC: no image lists or split buttons on CButton, no enhanced metafiles on CStatic.
#pragma once

#include "CWnd.h"

class AFXMFC_API CButton : public CWnd {
    DECLARE_DYNAMIC(CButton)
  public:
    using CWnd::Create;
    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(L"BUTTON", lpszCaption, dwStyle, rect, pParentWnd, nID);
    }
    UINT GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE)); }
    void SetState(BOOL bHighlight) { SendMessage(BM_SETSTATE, static_cast<WPARAM>(bHighlight)); }
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int nCheck) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck)); }
    UINT GetButtonStyle() const { return static_cast<UINT>(GetStyle() & 0xFF); }
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE) { SendMessage(BM_SETSTYLE, nStyle, bRedraw); }
    HICON SetIcon(HICON hIcon) {
        return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(hIcon)));
    }
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON)); }
    HBITMAP SetBitmap(HBITMAP hBitmap) {
        return reinterpret_cast<HBITMAP>(SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
    }
    HBITMAP GetBitmap() const { return reinterpret_cast<HBITMAP>(SendMessage(BM_GETIMAGE, IMAGE_BITMAP)); }

    /// Draws a BS_OWNERDRAW button; the base draws nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFXMFC_API CStatic : public CWnd {
    DECLARE_DYNAMIC(CStatic)
  public:
    using CWnd::Create;
    virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xFFFF) {
        return CWnd::Create(L"STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
    }
    HICON SetIcon(HICON hIcon) {
        return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(hIcon)));
    }
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessage(STM_GETICON)); }
    HBITMAP SetBitmap(HBITMAP hBitmap) {
        return reinterpret_cast<HBITMAP>(SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
    }
    HBITMAP GetBitmap() const { return reinterpret_cast<HBITMAP>(SendMessage(STM_GETIMAGE, IMAGE_BITMAP)); }

    /// Draws an SS_OWNERDRAW control; the base draws nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// The host's list control and its owner-drawn buttons. Windows tier.
#pragma once

#include "KelExport.h"

#include <afxwin.h>
#include <afxcmn.h>

/// A list view with a hit test by cell and tips for cells.
class KELUI_API COrvUiListCtrl : public CListCtrl {
  public:
    COrvUiListCtrl();
    ~COrvUiListCtrl() override;

    /// Hit test in client coordinates: `row` and `column` receive the cell, with a negative row when there is none.
    /// @return 0 when a tip may show for the cell
    int GetItemAtPoint(CPoint& point, int& row, int& column);
    /// Non-zero if a tip is to show; `rect` is the cell's rectangle in client coordinates.
    virtual int OnGetTipRect(CRect& rect);
    /// Names the dialog that receives the list's notifications.
    void SetOrvUiParent(CWnd* parent);

  protected:
    DECLARE_MESSAGE_MAP()

  private:
    CWnd* m_notified;
};

/// A push button that draws itself: hover, pressed, focused and disabled looks.
class KELUI_API COrvUiOwnerDrawButton : public CButton {
  public:
    COrvUiOwnerDrawButton();
    ~COrvUiOwnerDrawButton() override;
    void DrawItem(LPDRAWITEMSTRUCT item) override;

  protected:
    /// Draws the face inside the frame; `face` in the coordinates of `dc`.
    virtual void DrawButton(CDC& dc, const CRect& face, UINT itemState);
    bool IsHot() const { return m_hot; }
    void PreSubclassWindow() override;

    DECLARE_MESSAGE_MAP()
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg LRESULT OnMouseLeave(WPARAM, LPARAM);

  private:
    bool m_hot;
};

/// A button with a bitmap from the resources, found by name.
class KELUI_API COrvUiBitmapButton : public COrvUiOwnerDrawButton {
  public:
    COrvUiBitmapButton();
    ~COrvUiBitmapButton() override;
    /// Replaces the bitmap by the named resource of the current resource module.
    /// @return whether it was found; if not, the old one stays
    virtual BOOL OnReload(const wchar_t* resourceName);

  protected:
    void DrawButton(CDC& dc, const CRect& face, UINT itemState) override;
    /// Loads the bitmap named by the window's text, when the button is bound.
    virtual BOOL OnAutoLoad();
    void PreSubclassWindow() override;

  private:
    CBitmap m_bitmap;
    CString m_resourceName;
};

/// The same without a frame of its own until the pointer or the focus is on it.
class KELUI_API COrvUiBitmapStatic : public COrvUiBitmapButton {
  public:
    COrvUiBitmapStatic();
    ~COrvUiBitmapStatic() override;
    void DrawItem(LPDRAWITEMSTRUCT item) override;
};

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

    /// Hit test at a point of the screen, which is turned into client coordinates: `row` and `column` receive the cell,
    /// with a negative row when there is none.
    /// @return 0 when a tip may show for the cell
    int GetItemAtPoint(CPoint& point, int& row, int& column);
    /// Non-zero if a tip is to show for the cell under the pointer; `rect` is the cell's rectangle in client
    /// coordinates. The base lets one show for a cell whose text is cut off.
    virtual int OnGetTipRect(CRect& rect);
    /// Names the dialog that receives the list's notifications. Where that is not the list's own parent, it receives
    /// them after the parent; null ends it.
    void SetOrvUiParent(CWnd* parent);

    /// The framework's question for a tip at a point in client coordinates: the cell's area and its text.
    /// @return whether a tip is to show
    bool TipAtPoint(CPoint point, CRect& rect, CString& text);

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    DECLARE_MESSAGE_MAP()

  private:
    bool CellAt(CPoint point, int& row, int& column) const;
    bool CellRect(int row, int column, CRect& rect) const;
    bool IsCutOff(int row, int column, const CRect& cell) const;

    CWnd* m_notified;
};

/// A push button that draws itself: hover, pressed, focused and disabled looks. It takes part in the dialog's keyboard
/// interface as any push button, and tells assistive programs that it is one.
class KELUI_API COrvUiOwnerDrawButton : public CButton {
  public:
    COrvUiOwnerDrawButton();
    ~COrvUiOwnerDrawButton() override;
    void DrawItem(LPDRAWITEMSTRUCT item) override;

    /// What the framework's tip says over the button; empty for no tip. The base says the text if it has no room.
    virtual CString TipText();

  protected:
    /// Draws the face inside the frame; `face` in the coordinates of `dc`. The base draws the window's text.
    virtual void DrawButton(CDC& dc, const CRect& face, UINT itemState);
    /// Draws the background and the frame of the whole button.
    virtual void DrawFrame(CDC& dc, const CRect& button, UINT itemState);
    /// Draws the window's text into `area`, greyed when disabled.
    void DrawCaption(CDC& dc, const CRect& area, UINT itemState, UINT format);
    /// Whether the window's text fits on one line of the button, with `taken` pixels of its width in use already.
    bool HasRoomForText(int taken);
    bool IsHot() const { return m_hot; }
    void PreSubclassWindow() override;

    DECLARE_MESSAGE_MAP()
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg LRESULT OnMouseLeave(WPARAM, LPARAM);
    afx_msg LRESULT OnDialogCode(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSetStyle(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSetText(WPARAM wParam, LPARAM lParam);

  private:
    bool m_hot;
    bool m_default; // Enter presses it
};

/// A button with a bitmap from the resources, found by name, and its text beside it where there is room.
///
/// Bitmaps of 32 bits carry straight alpha; in others the colour of the top left pixel is transparent. They are drawn
/// at their size on a display of 96 dots per inch, scaled with the display, and scaled down where the face is smaller.
class KELUI_API COrvUiBitmapButton : public COrvUiOwnerDrawButton {
  public:
    COrvUiBitmapButton();
    ~COrvUiBitmapButton() override;
    /// Replaces the bitmap by the named resource of the current resource module.
    /// @return whether it was found; if not, the old one stays
    virtual BOOL OnReload(const wchar_t* resourceName);
    CString TipText() override;

  protected:
    void DrawButton(CDC& dc, const CRect& face, UINT itemState) override;
    /// Loads the bitmap named by the window's text, when the button is bound.
    virtual BOOL OnAutoLoad();
    void PreSubclassWindow() override;

  private:
    struct Picture;
    Picture* m_picture;
};

/// The same without a frame of its own until the pointer or the focus is on it.
class KELUI_API COrvUiBitmapStatic : public COrvUiBitmapButton {
  public:
    COrvUiBitmapStatic();
    ~COrvUiBitmapStatic() override;

  protected:
    void DrawFrame(CDC& dc, const CRect& button, UINT itemState) override;
};

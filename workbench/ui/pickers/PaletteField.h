// The field of the palette's colours in the colour dialog: a control of its own, worked by mouse and arrow keys. Its
// window text is the description of the marked colour, which is what assistive programs read out.
#pragma once

#include <afxwin.h>

#include "pickers/model/PaletteLayout.h"

#include <optional>

namespace framework {

/// Notifications to the parent, as codes of WM_COMMAND.
inline constexpr UINT kPaletteMarked = 1;   ///< the user has marked another colour
inline constexpr UINT kPaletteAccepted = 2; ///< a double click on a colour

class PaletteField : public CWnd {
  public:
    /// Registers the window class. To be called before a template that names it is used.
    static void registerClass();

    /// Marks a colour, or none, without a notification.
    void mark(std::optional<int> index);
    std::optional<int> marked() const { return m_marked; }
    /// Where a colour stands, in client coordinates; empty for an index that has no cell.
    CRect cellRect(int index) const;

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKeyDown(UINT key, UINT repeats, UINT flags);
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg void OnLButtonUp(UINT flags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT flags, CPoint point);
    afx_msg void OnSetFocus(CWnd* former);
    afx_msg void OnKillFocus(CWnd* next);

  private:
    std::optional<int> indexAt(CPoint point) const;
    void choose(std::optional<int> index);
    void redraw(std::optional<int> index);
    void drawCell(HDC dc, int index) const;
    void drawMark(HDC dc, CRect cell) const;
    void drawCursor(HDC dc, CRect cell) const;
    /// The colour from which the arrow keys move on; it has a frame while the field has the focus.
    int cursor() const { return m_marked.value_or(1); }
    void notify(UINT code);

    std::optional<int> m_marked;
};

} // namespace framework

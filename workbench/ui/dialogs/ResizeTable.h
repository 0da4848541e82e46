// How the controls of a dialog move and grow with it: the decision over plain rectangles, and its application to
// windows.
#pragma once

#include "KelExport.h"
#include "OrvUiDialog.h"

#include <windows.h>

#include <map>
#include <vector>

namespace framework {

/// Where a control stands after the dialog's client area has grown by `growth` since the control stood at `design`.
/// It never gets a negative size.
KELUI_API RECT resizedControl(const RECT& design, SIZE growth, const _dlgControlTag& row);

/// The resize table of one dialog, with the layout that its template gave.
class ResizeTable {
  public:
    /// Remembers where every control stands, and the sizes of the window and its client area.
    void remember(HWND dialog);
    /// Scales the remembered layout to a display of `dpi` dots an inch.
    /// @return the dots an inch that it was remembered at; `dpi` when nothing was remembered
    int rescale(int dpi);
    void setRows(const _dlgControlTag* rows, unsigned long count);
    /// Moves the controls of the table to where they belong for the present size. Does nothing before remember().
    void apply(HWND dialog) const;
    /// Whether there is a table and a layout to resize.
    bool isActive() const { return !m_rows.empty() && m_window.cx > 0; }
    /// The window's size in the template, below which the layout would break.
    SIZE smallestWindow() const { return m_window; }

  private:
    std::vector<_dlgControlTag> m_rows;
    std::map<HWND, RECT> m_design;
    SIZE m_client = {};
    SIZE m_window = {};
    int m_dpi = 0;
};

} // namespace framework

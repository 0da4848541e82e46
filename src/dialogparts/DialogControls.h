// How a dialog reaches its controls: by id, as windows of the system. A CWnd of a control that no object is bound to is
// gone at the next idle; a window isn't. The windows are found once, since looking one up asks the window system, which
// is too slow for what runs at every change of a list with a thousand rows.
#pragma once

#include <afxwin.h>

#include <unordered_map>

/// The controls of one dialog, by id.
class DialogControls {
  public:
    /// Notes the dialog's present controls, which must stay until its end.
    void find(HWND dialog);
    /// Null when the dialog has no such control.
    HWND at(int control) const;

    // A control that the dialog lacks reads as disabled, unticked and with an empty place; writing to it does nothing.
    bool isTicked(int control) const;
    bool isEnabled(int control) const;
    /// In coordinates of the dialog's client area.
    CRect place(int control) const;
    // These two write only when something differs.
    void tick(int control, bool on) const;
    void enable(int control, bool enabled) const;
    void show(int control, bool shown) const;
    void setText(int control, const wchar_t* text) const;
    /// Moves the control along the dialog's width, and redraws it.
    void moveBy(int control, int dx) const;

  private:
    std::unordered_map<int, HWND> m_windows;
};

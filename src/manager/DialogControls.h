// The windows of a dialog's controls, found once: looking one up by its id asks the window system, which is too slow
// for what runs at every change of a list with a thousand rows.
#pragma once

#include <afxwin.h>

#include <unordered_map>

/// The controls of one dialog, by id.
class DialogControls {
  public:
    /// Notes the dialog's present controls; they are taken to stay until its end.
    void find(HWND dialog);
    /// Null when the dialog has no such control.
    HWND at(int control) const;

    bool isTicked(int control) const;
    // These write only what differs, and pass over an absent control.
    void tick(int control, bool on) const;
    void enable(int control, bool enabled) const;
    bool isEnabled(int control) const;

  private:
    std::unordered_map<int, HWND> m_windows;
};

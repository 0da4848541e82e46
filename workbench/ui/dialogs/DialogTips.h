// The tips of one dialog: one tool tip window for its controls, for owner-drawn buttons whose text has no room, and for
// the cut-off cells of its lists. It is fed by the dialog's message filter.
#pragma once

#include "TipFile.h"

#include <windows.h>

class COrvUiListCtrl;
class COrvUiOwnerDrawButton;

namespace framework {

/// The tips of one dialog: a window of the system's that the dialog owns, with a tool for each control that has a text
/// and one that moves with the pointer over cells and drawn buttons. Without memory or a window there are no tips.
class DialogTips {
  public:
    /// Makes the tip window, owned by `dialog`, with a tool for each control that has a text, those of
    /// pages within the dialog too.
    DialogTips(HWND dialog, const TipTexts& texts);
    ~DialogTips();
    DialogTips(const DialogTips&) = delete;
    DialogTips& operator=(const DialogTips&) = delete;

    /// Fits the longest line of a tip to the scaling of the dialog's display.
    void fitToScaling(int dpi);
    /// While off, messages are not followed and no tip shows.
    void allow(bool on);
    /// Follows the pointer. To be called for every message of the dialog before it is dispatched.
    void relay(const MSG& message);

  private:
    void followList(COrvUiListCtrl& list, const MSG& message);
    void followButton(COrvUiOwnerDrawButton& button);
    void setTool(HWND owner, const RECT& area, const wchar_t* text);

    HWND m_window = nullptr;
    bool m_allowed = true;
    // The one moving tool, for cells and buttons: whose it is, where, and what it says.
    HWND m_toolOwner = nullptr;
    RECT m_toolArea = {};
    std::wstring m_toolText;
};

} // namespace framework

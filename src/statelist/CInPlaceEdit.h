// The small box that opens over a cell of a list.
#pragma once

#include <afxcmn.h>

/// Notifications to the parent: WM_NOTIFY whose header holds the box and its id.
inline constexpr UINT kInPlaceEditCancelled = 1; ///< Esc was pressed: drop the edit
inline constexpr UINT kInPlaceEditLeft = 2;      ///< the focus went to something else: keep what was typed

/// An edit box of one line, hidden until its list places and shows it. It only reports how the edit ends; what then
/// becomes of the text, and of the box, is the list's business.
class CInPlaceEdit : public CEdit {
  public:
    ~CInPlaceEdit() override;

    using CEdit::Create;
    /// Makes the hidden box as a child of the list, with the list's font. Non-zero on success.
    BOOL Create(CWnd* list);
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    DECLARE_MESSAGE_MAP()
    BOOL PreCreateWindow(CREATESTRUCT& window) override;
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKillFocus(CWnd* receiver);
    afx_msg void OnShowWindow(BOOL show, UINT status);

  private:
    void Report(UINT code);
};

// The grid in which a state is edited.
#pragma once

#include "GridAccessible.h"
#include "OrvUiControls.h"

#include <memory>

/// The dialog draws its rows and answers its notifications. Row numbers say nothing about the order of the records,
/// which the rows refer to by their item data.
class CLayerStateList : public COrvUiListCtrl {
  public:
    ~CLayerStateList() override;
    /// A tip shows wherever there is a cell.
    int OnGetTipRect(CRect& rect) override;
    /// Tells assistive programs that the row with the focus says something else now; they read out no other one.
    void tellFocusedRowChanged();

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg LRESULT OnAskedForObject(WPARAM asked, LPARAM object);
    afx_msg void OnSetFocus(CWnd* former);
    afx_msg void OnKillFocus(CWnd* next);
    afx_msg void OnNcPaint();
    afx_msg void OnDestroy();

  private:
    void showFocus(bool focused);

    bool m_focused = false;
    /// Made when it is first asked for; it ends with the window.
    std::unique_ptr<GridAccessibility> m_accessibility;
};

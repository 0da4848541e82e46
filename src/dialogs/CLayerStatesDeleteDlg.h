// The delete confirmation: the question for each of several states that are to be deleted.
#pragma once

#include "OrvUiDialog.h"

/// Asks and does nothing else. Ends with OK after one of its three buttons, and with Cancel otherwise; the answer is in
/// the fields.
class CLayerStatesDeleteDlg : public CKelUiDialog {
  public:
    explicit CLayerStatesDeleteDlg(CWnd* parent);
    ~CLayerStatesDeleteDlg() override;

    /// The state that is asked about; to be set before the dialog runs.
    CString m_stateName;
    /// Ask no more: the states that are left are to be treated as this one.
    int m_applyToAll;
    int m_deleteThis;
    int m_cancelled;

  protected:
    DECLARE_MESSAGE_MAP()
    void DoDataExchange(CDataExchange* exchange) override;

  public:
    BOOL OnInitDialog() override;

  protected:
    void OnCancel() override;
    afx_msg void OnDeleteThis();
    afx_msg void OnDeleteAll();
    afx_msg void OnKeepThis();

  private:
    void answer(int deleteThis, int applyToAll);
};

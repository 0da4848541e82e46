// The new layer state dialog: saves the drawing's present layers as a state, under a name and with a description.
#pragma once

#include "LayerStateMask.h"
#include "OrvUiDialog.h"

class KelDbLayerStateManager;

/// Asks for name and description, and saves. When it has ended with OK the state is in the drawing, also where the host
/// has refused a part of it and the user was told so.
class CLayerStatesSaveDlg : public CKelUiDialog {
  public:
    /// @param calledFromEntry opened by another part of the host and not by the manager; makes no difference
    CLayerStatesSaveDlg(CWnd* parent, bool calledFromEntry);
    ~CLayerStatesSaveDlg() override;

    /// The name that the state was saved under, once the dialog has ended with OK.
    CString GetStateName() const;

  protected:
    DECLARE_MESSAGE_MAP()
    void DoDataExchange(CDataExchange* exchange) override;

  public:
    BOOL OnInitDialog() override;
    void OnDialogHelp() override;

  protected:
    void OnOK() override;
    void OnCancel() override;
    afx_msg void OnNameListClosed();
    afx_msg void OnNameSelected();
    afx_msg void OnTextChanged();

    /// The name to begin with, empty for none; after OK the one saved under.
    CString m_stateName;

  private:
    void fillNames();
    void showPreset();
    CString typedName() const;
    void allowOkByName();
    void showDescription(KelDbLayerStateManager& states, const wchar_t* name);
    /// Asks whether a state of that name is to be replaced, and takes it out.
    /// @return false when the user doesn't want that
    bool replaceState(KelDbLayerStateManager& states, const wchar_t* name);
    void askForOtherName();
    void tellWhenRefused(int status);

    CWnd* m_parent;
    /// The properties that a restore of the new state will apply: those of the state last picked from the list of
    /// names, and all when none was.
    LayerStateMask m_stateMask;
    CComboBox* m_nameCombo;
    CString m_stateDescription;
    bool m_calledFromEntry; ///< Written, never read, on purpose: both callers get the same dialog.
};

// The layer states manager: lists the states of the current drawing, lets the user choose which properties a restore
// touches, and restores.
#pragma once

#include "CExpandContractButton.h"
#include "CLayerStateListCtrl.h"
#include "DialogControls.h"
#include "KelArray.h"
#include "LayerStateMask.h"
#include "OrvUiDialog.h"

#include <optional>

/// The manager's dialog. It holds no pending changes: each action goes to the host when its button is pressed. It ends
/// with OK after Close and after a restore, and with Cancel otherwise.
class CLayerStatesRestoreDlg : public CKelUiDialog {
  public:
    /// @param fromExport opened by another part of the host and not by the command; makes no difference
    CLayerStatesRestoreDlg(CWnd* parent, bool fromExport);
    ~CLayerStatesRestoreDlg() override;

  protected:
    DECLARE_MESSAGE_MAP()
    void DoDataExchange(CDataExchange* exchange) override;

  public:
    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;
    void OnDialogHelp() override;

  protected:
    afx_msg void OnListChanged(NMHDR* header, LRESULT* result);
    afx_msg void OnRestore();
    afx_msg void OnNew();
    afx_msg void OnUpdate();
    afx_msg void OnEdit();
    afx_msg void OnRename();
    afx_msg void OnDelete();
    afx_msg void OnClose();
    afx_msg void OnHideXrefs();
    afx_msg void OnLayerNotFound();
    afx_msg void OnOverridableProperty(UINT control);
    afx_msg void OnRestoreAsOverrides();
    afx_msg void OnSelectAll();
    afx_msg void OnClearAll();
    afx_msg void OnExpandContract();

  private:
    // Set-up, in the order of its steps.
    void setUpPanel();
    void readOption(const wchar_t* key, bool& option);
    void readOptions();
    void setUpList();
    void showCurrentState(KelString& lastRestored);

    void repopulate();
    /// Selects the state's row, or the first one when no row bears the name (an empty one neither), scrolls it into
    /// view and gives the list the focus. Without rows nothing happens.
    void selectState(const wchar_t* name);
    void updateControls();
    bool selectionHoldsDependent();
    /// Takes the row as the single selection and shows its mask; the mask, if it can be read.
    std::optional<LayerStateMask> showStoredState(int row);
    void tickEnabledBoxes(bool on);

    void expand();
    void contract();
    void showPanel(bool show);
    void widen(int by);
    void setExpandButton(const wchar_t* bitmap, UINT textId);

    void renameByKey();
    bool restoreByDoubleClick(const MSG& message);
    void reopenRefusedRename();

    int restoreOrImport();
    void restoreSelected(KelDbLayerStateManager& states);
    void collectRegenLayers();
    void reportRestoreFailure(unsigned int status);

    /// Asks whether the state is to be overwritten.
    bool confirmUpdate(const wchar_t* name);
    void tellNotSaved();
    void showComparison(KelDbLayerStateManager& states, int row, const wchar_t* name, const KelDbObjectId& viewport);
    void deleteSelected(bool ask);
    bool deleteState(const wchar_t* name);
    void selectAfterDelete(int first);

    CWnd* m_parent;
    int m_restoreStarted; ///< Written, never read.
    CLayerStateListCtrl m_stateList;
    /// The state that was last taken as the single selection.
    CString m_stateName;
    /// The mask of m_stateName, or the one last read from the boxes.
    LayerStateMask m_stateMask;
    /// The bits of the state that can be restored as overrides of a viewport.
    unsigned int m_overridableMask;
    CString m_stateDescription; ///< Written, never read.
    /// Option: layers that the state doesn't know are turned off.
    bool m_layerNotFound;
    /// All layers of the drawing, rebuilt for each restore.
    KelArray<KelDbObjectId> m_regenLayers;
    CExpandContractButton m_expandButton;
    /// Whether the property panel is open.
    int m_expanded;
    bool m_fromExport; ///< Written, never read, on purpose: the command and the export behave alike.
    /// A failure may still be reported; the first report of the dialog's life clears it for good.
    bool m_reportFailure;
    bool m_restoreAsOverrides; ///< Option.
    /// Option: the states of attached references are listed too.
    bool m_showXrefs;
    DialogControls m_controls;
    /// The last press of the left button, or the first half of a double click, came during a rename.
    bool m_pressedInRename;
};

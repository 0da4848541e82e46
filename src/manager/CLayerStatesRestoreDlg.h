// The layer states manager: lists the states of the current drawing, lets the user choose which properties a restore
// touches, and restores.
#pragma once

#include "CExpandContractButton.h"
#include "CLayerStateListCtrl.h"
#include "DialogControls.h"
#include "KelArray.h"
#include "ImportedStates.h"
#include "KelDbObject.h"
#include "LayerStateMask.h"
#include "OrvUiDialog.h"

#include <memory>
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
    afx_msg void OnImport();
    afx_msg void OnExport();
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

    /// The frame of both: one transaction around the host's part, and the display after it.
    /// @param restore  not 0 restores the selected state, and the other arguments aren't looked at; 0 imports
    /// @param name     the state to take from `source`; receives the name of what has come, where that is new
    /// @param fileName a layer states file to import, where there is no `source`
    /// @return 0 when nothing could be begun, or when what has come couldn't be entered; otherwise 1, also when the
    /// host
    ///         has refused
    int restoreOrImport(int restore, CString& name, const wchar_t* fileName, KelDbDatabase* source);
    /// Takes the topmost selected row's state as the one to restore. False without a selected row.
    bool takeSelectedState();
    void restoreSelected(KelDbLayerStateManager& states);
    void collectRegenLayers();
    void reportRestoreFailure(unsigned int status);

    void noteRowsBeforeImport();
    void importFromFile(const wchar_t* path);
    void importFromDrawing(const wchar_t* path);
    /// Whether the drawing of that file has states. The user is told why not, but for a drawing that can't have any.
    bool checkDrawingForStates(const wchar_t* path);
    /// Imports the states of those names, and stops at the first failure.
    bool importStates(const wchar_t* path, const KelArray<KelString>& names);
    /// The host's import, again and again while the user has the state of the same name replaced.
    void importState(KelDbLayerStateManager& states, const wchar_t* name, const wchar_t* fileName,
                     KelDbDatabase* source);
    /// The state that has no row in the list yet; 0 when there is none.
    int findNewState(CString& name, LayerStateMask& mask);
    /// A copy of that state's record, in memory; null when there is no such state.
    std::unique_ptr<KelDbXrecord> newStateRecord(CString& name);
    void tellNotImported();
    /// Fills the list anew and selects the state of that name, if there is one.
    /// @param ask whether the user is asked if it is to be restored
    void afterImport(const wchar_t* name, const wchar_t* path, bool ask);

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
    /// What the list shows while states are imported: it isn't filled anew before all have come.
    RowNames m_rowsBeforeImport;
    /// The last press of the left button, or the first half of a double click, came during a rename.
    bool m_pressedInRename;
};

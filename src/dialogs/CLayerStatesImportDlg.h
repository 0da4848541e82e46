// The dialog in which the user chooses which states of another drawing are imported.
#pragma once

#include "CLayerStateListCtrl.h"
#include "OrvUiDialog.h"
#include "OrvUiUtilities.h"

/// Lists the states of a drawing file, and ticks those that the current drawing lacks. It imports nothing itself.
class CLayerStatesImportDlg : public CKelUiDialog {
  public:
    CLayerStatesImportDlg(CWnd* parent, const wchar_t* filePath);
    ~CLayerStatesImportDlg() override;

  protected:
    CLayerStateListCtrl m_stateList;
    OrvXREFString m_filePath;

  public:
    /// The ticked names as they are in the list from the top; to be read after OK.
    KelArray<KelString> m_selectedNames;

  protected:
    DECLARE_MESSAGE_MAP()
    void DoDataExchange(CDataExchange* exchange) override;

  public:
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    BOOL OnInitDialog() override;
    void OnOK() override;

  public:
    void OnDialogHelp() override;

  protected:
    afx_msg void OnItemChanged(NMHDR* header, LRESULT* result);

  private:
    /// @return whether the file could be read and holds states
    bool LoadStatesFromFile();
    void tickMissingStates();
    bool hasTickedRow() const;
    /// @return whether it is one of the keys that select rows
    bool selectByKey(WPARAM key);
    void selectRow(int row);

    /// The selected rows are being ticked or cleared; that each tells of its change is nothing new.
    bool m_ticking;
};

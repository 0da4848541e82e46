// The add layers dialog: the drawing's layers that the edited state doesn't hold yet.
#pragma once

#include "KelArray.h"
#include "KelDbObjectId.h"
#include "KelString.h"
#include "OrvUiDialog.h"

#include <afxcoll.h>

class KelDbDatabase;
class KelDbLayerTable;
class KelDbLayerTableRecord;

/// Lets the user choose layers. With nothing to offer it ends by itself, with OK and no ids, and the user is told.
class CAddLayerFromZDRDlg : public CKelUiDialog {
  public:
    explicit CAddLayerFromZDRDlg(CWnd* parent);
    ~CAddLayerFromZDRDlg() override;

  protected:
    CListCtrl m_layerGrid;

  public:
    /// The names that aren't offered; set by the caller.
    KelArray<KelString> m_existingNames;
    /// The chosen layers, after OK.
    KelArray<KelDbObjectId> m_selectedIds;
    /// The drawing; set by the caller.
    KelDbDatabase* m_database;

  protected:
    /// One record a layer that is offered; the dialog owns them.
    CObList m_layers;

  public:
    int m_sortKey;

    BOOL OnInitDialog() override;
    void OnDialogHelp() override;

  protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    DECLARE_MESSAGE_MAP()
    afx_msg void OnHeadingClick(NMHDR* header, LRESULT* result);

  private:
    void insertColumns();
    void readLayers(const KelDbLayerTable& table);
};

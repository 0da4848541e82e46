// The edit dialog: the layers of one state as a grid, to be changed cell by cell.
#pragma once

#include "CLayerStateList.h"
#include "ColumnWidths.h"
#include "OrvUiDialog.h"
#include "StateImages.h"

#include <afxcoll.h>

#include <vector>

class CLayerRcd;
class KelDbDatabase;

/// Edits a state of the drawing that was current when the dialog was made. What the user does stays in the dialog's
/// records until OK, which writes it into the state; Cancel drops it.
class CEditLayerStateDlg : public CKelUiDialog {
  public:
    explicit CEditLayerStateDlg(CWnd* parent);
    ~CEditLayerStateDlg() override;

  protected:
    CLayerStateList m_layerGrid;
    /// The records of the grid's rows, and of the removed ones; the dialog owns them all until its end.
    CObList m_layers;

  public:
    /// The state to edit; to be set before the dialog runs.
    CString m_stateName;

  protected:
    KelDbDatabase* m_database;
    /// A column counted from 1, negative when its order is reversed; 0 before the first click on a heading.
    int m_sortKey;
    /// A click on a cell of several selected rows is under way: none of them loses its selection.
    bool m_keepSelection;
    /// The release that ends such a click is being handled. Wine's list gives up the selection only after it has told
    /// of the click, where that of Windows does so before.
    bool m_keepAtRelease = false;
    /// The selected rows as they were when the button was last pressed.
    std::vector<int> m_selectedRows;
    /// The width in pixels that each column's content needs, as far as it has been drawn.
    ColumnWidths m_columnWidths;
    /// Shows the text of a cell that is cut off.
    CToolTipCtrl m_cellTip;
    CPoint m_lastMousePos;
    /// The heading row shows them for as long as it lives.
    CImageList m_headingImages;
    PaintedImages m_gridImages;

  public:
    INT_PTR OnToolHitTest(CPoint point, TOOLINFO* tool) const override;
    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;
    void OnDialogHelp() override;

  protected:
    BOOL OnNotify(WPARAM control, LPARAM header, LRESULT* result) override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;

    DECLARE_MESSAGE_MAP()
    afx_msg void OnGridClick(NMHDR* header, LRESULT* result);
    afx_msg void OnGridDoubleClick(NMHDR* header, LRESULT* result);
    afx_msg void OnGridItemChanging(NMHDR* header, LRESULT* result);
    afx_msg void OnHeadingClick(NMHDR* header, LRESULT* result);
    afx_msg void OnDividerDoubleClick(UINT control, NMHDR* header, LRESULT* result);
    afx_msg void OnDrawItem(int control, LPDRAWITEMSTRUCT item);
    afx_msg BOOL OnTipText(UINT control, NMHDR* header, LRESULT* result);
    afx_msg void OnShowWindow(BOOL show, UINT status);
    afx_msg void OnAddLayers();
    afx_msg void OnRemoveLayers();

  private:
    /// Fills the records from the state.
    /// @return whether at least one layer was read
    bool populateLayers();
    /// Empties the grid and makes a row for each record that isn't removed.
    void rebuildRows();
    void insertColumns();
    void setHeadingImages();
    void setButtonIcon(int button, UINT icon);
    /// Null for a row that the grid doesn't have.
    CLayerRcd* recordOf(int row) const;

    // Selection and clicks.
    void noteSelection(const MSG& press);
    int firstSelectedRow() const;
    std::vector<int> selectedRows() const;
    /// The column under the point of the message that is being handled.
    int columnOfMessage();
    void editCell(int row, int column);
    /// Calls `change` with the row and the record, first of `first` and then of each row that is changed with it.
    template <class Change> void changeRows(int first, Change change);
    void toggle(int first, int column);
    void pickColor(int first);
    void pickLinetype(int first);
    void pickLineWeight(int first);
    void pickPlotStyle(CLayerRcd& first);
    void refuse(UINT textId);

    // Tips.
    void showCellTip(MSG* message);
    bool cellTipText(CPoint screen, CString& text);
    INT_PTR fillTool(TOOLINFO* tool, HWND window, const CRect& rect, const CString& text, INT_PTR id) const;
    bool gridCellAt(CPoint point, int& row, int& column, CRect& columnRect) const;

    // Drawing.
    struct Cell;
    int scaled(int pixels) const;
    void drawName(CDC& dc, const DRAWITEMSTRUCT& item);
    int drawCell(const Cell& cell);
    int drawColor(const Cell& cell);
    int drawLineWeight(const Cell& cell);
    int drawPlotStyle(const Cell& cell);
};

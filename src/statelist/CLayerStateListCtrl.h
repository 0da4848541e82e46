// The list of layer states: one row a state, in report view, filled from a database's layer state service.
#pragma once

#include "CCustomListCtrl.h"
#include "CInPlaceEdit.h"
#include "KelDbDatabase.h"
#include "StateListColumns.h"

#include <span>

/// The list of the states of one database. It keeps no state data: every cell is text read from the host when the list
/// was last filled, and a state is named by the text of its row's first column. The row's item data is the state's
/// mask. Names and descriptions are changed in the working drawing.
class CLayerStateListCtrl : public CCustomListCtrl {
  public:
    CLayerStateListCtrl();
    ~CLayerStateListCtrl() override;

    /// Inserts the columns, with widths that follow the list's present one.
    void InsertColumns(std::span<const ListColumn> columns);
    /// Empties the list in any case, and fills it in the host's order. Selection and focus are gone.
    /// @param database may be null, which leaves the list empty
    /// @param includeDependent also the states of attached references
    /// @param compareToDrawing also the column that tells whether a state matches the drawing
    /// @return whether the list has rows
    bool PopulateStates(KelDbDatabase* database, bool includeDependent, bool compareToDrawing);
    /// The first row of that name without regard to case, -1 when there is none. Rows without a name are passed over.
    int FindState(const wchar_t* name) const;
    /// The state's name, as the row's first column shows it.
    CString StateName(int row) const;

    /// Sorts the rows from `low` to `high` by the text that one column shows. Selection, focus, ticks and item data go
    /// with their rows.
    /// @param high -1 is the last row
    /// @return whether there was something to sort; false for a column that the list doesn't have
    bool SortRows(int column, bool ascending, int low = 0, int high = -1);

    /// Opens the editor over a cell, if the cell may be edited: the description of a state of the drawing's own. An
    /// editor that is open already stays where it is.
    void BeginCellEdit(int row, int column);
    /// Ends what the editor does. Without `cancel` its text becomes the state's description; when the host refuses
    /// that, the editor stays open with the focus in it.
    void EndCellEdit(bool cancel);

    /// A rename in the first column is under way; the manager's actions wait for its end.
    int m_labelEditActive;
    /// The row that a click must hit to open the editor, -1 for none; during a rename the row being renamed.
    int m_trackedRow;
    /// A rename was refused and is to be opened again.
    int m_labelEditRetry;
    /// A click may open the editor of a cell.
    int m_cellEditEnabled;

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnHeaderClick(NMHDR* header, LRESULT* result);
    afx_msg BOOL OnItemChanged(NMHDR* header, LRESULT* result);
    afx_msg void OnClick(NMHDR* header, LRESULT* result);
    afx_msg void OnDeleteItem(NMHDR* header, LRESULT* result);
    afx_msg void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    afx_msg void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    afx_msg BOOL OnMouseWheel(UINT keys, short turned, CPoint point);
    afx_msg LRESULT OnMouseHWheel(WPARAM, LPARAM);
    afx_msg void OnCellEditLeft(NMHDR* header, LRESULT* result);
    afx_msg void OnCellEditCancelled(NMHDR* header, LRESULT* result);
    afx_msg LRESULT OnEditLabel(WPARAM row, LPARAM);
    afx_msg void OnBeginLabelEdit(NMHDR* header, LRESULT* result);
    afx_msg void OnEndLabelEdit(NMHDR* header, LRESULT* result);

    /// Renames the tracked row's state, unless the name can't be used or the host refuses; the user has been told then.
    /// @return non-zero if the state now bears the name
    int CheckRename(const CString& newName);

    /// The state's name at the moment the rename began.
    CString m_oldStateName;
    /// The column of the last click on a heading, -1 before the first.
    int m_sortColumn;
    int m_sortAscending;
    /// The one editor, made when it is first needed.
    CInPlaceEdit m_inPlaceEdit;
    /// The editor of the cell being edited; null when the last clicked cell may not be edited.
    CInPlaceEdit* m_activeEdit;
    /// Row and column of the cell being edited, both -1 when there is none.
    int m_editRow;
    int m_editColumn;

  private:
    void AppendNames(KelDbLayerStateManager& states, bool includeDependent);
    void FillRow(KelDbLayerStateManager& states, int row, bool compareToDrawing);
    bool IsOpen() const;
    bool KeepDescription(const CString& text);
    void CloseCell();
    void FocusBeforeScroll();
    /// Keeps the description that is being typed.
    /// @return false when the host refuses it, so that the editor stays open
    bool FinishCellEdit();
    /// Keeps the description or the name that is being typed.
    /// @return false when an edit stays open: the host or the name's rules refuse the text
    bool FinishEdits();

    /// Several rows were selected when a label edit was asked for.
    bool m_severalSelected;
    /// What was typed as the new name is being looked at; the user may be reading why it can't be used.
    bool m_checkingName;
    /// Rows change places, with all that belongs to them: nothing that the dialog has to know.
    bool m_sorting;
};

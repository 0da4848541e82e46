// The list of layer states: one row a state, in report view, filled from a database's layer state service.
#pragma once

#include "CCustomListCtrl.h"
#include "KelDbDatabase.h"
#include "StateListColumns.h"

#include <span>

/// The list of the states of one database. It keeps no state data: every cell is text read from the host when the list
/// was last filled, and a state is named by the text of its row's first column. The row's item data is the state's
/// mask.
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

    /// A rename in the first column is under way; the manager's actions wait for its end.
    int m_labelEditActive;
    /// The row that a click must hit to open the editor, -1 for none; during a rename the row being renamed.
    int m_trackedRow;
    /// A rename was refused and is to be opened again.
    int m_labelEditRetry;

  protected:
    DECLARE_MESSAGE_MAP()

    /// A click may open the editor of a cell.
    int m_cellEditEnabled;
    /// The state's name at the moment the rename began.
    CString m_oldStateName;
    /// The column of the last click on a heading, -1 before the first.
    int m_sortColumn;
    int m_sortAscending;
    /// Row and column of the cell being edited, both -1 when there is none.
    int m_editRow;
    int m_editColumn;

  private:
    void AppendNames(KelDbLayerStateManager& states, bool includeDependent);
    void FillRow(KelDbLayerStateManager& states, int row, bool compareToDrawing);
};

// Sorting the list of states by a click on a heading.
#include "CLayerStateListCtrl.h"

#include "FlagForLife.h"
#include "ListRedrawLock.h"
#include "RowSort.h"

namespace {

/// The rows of a list as they stand in the control, by the text of one column. Nothing is kept beside the control.
class ControlRows {
  public:
    ControlRows(CListCtrl& list, int column)
        : m_list(list), m_column(column), m_columns(list.GetHeaderCtrl()->GetItemCount()) {}

    CString text(int row) const { return m_list.GetItemText(row, m_column); }

    /// All of a row changes places: its texts, and its image, item data and state.
    void swap(int first, int second) {
        CStringArray texts;
        texts.SetSize(m_columns);
        for (int column = 0; column < m_columns; ++column)
            texts[column] = m_list.GetItemText(first, column);
        LVITEM firstItem = readItem(first);
        LVITEM secondItem = readItem(second);
        for (int column = 0; column < m_columns; ++column)
            m_list.SetItemText(first, column, m_list.GetItemText(second, column));
        secondItem.iItem = first;
        m_list.SetItem(&secondItem);
        for (int column = 0; column < m_columns; ++column)
            m_list.SetItemText(second, column, texts[column]);
        firstItem.iItem = second;
        m_list.SetItem(&firstItem);
    }

  private:
    LVITEM readItem(int row) const {
        LVITEM item = {};
        item.mask = LVIF_IMAGE | LVIF_PARAM | LVIF_STATE;
        item.stateMask =
            LVIS_FOCUSED | LVIS_SELECTED | LVIS_CUT | LVIS_DROPHILITED | LVIS_OVERLAYMASK | LVIS_STATEIMAGEMASK;
        item.iItem = row;
        m_list.GetItem(&item);
        return item;
    }

    CListCtrl& m_list;
    int m_column;
    int m_columns;
};

} // namespace

void CLayerStateListCtrl::OnHeaderClick(NMHDR* header, LRESULT* result) {
    constexpr int kLeftButton = 0;
    *result = 0;
    const auto* click = reinterpret_cast<const NMHEADER*>(header);
    if (click->iButton != kLeftButton)
        return;
    CWaitCursor wait;
    // An edit knows its cell by the row, which is about to move.
    if (!FinishEdits())
        return;
    m_sortAscending = click->iItem == m_sortColumn ? !m_sortAscending : 1;
    m_sortColumn = click->iItem;
    ListRedrawLock quiet(*this);
    SortRows(m_sortColumn, m_sortAscending != 0, 0, -1);
}

bool CLayerStateListCtrl::SortRows(int column, bool ascending, int low, int high) {
    if (column >= GetHeaderCtrl()->GetItemCount())
        return false;
    if (high == -1)
        high = GetItemCount() - 1;
    if (high <= low)
        return false;
    const FlagForLife sorting(m_sorting);
    ControlRows rows(*this, column);
    sortRows(rows, ascending, low, high);
    return true;
}

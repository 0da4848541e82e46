// Finding and selecting rows.
#include "CCustomListCtrl.h"

int CCustomListCtrl::FirstSelectedRow() const {
    return GetNextItem(-1, LVNI_SELECTED);
}

void CCustomListCtrl::SelectRow(int row) {
    SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    // The control sets its mark on the user's selections, and not in every version on the program's.
    SetSelectionMark(row);
}

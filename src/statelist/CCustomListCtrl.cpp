#include "CCustomListCtrl.h"

int CCustomListCtrl::FirstSelectedRow() const {
    return GetNextItem(-1, LVNI_SELECTED);
}

void CCustomListCtrl::SelectRow(int row) {
    SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    // Every version of the control moves its mark when the user selects, but not every one when the program does.
    SetSelectionMark(row);
}

// Selecting rows of a list all together.
#pragma once

#include <afxcmn.h>

inline constexpr UINT kSelectedAndFocused = LVIS_SELECTED | LVIS_FOCUSED;

/// No row keeps the selection or the focus.
inline void deselectAllRows(CListCtrl& list) {
    list.SetItemState(-1, 0, kSelectedAndFocused);
}

/// Selects every row and gives the last one the focus.
inline void selectAllRows(CListCtrl& list) {
    // A list refuses the focus for all rows at once. Of those that get it in turn, the last would keep it.
    list.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
    list.SetItemState(list.GetItemCount() - 1, LVIS_FOCUSED, LVIS_FOCUSED);
}

// The base of the module's lists in report view.
#pragma once

#include "OrvUiControls.h"

/// A list whose rows are found and selected by index.
class CCustomListCtrl : public COrvUiListCtrl {
  public:
    /// The top-most selected row, -1 when none is selected.
    int FirstSelectedRow() const;
    /// Selects and focuses the row, and makes it the one that keys act on.
    void SelectRow(int row);
};

// The grid in which a state is edited.
#pragma once

#include "OrvUiControls.h"

/// The dialog draws its rows and answers its notifications. Row numbers say nothing about the order of the records,
/// which the rows refer to by their item data.
class CLayerStateList : public COrvUiListCtrl {
  public:
    ~CLayerStateList() override;
    /// A tip shows wherever there is a cell.
    int OnGetTipRect(CRect& rect) override;
};

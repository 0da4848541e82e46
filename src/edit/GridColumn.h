// The columns of the grid in which a state is edited.
#pragma once

/// The columns by number.
enum GridColumn : int {
    nameGridColumn,
    onGridColumn,
    freezeGridColumn,
    lockGridColumn,
    colorGridColumn,
    linetypeGridColumn,
    lineWeightGridColumn,
    plotStyleGridColumn,
    plotGridColumn,
    newVpFreezeGridColumn,
    gridColumnCount
};

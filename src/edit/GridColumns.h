// The columns of the grid in which a state is edited, and the property that each shows.
#pragma once

#include "CLayerRcd.h"
#include "GridColumn.h"
#include "resource.h"

#include <iterator>

/// What kind of property a column shows. The numbers are those by which the images are chosen; 9 isn't used.
enum ColumnKind : int {
    nameKind = 0,
    onKind = 1,
    freezeKind = 2,
    lockKind = 3,
    colorKind = 4,
    linetypeKind = 5,
    lineWeightKind = 6,
    plotStyleKind = 7,
    plotKind = 8,
    newVpFreezeKind = 10,
};

/// The one place where a column is tied to a property.
inline constexpr int columnKind[] = {nameKind,     onKind,         freezeKind,    lockKind, colorKind,
                                     linetypeKind, lineWeightKind, plotStyleKind, plotKind, newVpFreezeKind};
static_assert(std::size(columnKind) == gridColumnCount);

/// A column as it is inserted.
struct GridColumnShape {
    unsigned int headingId; ///< its heading's text, which is its tip too
    int width;              ///< in pixels of a display at 96 dots an inch
    /// What its heading shows before the text, which has no room in so narrow a column; -1 for none.
    int headingImage;
};

inline constexpr GridColumnShape kGridColumns[] = {
    {IDS_LSTATE_COLUMN_NAME, 150, -1},      {IDS_LSTATE_COLUMN_ON, 24, 0},         {IDS_LSTATE_COLUMN_FREEZE, 24, 1},
    {IDS_LSTATE_COLUMN_LOCK, 24, 2},        {IDS_LSTATE_COLUMN_COLOR, 24, 3},      {IDS_LSTATE_COLUMN_LINETYPE, 60, -1},
    {IDS_LSTATE_COLUMN_LINEWEIGHT, 60, -1}, {IDS_LSTATE_COLUMN_PLOTSTYLE, 60, -1}, {IDS_LSTATE_COLUMN_PLOT, 24, 4},
    {IDS_LSTATE_COLUMN_NEWVPFREEZE, 24, 5},
};
static_assert(std::size(kGridColumns) == gridColumnCount);

/// The record's flag of a kind; null for a kind that isn't a flag.
inline bool CLayerRcd::*flagOfKind(int kind) {
    switch (kind) {
    case onKind:
        return &CLayerRcd::m_isOff;
    case freezeKind:
        return &CLayerRcd::m_isFrozen;
    case lockKind:
        return &CLayerRcd::m_isLocked;
    case plotKind:
        return &CLayerRcd::m_isPlottable;
    case newVpFreezeKind:
        return &CLayerRcd::m_isNewVpFrozen;
    default:
        return nullptr;
    }
}

/// The text that the cell of a flag holds. Nobody sees it: a click reads from it which way to turn the flag.
inline const wchar_t* flagText(bool flag) {
    return flag ? L"1" : L"0";
}

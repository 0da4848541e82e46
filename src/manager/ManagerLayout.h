// The manager's measures: the columns of its list, the width of its property panel, the row that it opens on.
#pragma once

#include "StateListColumns.h"
#include "resource.h"

/// In the order of the columns.
inline constexpr ListColumn kManagerColumns[] = {
    {IDS_LSTATE_COLUMN_NAME, 0.4},
    {IDS_LSTATE_COLUMN_SPACE, 0.14},
    {IDS_LSTATE_COLUMN_SAME, 0.1},
    {IDS_LSTATE_COLUMN_DESCRIPTION, 0.35},
};
static_assert(kManagerColumns[nameColumn].headingId == IDS_LSTATE_COLUMN_NAME);
static_assert(kManagerColumns[spaceColumn].headingId == IDS_LSTATE_COLUMN_SPACE);
static_assert(kManagerColumns[sameColumn].headingId == IDS_LSTATE_COLUMN_SAME);
static_assert(kManagerColumns[descriptionColumn].headingId == IDS_LSTATE_COLUMN_DESCRIPTION);

// The property panel. The check of the resource module reads these four names too.

inline constexpr int kPanelFrame = IDC_LSTATE_RES_PANEL;
/// The control at the dialog's right margin while the panel is closed.
inline constexpr int kBesidePanel = IDC_LSTATE_RES_NEW;
/// What belongs to the panel besides the property boxes.
inline constexpr int kPanelControls[] = {kPanelFrame, IDC_LSTATE_RES_SELECTALL, IDC_LSTATE_RES_CLEARALL};
/// What moves with the dialog's right edge.
inline constexpr int kEdgeControls[] = {IDC_LSTATE_RES_RESTORE, IDC_LSTATE_RES_CLOSE, ID_HELP, IDC_LSTATE_RES_EXPAND};

/// How far the property panel stands out beyond the dialog's other controls, in pixels: what the dialog narrows by when
/// the panel is closed. Taken from the right edges of `kPanelFrame` and `kBesidePanel`.
constexpr int panelWidthFrom(int panelFrameRight, int besidePanelRight) {
    return panelFrameRight - besidePanelRight;
}

/// The row that the manager selects: the one found for a name, or else the first; -1 when there are no rows.
/// @param found row of the name, -1 when no row bears it
constexpr int rowToSelect(int rowCount, int found) {
    if (rowCount <= 0)
        return -1;
    return found >= 0 ? found : 0;
}

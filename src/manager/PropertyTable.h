// The one source for the ten property boxes of the manager: which box stands for which bit of a state's mask. Every
// loop over the boxes walks this table.
#pragma once

#include "LayerStateMask.h"
#include "resource.h"

/// One property: its check box, and its bit.
struct PropertyBox {
    int control;
    LayerStateMask bit;
};

/// In the order of the boxes; a zero row ends it.
inline constexpr PropertyBox propertyTable[] = {
    {IDC_LSTATE_RES_ON, MaskOn},
    {IDC_LSTATE_RES_FROZEN, MaskFrozen},
    {IDC_LSTATE_RES_VPFROZEN, MaskViewportFrozen},
    {IDC_LSTATE_RES_LOCKED, MaskLocked},
    {IDC_LSTATE_RES_PLOT, MaskPlot},
    {IDC_LSTATE_RES_NEWVP, MaskNewViewportFrozen},
    {IDC_LSTATE_RES_COLOR, MaskColor},
    {IDC_LSTATE_RES_LINETYPE, MaskLinetype},
    {IDC_LSTATE_RES_LINEWEIGHT, MaskLineWeight},
    {IDC_LSTATE_RES_PLOTSTYLE, MaskPlotStyle},
    {0, 0},
};

/// The first three rows have enable rules of their own, which look at the current viewport; the rest share one.
inline constexpr const PropertyBox* firstBoxOfCommonRule = propertyTable + 3;
/// The overridable group is the end of the table.
inline constexpr const PropertyBox* firstOverridableBox = propertyTable + 6;

/// Whether the box of `bit` is ticked for a state of that mask: all of its bits are in the mask.
constexpr bool isTickedBy(LayerStateMask mask, LayerStateMask bit) {
    return (mask & bit) == bit;
}

/// The mask that the boxes show. `isTicked(control)` is asked for each box of the table, enabled or not, shown or not.
template <class IsTicked> LayerStateMask maskFromBoxes(IsTicked isTicked) {
    LayerStateMask mask = 0;
    for (const PropertyBox* box = propertyTable; box->control != 0; ++box)
        if (isTicked(box->control))
            mask |= box->bit;
    return mask;
}

/// Whether at least one box of the overridable group is ticked.
template <class IsTicked> bool anyOverridableBoxTicked(IsTicked isTicked) {
    for (const PropertyBox* box = firstOverridableBox; box->control != 0; ++box)
        if (isTicked(box->control))
            return true;
    return false;
}

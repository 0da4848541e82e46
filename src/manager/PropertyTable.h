// The one list of the ten properties in the manager: which box shows which bit of a state's mask, and when it is
// enabled. Every loop over the boxes walks this table.
#pragma once

#include "EnableRules.h"
#include "LayerStateMask.h"
#include "resource.h"

#include <bit>

/// One property: its check box, its bit, and when the box is enabled.
struct PropertyBox {
    int control;
    LayerStateMask bit;
    EnableRule rule;

    /// Whether a restore can apply the property as an override of a viewport.
    constexpr bool isOverridable() const { return (bit & MaskOverridable) != 0; }
};

/// In the order of the boxes.
inline constexpr PropertyBox kPropertyTable[] = {
    {IDC_LSTATE_RES_ON, MaskOn, EnableRule::oneRowInModel},
    {IDC_LSTATE_RES_FROZEN, MaskFrozen, EnableRule::oneRowInModel},
    {IDC_LSTATE_RES_VPFROZEN, MaskViewportFrozen, EnableRule::oneRowInViewport},
    {IDC_LSTATE_RES_LOCKED, MaskLocked, EnableRule::oneRow},
    {IDC_LSTATE_RES_PLOT, MaskPlot, EnableRule::oneRow},
    {IDC_LSTATE_RES_NEWVP, MaskNewViewportFrozen, EnableRule::oneRow},
    {IDC_LSTATE_RES_COLOR, MaskColor, EnableRule::oneRow},
    {IDC_LSTATE_RES_LINETYPE, MaskLinetype, EnableRule::oneRow},
    {IDC_LSTATE_RES_LINEWEIGHT, MaskLineWeight, EnableRule::oneRow},
    {IDC_LSTATE_RES_PLOTSTYLE, MaskPlotStyle, EnableRule::oneRow},
};

/// The boxes of the overridable properties have the ids from this one to the next constant's, for message maps.
inline constexpr int kFirstOverridableBox = IDC_LSTATE_RES_COLOR;
inline constexpr int kLastOverridableBox = IDC_LSTATE_RES_PLOTSTYLE;

static_assert(
    [] {
        LayerStateMask held = 0;
        for (const PropertyBox& box : kPropertyTable) {
            if (!std::has_single_bit(box.bit) || (held & box.bit) != 0)
                return false;
            held |= box.bit;
        }
        return held == MaskAllProperties;
    }(),
    "the table holds each property once");
static_assert(
    [] {
        for (const PropertyBox& box : kPropertyTable)
            if (box.isOverridable() != (kFirstOverridableBox <= box.control && box.control <= kLastOverridableBox))
                return false;
        return true;
    }(),
    "the range of ids holds the overridable boxes and no other");

/// Whether the box of `bit` is ticked for a state of that mask: all of its bits are in the mask.
constexpr bool isTickedBy(LayerStateMask mask, LayerStateMask bit) {
    return (mask & bit) == bit;
}

/// The mask that the boxes show. `isTicked(control)` is asked for each box of the table, enabled or not, shown or not.
template <class IsTicked> LayerStateMask maskFromBoxes(IsTicked isTicked) {
    LayerStateMask mask = 0;
    for (const PropertyBox& box : kPropertyTable)
        if (isTicked(box.control))
            mask |= box.bit;
    return mask;
}

/// Whether at least one box of an overridable property is ticked.
template <class IsTicked> bool anyOverridableBoxTicked(IsTicked isTicked) {
    for (const PropertyBox& box : kPropertyTable)
        if (box.isOverridable() && isTicked(box.control))
            return true;
    return false;
}

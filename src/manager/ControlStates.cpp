// The enable rules of the manager's controls, as a table.
#include "ControlStates.h"

#include "PropertyTable.h"

namespace {

enum class Rule { always, anyRow, anyRowNoneDependent, oneRow, oneRowNotDependent, oneRowInModel, oneRowInViewport };

struct ControlRule {
    int control;
    Rule rule;
};

// A state of a reference can be restored but not changed: what would alter or export it refuses a dependent selection.
constexpr ControlRule controlRules[] = {
    {IDC_LSTATE_RES_NEW, Rule::always},
    {IDC_LSTATE_RES_DELETE, Rule::anyRowNoneDependent},
    {IDC_LSTATE_RES_RESTORE, Rule::oneRow},
    {IDC_LSTATE_RES_EXPORT, Rule::oneRowNotDependent},
    {IDC_LSTATE_RES_RENAME, Rule::oneRowNotDependent},
    {IDC_LSTATE_RES_EDIT, Rule::oneRowNotDependent},
    {IDC_LSTATE_RES_UPDATE, Rule::oneRowNotDependent},
    {IDC_LSTATE_RES_IMPORT, Rule::always},
    {IDC_LSTATE_RES_LAYERNOTFOUND, Rule::anyRow},
    {IDC_LSTATE_RES_ON, Rule::oneRowInModel},
    {IDC_LSTATE_RES_FROZEN, Rule::oneRowInModel},
    {IDC_LSTATE_RES_VPFROZEN, Rule::oneRowInViewport},
    {IDC_LSTATE_RES_PANEL, Rule::oneRow},
    {IDC_LSTATE_RES_SELECTALL, Rule::oneRow},
    {IDC_LSTATE_RES_CLEARALL, Rule::oneRow},
};

bool holds(Rule rule, const SelectionFacts& facts) {
    const bool any = facts.selectedRows >= 1;
    const bool one = facts.selectedRows == 1;
    switch (rule) {
    case Rule::always:
        return true;
    case Rule::anyRow:
        return any;
    case Rule::anyRowNoneDependent:
        return any && !facts.dependentSelected;
    case Rule::oneRow:
        return one;
    case Rule::oneRowNotDependent:
        return one && !facts.dependentSelected;
    case Rule::oneRowInModel:
        return one && !facts.inViewport;
    case Rule::oneRowInViewport:
        return one && facts.inViewport;
    }
    return false;
}

} // namespace

bool overridesOptionEnabled(const SelectionFacts& facts) {
    // With several rows, or one whose mask can't be read, nothing is known that speaks against it.
    if (facts.selectedRows == 1 && facts.mask)
        return facts.inViewport && (*facts.mask & MaskOverridable) != 0;
    return facts.selectedRows >= 1;
}

std::vector<ControlState> controlStates(const SelectionFacts& facts) {
    std::vector<ControlState> states;
    states.reserve(24);
    states.push_back({IDC_LSTATE_RES_OVERRIDES, overridesOptionEnabled(facts)});
    for (const ControlRule& row : controlRules)
        states.push_back({row.control, holds(row.rule, facts)});
    for (const PropertyBox* box = firstBoxOfCommonRule; box->control != 0; ++box)
        states.push_back({box->control, holds(Rule::oneRow, facts)});
    return states;
}

// Which rule decides whether a control of the manager is enabled. A control that isn't listed is always as its template
// has it.
#pragma once

#include "EnableRules.h"
#include "PropertyTable.h"
#include "resource.h"

#include <algorithm>
#include <array>
#include <iterator>

/// One control and its rule.
struct ControlRule {
    int control;
    EnableRule rule;
};

/// Each control once; the property boxes are taken from their own table.
inline constexpr auto kControlRules = [] {
    // A state of a reference can be restored but not changed: what would change or export a state is disabled while one
    // of a reference is selected.
    constexpr ControlRule others[] = {
        {IDC_LSTATE_RES_OVERRIDES, EnableRule::rowsForOverrides},
        {IDC_LSTATE_RES_NEW, EnableRule::always},
        {IDC_LSTATE_RES_DELETE, EnableRule::anyRowNoneDependent},
        {IDC_LSTATE_RES_RESTORE, EnableRule::oneRow},
        {IDC_LSTATE_RES_EXPORT, EnableRule::oneRowNotDependent},
        {IDC_LSTATE_RES_RENAME, EnableRule::oneRowNotDependent},
        {IDC_LSTATE_RES_EDIT, EnableRule::oneRowNotDependent},
        {IDC_LSTATE_RES_UPDATE, EnableRule::oneRowNotDependent},
        {IDC_LSTATE_RES_IMPORT, EnableRule::always},
        {IDC_LSTATE_RES_LAYERNOTFOUND, EnableRule::anyRow},
        {IDC_LSTATE_RES_PANEL, EnableRule::oneRow},
        {IDC_LSTATE_RES_SELECTALL, EnableRule::oneRow},
        {IDC_LSTATE_RES_CLEARALL, EnableRule::oneRow},
    };
    std::array<ControlRule, std::size(others) + std::size(kPropertyTable)> rules{};
    const auto boxes = std::copy(std::begin(others), std::end(others), rules.begin());
    std::transform(std::begin(kPropertyTable), std::end(kPropertyTable), boxes, [](const PropertyBox& box) {
        return ControlRule{box.control, box.rule};
    });
    return rules;
}();

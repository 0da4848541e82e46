#include "EnableRules.h"

bool isEnabled(EnableRule rule, const SelectionFacts& facts) {
    const bool any = facts.selectedRows >= 1;
    const bool one = facts.selectedRows == 1;
    switch (rule) {
    case EnableRule::always:
        return true;
    case EnableRule::anyRow:
        return any;
    case EnableRule::anyRowNoneDependent:
        return any && !facts.dependentSelected;
    case EnableRule::oneRow:
        return one;
    case EnableRule::oneRowNotDependent:
        return one && !facts.dependentSelected;
    case EnableRule::oneRowInModel:
        return one && !facts.inViewport;
    case EnableRule::oneRowInViewport:
        return one && facts.inViewport;
    case EnableRule::rowsForOverrides:
        break;
    }
    // With several rows, or one whose mask can't be read, nothing is known that forbids it.
    if (one && facts.mask)
        return facts.inViewport && (*facts.mask & MaskOverridable) != 0;
    return any;
}

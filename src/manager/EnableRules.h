// When a control of the manager is enabled: the facts are gathered once into a plain struct, and one function answers
// for every rule.
#pragma once

#include "LayerStateMask.h"

#include <optional>

/// What the enable state of the manager's controls depends on.
struct SelectionFacts {
    int selectedRows = 0;
    /// Whether a viewport of a layout is current.
    bool inViewport = false;
    /// Whether some selected row's state belongs to an attached reference.
    bool dependentSelected = false;
    /// The mask of the one selected state; empty with another number of rows, or when it can't be read.
    std::optional<LayerStateMask> mask;
};

enum class EnableRule {
    always,
    anyRow,
    anyRowNoneDependent,
    oneRow,
    oneRowNotDependent,
    oneRowInModel,
    oneRowInViewport,
    /// Rows that can be restored as overrides of the viewport, as far as that is known. When a property box is clicked,
    /// the dialog sets the control by the boxes alone, without this rule.
    rowsForOverrides,
};

bool isEnabled(EnableRule rule, const SelectionFacts& facts);

// Decides which controls of the manager are enabled: the facts are gathered once into a plain struct, and one function
// answers for all controls.
#pragma once

#include "LayerStateMask.h"

#include <optional>
#include <vector>

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

/// One control and whether it is enabled.
struct ControlState {
    int control;
    bool enabled;
};

/// Whether the option to restore as overrides of the viewport is enabled. Selecting a property box changes this answer
/// in the dialog without asking here.
bool overridesOptionEnabled(const SelectionFacts& facts);

/// The enable state of each control that has one, each control once.
std::vector<ControlState> controlStates(const SelectionFacts& facts);

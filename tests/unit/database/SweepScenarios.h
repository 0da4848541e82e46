// What callers of the engine do, as careful callers do it: each scenario stops at a failure and leaves nothing open.
// The sweeps replay them with each call failing once.
#pragma once

#include "FaultSweep.h"

struct NamedScenario {
    const char* name;
    sweep::Scenario scenario;
};

/// Saving, restoring, changing and moving of states.
std::vector<NamedScenario> stateScenarios();
/// Layers, dictionaries, extended data, values: what is opened and handed out.
std::vector<NamedScenario> objectScenarios();

/// A drawing of the layers Base, Walls, Doors and Furniture, with the states "Plan" (Walls red, described) and "Cut"
/// (with the viewport's data), changed since.
void prepareStates(KelDbDatabase& database);
/// The id of the drawing's first viewport.
KelDbObjectId firstViewport(const KelDbDatabase& database);

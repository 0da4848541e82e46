// A small drawing that uses everything a drawing can hold.
#pragma once

#include "model/Drawing.h"

/// Three layers and one of a reference, four states, every kind of entity, viewports with overrides, extended data.
/// The file in tests/data of the first version holds it too: what is added later belongs into another drawing.
zdr::Drawing sampleDrawing();

/// The least that a drawing can be: one layer.
zdr::Drawing plainDrawing();

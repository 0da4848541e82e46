// A small drawing that uses everything a drawing can hold.
#pragma once

#include "model/Drawing.h"

/// Three layers and one of a reference, four states, every kind of entity, viewports with overrides, extended data.
/// The file in tests/data of the first version holds it too: what is added later belongs into another drawing.
zdr::Drawing sampleDrawing();

/// The same with named colours on a layer, in a state, on entities and in an override; the first of its table is used
/// by nothing. The file in tests/data of version 2 holds it.
zdr::Drawing namedColorsDrawing();
/// The colours with names in it that are used, in the order of their table.
std::vector<KelCmColor> sampleNamedColors();

/// The first one with a linetype scale of its own. The file in tests/data of version 3 holds it.
zdr::Drawing linetypeScaleDrawing();

/// The first one with its first reference unloaded. The file in tests/data of version 4 holds it.
zdr::Drawing unloadedDrawing();

/// The least that a drawing can be: one layer.
zdr::Drawing plainDrawing();

// Drawings whose states hold columns of their own, for benchmarks that must touch memory.
#pragma once

#include "model/Drawing.h"

/// A drawing of so many layers with the states "State 0", "State 1" and so on. Each state has the drawing's values, in
/// memory of its own.
/// @param reversed the states hold the layers in the opposite order
zdr::Drawing drawingWithOwnColumns(std::size_t layers, std::size_t states, bool reversed);

// Drawings whose states hold columns of their own, for benchmarks that must touch memory.
#pragma once

#include "model/Drawing.h"

/// "State 0", "State 1" and so on over so many layers; each state's values are the drawing's, in memory of its own.
/// @param reversed the states hold the layers in the opposite order
zdr::Drawing drawingWithOwnColumns(std::size_t layers, std::size_t states, bool reversed);

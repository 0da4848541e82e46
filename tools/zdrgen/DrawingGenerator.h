// Drawings of any size for tests, benchmarks and trials: the same options make the same drawing on every system.
#pragma once

#include "model/Drawing.h"

namespace zdr {

struct GeneratorOptions {
    std::size_t layers = 100; ///< at least 1
    std::size_t states = 10;  ///< every second one matches the drawing
    std::size_t entities = 200;
    std::size_t namedColors = 0; ///< of which the layers take some
    std::uint64_t seed = 1;
};

/// A drawing as an office might keep it: layers named by discipline, a handful of linetypes and plot styles, a sheet
/// with two viewports, and layer states of which half show the drawing as it is.
Drawing generateDrawing(const GeneratorOptions& options);

} // namespace zdr

// Taking a reference out of a drawing.
#pragma once

#include "model/Drawing.h"

namespace workbench {

/// The drawing without a reference, its layers, its states, and the styles that came with it and that nothing uses any
/// more. The drawing's own states keep what they say about those layers. What the drawing itself has on one of those
/// layers goes to the current layer.
zdr::Drawing withoutReference(zdr::Drawing drawing, std::size_t reference);

} // namespace workbench

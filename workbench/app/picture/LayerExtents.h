// Where what lies on some layers is drawn.
#pragma once

#include "Geometry.h"

#include <vector>

namespace workbench {

struct LayerExtents {
    Rect drawn;            ///< around all that is drawn of them; empty when nothing is
    bool isHidden = false; ///< something on them isn't drawn, because it is off or frozen
};

/// Looks at the space on view. On a layout these are its paper, in whose units the answer is, and what its viewports
/// show of model space; what lies beside a viewport's box counts as not there.
/// @param wanted for each layer of the drawing whether it is meant
LayerExtents layerExtents(const zdr::Drawing& drawing, const std::vector<bool>& wanted);

} // namespace workbench

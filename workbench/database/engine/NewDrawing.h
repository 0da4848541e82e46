// What every drawing has, whoever wrote it.
#pragma once

#include "model/Drawing.h"

namespace engine {

/// A new drawing: the base layer, the continuous linetype, the normal plot style, one sheet with one viewport.
zdr::Drawing newDrawing();
/// Gives handles to what has none, keeps the counter of handles ahead of all, joins the states that hold just the
/// drawing's layers to the drawing's own set, sorts extended data by object and registers its applications.
void completeDrawing(zdr::Drawing& drawing);

} // namespace engine

// The colour sample of a grid cell. Windows tier.
#pragma once

#include "KelCmColor.h"

#include <afxwin.h>

/// Draws a square of the colour, 12 by 12 pixels with a black border, into a new bitmap that fits `dc`. By layer (256)
/// is white. A bitmap that `bitmap` holds is deleted first, and after a failure it holds none.
/// @return false without a context, or when the system has no room for the bitmap or the tools to draw it
bool makeColorSwatch(CBitmap& bitmap, KelCmColor color, CDC* dc);

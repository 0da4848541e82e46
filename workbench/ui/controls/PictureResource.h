// Between pictures in memory and Windows: loading from a bitmap resource, drawing.
#pragma once

#include "AlphaImage.h"

#include <windows.h>

namespace framework {

/// The named bitmap resource of a module; empty when it isn't there or can't be read.
AlphaImage loadPicture(HINSTANCE module, const wchar_t* resourceName);
/// Blends the picture over what stands at that place.
void drawPicture(HDC dc, POINT topLeft, const AlphaImage& picture);

} // namespace framework

// Paints a picture of a drawing through GDI.
#pragma once

#include "Picture.h"

#include <afxwin.h>

namespace workbench {

/// Paints the picture over all of `window`, the background included.
void paintPicture(CDC& dc, const Picture& picture, const CRect& window, int dpi);

} // namespace workbench

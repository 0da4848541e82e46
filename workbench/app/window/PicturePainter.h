// Paints a picture of a drawing through GDI.
#pragma once

#include "Picture.h"

#include <afxwin.h>

namespace workbench {

/// Paints everything of the picture on a background of that colour over `window`.
void paintPicture(CDC& dc, const Picture& picture, const CRect& window, int dpi);

} // namespace workbench

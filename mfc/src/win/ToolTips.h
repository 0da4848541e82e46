// What the rest of the library tells the tips that EnableToolTips brings.
#pragma once

#include <afxcmn.h>

namespace kelmfc {

/// The window is going: what it was asked for isn't under the pointer any more.
void removeTipsOf(HWND window);
/// The window, with all that is in it, is no longer the active one.
void hideTipsOver(HWND window);

/// The visible child at a point of the screen, enabled or not; null when there is none. Children with the id -1, as
/// labels have it, don't count.
HWND childAt(HWND window, POINT point);

} // namespace kelmfc

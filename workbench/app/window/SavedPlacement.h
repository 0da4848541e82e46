// Where the main window stood, from one run to the next.
#pragma once

#include <afxwin.h>

namespace workbench {

/// Puts the window where it was saved, if that is still on a screen; answers the show command that goes with it, or
/// `show` without one.
int restorePlacement(CWnd& window, int show);
void savePlacement(const CWnd& window);

} // namespace workbench

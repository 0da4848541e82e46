// Where the main window stood, from one run to the next.
#pragma once

#include <afxwin.h>

namespace workbench {

/// What a display's work area is in the coordinates of GetWindowPlacement and SetWindowPlacement: they count from the
/// corner of the work area, as if no taskbar stood above or left of it. Both arguments are in screen coordinates.
RECT workspaceOf(const RECT& workArea, const RECT& display);

/// Puts the window where it was saved, moved and cut so that it lies wholly on a work area, and answers the show
/// command that goes with it. When nothing sensible was saved the window stays as it is, and the answer is `show`.
int restorePlacement(CWnd& window, int show);
void savePlacement(const CWnd& window);

} // namespace workbench

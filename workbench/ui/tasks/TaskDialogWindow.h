// Shows a described task dialog by the system's TaskDialogIndirect.
#pragma once

#include "TaskDialogFile.h"

#include <windows.h>

namespace framework {

/// Answers the pressed button's number, the commands from kTaskDialogFirstCommand on; 0 when it could not be shown.
int showTaskDialog(HWND parent, const TaskDescription& description);

} // namespace framework

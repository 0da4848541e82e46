// What a person would call ugly in a dialog, measured: texts that are cut off, controls that lie over each other or out
// of the dialog, fonts of another size than the display's scaling asks for.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace gallery {

/// Each problem as a sentence that names the control; none when the dialog is laid out well. Looks at visible controls
/// only. The system's own dialogs aren't meant.
std::vector<std::string> layoutProblems(HWND dialog);

} // namespace gallery

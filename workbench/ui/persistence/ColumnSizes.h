// Keeps and restores the widths of a list's columns.
#pragma once

#include <windows.h>

#include <string>

namespace framework {

/// Applies the kept widths, if there is exactly one for each of the list's columns; otherwise changes nothing.
/// @return whether they were applied
bool restoreColumnSizes(const std::wstring& dialogName, HWND list);
/// Widths are kept with the scaling of the display that they were chosen on, and scaled to the present one's.
void keepColumnSizes(const std::wstring& dialogName, HWND list);

/// Gives the columns of the dialog's lists the widths that they have at `to` dots an inch instead of `from`.
void scaleColumns(HWND dialog, int from, int to);

} // namespace framework

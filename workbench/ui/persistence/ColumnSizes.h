// Keeps and restores the widths of a list's columns.
#pragma once

#include <windows.h>

#include <string>

namespace framework {

/// Applies the kept widths, if there is exactly one for each of the list's columns; otherwise the widths stand.
/// @return whether they were applied
bool restoreColumnSizes(const std::wstring& dialogName, HWND list);
void keepColumnSizes(const std::wstring& dialogName, HWND list);

} // namespace framework

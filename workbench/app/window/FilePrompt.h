// The system's file dialog, asked for drawings.
#pragma once

#include <afxwin.h>

#include <optional>
#include <string>

namespace workbench {

std::optional<std::wstring> promptForDrawingToOpen(HWND owner);
/// @param proposal the name, or the full path, that stands in the dialog at first
std::optional<std::wstring> promptForDrawingToSave(HWND owner, const std::wstring& proposal);

} // namespace workbench

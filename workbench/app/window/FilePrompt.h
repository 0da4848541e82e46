// The system's file dialog, asked for drawings and scripts.
#pragma once

#include <afxwin.h>

#include <optional>
#include <string>

namespace workbench {

/// Each answers a path, or none when the user cancels.
/// @param folder in which the dialog opens; empty: the system chooses one
std::optional<std::wstring> promptForDrawingToOpen(HWND owner, const std::wstring& folder);
std::optional<std::wstring> promptForScript(HWND owner, const std::wstring& folder);
/// @param proposal the name, or the full path, that stands in the dialog at first
std::optional<std::wstring> promptForDrawingToSave(HWND owner, const std::wstring& proposal);

} // namespace workbench

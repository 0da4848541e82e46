// The list of recent files, from one run to the next, and shared by all Workbenches of a user.
#pragma once

#include "RecentFiles.h"

namespace workbench {

/// Below the current user's part of the registry.
inline constexpr const wchar_t* kRecentFilesKey = L"Software\\KelWorkbench\\Files";

/// What is kept; nothing when it isn't a list of texts of a reasonable size.
RecentFiles savedRecentFiles();
void saveRecentFiles(const RecentFiles& files);

} // namespace workbench

// Modules by the names of their files.
#pragma once

#include <string>
#include <vector>

namespace workbench {

/// The file name at the end of a path.
std::wstring moduleName(const std::wstring& path);
std::vector<std::wstring> moduleNames(const std::vector<std::wstring>& paths);
/// The path of the module that a typed word names: by its path, its file name, or that without its ending, without
/// regard to case; the one loaded last where there are several, and an empty text where there is none.
std::wstring findModule(const std::vector<std::wstring>& paths, const std::wstring& typed);

} // namespace workbench

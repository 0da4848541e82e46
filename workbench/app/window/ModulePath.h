// Where a module that is named lies.
#pragma once

#include <string>

namespace workbench {

/// The path of the module that a path as it was typed means: with the ending ".xmod" where it has none, and beside the
/// program where it has no folder.
std::wstring modulePath(const std::wstring& typed);

} // namespace workbench

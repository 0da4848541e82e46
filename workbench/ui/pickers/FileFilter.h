// The file types that a file dialog offers.
#pragma once

#include "KelExport.h"

#include <string>
#include <string_view>
#include <vector>

namespace framework {

/// The extensions of a list separated by semicolons; empty ones and repeated ones are left out.
KELUI_API std::vector<std::wstring> splitExtensions(std::wstring_view list);
/// The filter of the system's file dialog: with several extensions first all of them at once, then each one. It ends
/// with two null characters, of which the string's own end is one.
KELUI_API std::wstring fileFilter(const std::vector<std::wstring>& extensions);

} // namespace framework

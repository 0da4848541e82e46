// Finds the file of a page of the help.
#pragma once

#include "KelExport.h"

#include <string>
#include <string_view>

namespace framework {

/// The page of a topic: in the folder `help` beside kelui.dll, or in `folder` when that isn't empty. Empty when the
/// topic is no plain name, so that no topic leads out of the folder.
KELUI_API std::wstring helpPage(std::wstring_view folder, std::wstring_view topic);

} // namespace framework

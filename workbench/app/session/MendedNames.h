// What the user is told about layers, layer states and the like that got other names when their file was read.
#pragma once

#include "model/Drawing.h"

#include <string>
#include <string_view>

namespace workbench {

/// Lines that tell which names became which, those alone whose new names begin with `prefix`; empty when there are
/// none. Of very many only the first ones are told, and how many more there are.
std::wstring mendedNamesText(const zdr::Drawing& drawing, std::wstring_view prefix = {});

} // namespace workbench

// Places of a drawing, and the units that they count in, as the user reads them.
#pragma once

#include "model/Drawing.h"

#include <string>

namespace workbench {

/// "12.5000, -3.0000": x and y in the drawing's units.
std::wstring placeText(zdr::Point point);

/// The unit of lengths, beside a number: of model space, and of the paper of a sheet.
inline constexpr const wchar_t* kModelUnit = L"mm";
inline constexpr const wchar_t* kPaperUnit = L"mm on paper";

} // namespace workbench

// The values of layer properties as a user types them and reads them.
#pragma once

#include "model/Drawing.h"

#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// A palette index from 1 to 255, a colour's name, or "r,g,b"; packed. None for anything else.
std::optional<std::uint32_t> parseColor(const std::wstring& text);
/// Millimetres that are one of the standard widths, or "default"; hundredths. None for anything else.
std::optional<std::int16_t> parseLineWeight(const std::wstring& text);
/// "yes" or "no", or "on" or "off".
std::optional<bool> parseYesNo(const std::wstring& text);
/// A finite number with a decimal point or without; none for anything else.
std::optional<double> parseNumber(const std::wstring& text);

/// The id of the name of a linetype, or of a plot style, in the drawing's table of names; kNoName when the drawing has
/// none of that name.
zdr::NameId findLinetype(const zdr::Drawing& drawing, const std::wstring& name);
zdr::NameId findPlotStyle(const zdr::Drawing& drawing, const std::wstring& name);

/// "0.25 mm", or "default".
std::wstring lineWeightText(int weight);

/// What parseColor takes by name.
std::vector<std::wstring> colorNames();
/// What parseLineWeight takes.
std::vector<std::wstring> lineWeightNames();

} // namespace workbench

// Points of a drawing, and factors, as a user types them and reads them.
#pragma once

#include "model/Drawing.h"

#include <optional>
#include <string>

namespace workbench {

/// No coordinate that is typed may be further from 0: beyond it, what is drawn couldn't be told apart any more.
inline constexpr double kLargestCoordinate = 1e12;

/// Two numbers with a comma between, as "10,-2.5"; none for anything else, and for one beyond the largest coordinate.
std::optional<zdr::Point> parsePoint(const std::wstring& text);
/// The point as parsePoint takes it, with as many decimals as it has.
std::wstring pointText(zdr::Point point);
/// The point with as few decimals as make no difference of more than `tolerance`, which is above 0, in x and y.
zdr::Point roundedPoint(zdr::Point point, double tolerance);

/// A number with an x behind it or not, as "2" or "0.5x"; none for anything else.
std::optional<double> parseFactor(const std::wstring& text);

} // namespace workbench

// The points along an entity's geometry.
#pragma once

#include "model/Drawing.h"

#include <vector>

namespace workbench {

using Geometry = std::variant<zdr::Line, zdr::Polyline, zdr::Circle, zdr::Arc, zdr::Text>;

/// Pixels per unit, so many that curves are measured by very fine chords; for extents, which are asked for seldom.
inline constexpr double kFinest = 1e9;

/// Appends the corners of the entity in its own space; curves come as chords, a text as the corners of the box that
/// its letters are estimated to fill.
/// @param scale pixels per unit, by which the number of chords is chosen
void outline(const Geometry& geometry, double scale, std::vector<zdr::Point>& points);

} // namespace workbench

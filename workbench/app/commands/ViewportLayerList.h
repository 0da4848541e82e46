// What VPLAYER LIST tells about a viewport.
#pragma once

#include "model/Drawing.h"

#include <string>
#include <vector>

namespace workbench {

/// How many of these layers, which are given by index in table order, the viewport freezes and overrides, and a line
/// for each one that it does.
std::wstring viewportText(const zdr::Drawing& drawing, const zdr::Viewport& viewport,
                          const std::vector<std::size_t>& layers);

} // namespace workbench

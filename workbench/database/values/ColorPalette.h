// The palette: what an index of a colour looks like, and which index comes nearest to a true colour.
#pragma once

#include "KelExport.h"

#include <cstdint>

namespace engine {

struct Rgb {
    std::uint8_t red = 0, green = 0, blue = 0;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// What index 0 to 256 looks like; by block (0), by layer (256) and anything beyond look like the foreground (7).
KELDB_API Rgb paletteColor(int index);
/// The index from 1 to 255 that comes nearest; the lowest of several.
std::uint16_t nearestPaletteIndex(Rgb color);

} // namespace engine

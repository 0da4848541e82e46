// Packed colours as the screen shows them.
#pragma once

#include <cstdint>

namespace workbench {

/// RGB of a palette index, red in the low byte.
using PaletteRgb = std::uint32_t (*)(int index);

/// RGB of a packed colour, red in the low byte. Colour 7 and what isn't a colour of its own (by layer, by block) come
/// as the foreground.
inline std::uint32_t rgbOf(std::uint32_t packed, std::uint32_t foreground, PaletteRgb palette) {
    constexpr std::uint32_t kTrueColorTag = 0xC2;
    constexpr std::uint32_t kForegroundIndex = 7;
    if (packed >> 24 == kTrueColorTag)
        return (packed >> 16 & 0xFF) | (packed & 0xFF00) | (packed & 0xFF) << 16;
    const bool own = packed >= 1 && packed <= 255 && packed != kForegroundIndex;
    return own && palette ? palette(static_cast<int>(packed)) : foreground;
}

} // namespace workbench

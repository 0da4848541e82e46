// A small picture in memory with an alpha channel, and what a button does to it. No window, no device.
#pragma once

#include "KelExport.h"

#include <cstdint>
#include <vector>

namespace framework {

/// Pixels from the top left on, each 0xAARRGGBB with the colours multiplied by alpha already.
struct AlphaImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    bool isEmpty() const { return pixels.empty(); }
};

/// From pixels with straight alpha. Where no pixel has any alpha, as in bitmaps of fewer than 32 bits, the colour of
/// the top left pixel becomes transparent and everything else opaque.
KELUI_API AlphaImage fromStraightAlpha(int width, int height, std::vector<std::uint32_t> pixels);
/// Scaled so that each pixel is the average of the area that it covers: whole multiples stay exact and sharp.
KELUI_API AlphaImage scaled(const AlphaImage& image, int width, int height);
/// The look of a disabled control: grey, and half as opaque.
KELUI_API AlphaImage greyed(AlphaImage image);

} // namespace framework

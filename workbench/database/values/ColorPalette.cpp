// 1 to 9 are the named colours and two greys, 10 to 249 go round the colour circle in 24 hues of
// ten shades each, 250 to 255 are greys from dark to light.

#include "values/ColorPalette.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace engine {
namespace {

constexpr int kForeground = 7;
constexpr int kFirstHue = 10;
constexpr int kFirstGrey = 250;
constexpr int kShades = 10;

std::uint8_t channel(double value) {
    return static_cast<std::uint8_t>(std::lround(255 * value));
}

// The strength of one channel at a hue; each channel peaks at its own angle.
double hueChannel(double degrees, double peak) {
    double distance = std::fabs(degrees - peak);
    distance = std::min(distance, 360 - distance);
    return std::clamp(2 - distance / 60, 0.0, 1.0);
}

// Shades go in pairs, a full one and a pale one, from bright to dark.
Rgb hueColor(int index) {
    constexpr double kBrightness[kShades / 2] = {1, 0.8, 0.6, 0.45, 0.3};
    const int hue = (index - kFirstHue) / kShades;
    const double degrees = hue * 15.0;
    const int shade = (index - kFirstHue) % kShades;
    const double bright = kBrightness[shade / 2];
    const double pale = shade % 2 == 0 ? 0 : 0.5;
    const auto mix = [&](double peak) {
        const double pure = hueChannel(degrees, peak);
        return channel(bright * (pure + (1 - pure) * pale));
    };
    return {mix(0), mix(120), mix(240)};
}

std::array<Rgb, 256> makePalette() {
    std::array<Rgb, 256> palette{{{},
                                  {255, 0, 0},
                                  {255, 255, 0},
                                  {0, 255, 0},
                                  {0, 255, 255},
                                  {0, 0, 255},
                                  {255, 0, 255},
                                  {255, 255, 255},
                                  {128, 128, 128},
                                  {192, 192, 192}}};
    for (int index = kFirstHue; index < kFirstGrey; ++index)
        palette[static_cast<std::size_t>(index)] = hueColor(index);
    for (int index = kFirstGrey; index < 256; ++index) {
        const std::uint8_t grey = channel((index - kFirstGrey + 1) / 7.0);
        palette[static_cast<std::size_t>(index)] = {grey, grey, grey};
    }
    palette[0] = palette[kForeground];
    return palette;
}

const std::array<Rgb, 256>& palette() {
    static const std::array<Rgb, 256> colors = makePalette();
    return colors;
}

int squaredDistance(Rgb a, Rgb b) {
    const int red = a.red - b.red, green = a.green - b.green, blue = a.blue - b.blue;
    return red * red + green * green + blue * blue;
}

} // namespace

Rgb paletteColor(int index) {
    return palette()[static_cast<std::size_t>(index >= 0 && index < 256 ? index : kForeground)];
}

std::uint16_t nearestPaletteIndex(Rgb color) {
    const auto& colors = palette();
    const auto nearest = std::min_element(colors.begin() + 1, colors.end(), [color](Rgb a, Rgb b) {
        return squaredDistance(a, color) < squaredDistance(b, color);
    });
    return static_cast<std::uint16_t>(nearest - colors.begin());
}

} // namespace engine

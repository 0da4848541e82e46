#include "DashSample.h"

#include <algorithm>
#include <cmath>

namespace pickers {
namespace {

// In pixels. A pattern that repeats in less looks like a continuous line.
constexpr double kFinestRepeat = 3;
constexpr int kRepeatsShown = 2;

double lengthOf(std::span<const double> pattern) {
    double length = 0;
    for (const double element : pattern)
        length += std::abs(element);
    return length;
}

int pixel(double position) {
    return static_cast<int>(std::lround(position));
}

/// Pixels for a millimetre of the pattern; 0 when it is to be drawn as a continuous line.
double unitOf(std::span<const double> pattern, int width, double pixelsPerMillimetre) {
    const double length = lengthOf(pattern);
    const double unit = std::min(pixelsPerMillimetre, static_cast<double>(width) / kRepeatsShown / length);
    const bool visible = std::isfinite(length) && length > 0 && length * unit >= kFinestRepeat;
    return visible ? unit : 0;
}

} // namespace

std::vector<Dash> dashesOf(std::span<const double> pattern, int width, double pixelsPerMillimetre) {
    if (width <= 0)
        return {};
    const double unit = unitOf(pattern, width, pixelsPerMillimetre);
    if (!(unit > 0))
        return {{0, width}};
    std::vector<Dash> dashes;
    // The position is no whole number, so that rounding errors don't add up along the line.
    double at = 0;
    for (std::size_t element = 0; at < width; element = (element + 1) % pattern.size()) {
        const double end = at + std::abs(pattern[element]) * unit;
        if (pattern[element] >= 0 && pixel(at) < width)
            dashes.push_back({pixel(at), std::min(width, pixel(end))});
        at = end;
    }
    return dashes;
}

} // namespace pickers

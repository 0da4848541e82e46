#include "LineWeightBar.h"

#include <algorithm>

int barThickness(int lineWeight) {
    constexpr int kThinTo = 25;
    constexpr int kWidthPerPixel = 10;
    constexpr int kThickest = 23;
    return lineWeight <= kThinTo ? 1 : std::min(lineWeight / kWidthPerPixel, kThickest);
}

BarPlace placeBar(int thickness, int boxHeight) {
    if (thickness > boxHeight)
        thickness = boxHeight - 1;
    const int top = std::max(0, (boxHeight - thickness) / 2);
    return {top, top + thickness};
}

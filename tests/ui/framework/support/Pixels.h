// What a control shows, as pixels.
#pragma once

#include <windows.h>

#include <vector>

/// The pixels of a window, or of its client area, from the top left on, each 0x00RRGGBB.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<unsigned> values;

    unsigned at(int x, int y) const { return values[static_cast<std::size_t>(y) * width + x]; }
    unsigned centre() const { return at(width / 2, height / 2); }
    bool operator==(const Pixels&) const = default;
};

/// What the window shows once it has painted what it has to.
Pixels pixelsOf(HWND window);
/// The same with its border.
Pixels pixelsWithFrameOf(HWND window);

// Mouse and keyboard as a person uses them, and what a person sees.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

void movePointer(POINT screen);
POINT centreOf(HWND window);
/// Presses and releases the left button where the pointer is.
void clickHere();
void click(HWND window);
void pressKey(WORD virtualKey);

std::wstring textOf(HWND window);
RECT screenRect(HWND window);

/// The pixels of the window's client area, from the top left on, each 0x00RRGGBB.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<unsigned> values;

    unsigned at(int x, int y) const { return values[static_cast<std::size_t>(y) * width + x]; }
    unsigned centre() const { return at(width / 2, height / 2); }
    bool operator==(const Pixels&) const = default;
};
Pixels pixelsOf(HWND window);

// A picture of everything on the screen, for a person who wants to see what a failing test saw.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace ui {

/// Everything on the screen, three bytes a pixel, to be compared with another look at it; empty when it can't be had.
std::vector<char> screenBytes();

/// Everything of the screen, in its coordinates.
RECT wholeScreen();
/// Writes a part of the screen, or all of it, as a bitmap file.
/// @return whether that went well
bool saveScreenshot(const std::wstring& path, const RECT& part = wholeScreen());

} // namespace ui

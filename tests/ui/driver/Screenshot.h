// A picture of everything on the screen, for a person who wants to see what a failing test saw.
#pragma once

#include <string>
#include <vector>

namespace ui {

/// Everything on the screen, three bytes a pixel, to be compared with another look at it; empty when it can't be had.
std::vector<char> screenBytes();

/// Writes the whole screen as a bitmap file.
/// @return whether that went well
bool saveScreenshot(const std::wstring& path);

} // namespace ui

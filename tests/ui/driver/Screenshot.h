// A picture of everything on the screen, for a person who wants to see what a failing test saw.
#pragma once

#include <string>

namespace ui {

/// Writes the whole screen as a bitmap file.
/// @return whether that went well
bool saveScreenshot(const std::wstring& path);

} // namespace ui

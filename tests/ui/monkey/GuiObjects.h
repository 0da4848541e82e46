// What this process holds of the system's drawing objects and windows.
#pragma once

#include <optional>

/// The GDI objects of this process. None where they can't be counted.
std::optional<int> countGdiObjects();
/// The windows of this thread, children and message-only ones among them.
int countWindows();

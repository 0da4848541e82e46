// What this process holds of the system's drawing objects, windows, menus, icons and cursors.
#pragma once

#include <optional>

/// The GDI objects of this process. None where they can't be counted.
std::optional<int> countGdiObjects();
/// The menus, icons and cursors of this process, shared ones among them; on Windows its windows and hooks too. None
/// where they can't be counted.
std::optional<int> countUserObjects();
/// The windows of this thread, children and message-only ones among them.
int countWindows();

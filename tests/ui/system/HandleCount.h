// What this process holds of the system: files, sockets, events, and all else that has a handle.
#pragma once

#include <optional>

/// How many handles this process has; none when they can't be counted.
std::optional<unsigned> countHandles();

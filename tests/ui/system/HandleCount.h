// What this process holds of the system: files, sockets, events, and all else that has a handle.
#pragma once

#include <optional>

/// None where it can't be counted.
std::optional<unsigned> countHandles();

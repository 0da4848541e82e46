// For tests that look at what stands between two host calls, as a program that is killed there would leave it.
#pragma once

#include "KelExport.h"

#include <functional>
#include <string>

namespace instruments {

/// Has `observer` called as each host call begins, before that does anything, with its line in the trace so far. It may
/// call none itself. An empty one ends that, and so does watch().
KELDB_API void observeCalls(std::function<void(const std::string& call)> observer);

} // namespace instruments

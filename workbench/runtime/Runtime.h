// Putting the runtime back to its beginning, as tests need it.
#pragma once

#include "KelExport.h"

namespace runtime {

/// Puts everything back to how a fresh process finds it: closes all documents, empties the registry, drops the display
/// observer, the output sink, the abort handler and the values of system variables. No module may be loaded.
KELDB_API void reset();

} // namespace runtime

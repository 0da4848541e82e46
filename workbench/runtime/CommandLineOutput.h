// Where the host's printed text goes, and what happens when a module gives up.
#pragma once

#include "KelExport.h"

#include <functional>
#include <string>

namespace runtime {

/// Receives what kelutPrintf prints, as it comes: with line ends, and not necessarily whole lines.
using OutputSink = std::function<void(const std::wstring& text)>;
/// Without a sink the text is dropped.
KELDB_API void setOutputSink(OutputSink sink);

/// Told the text of kelrt_abort before the process ends. It may throw, and the process goes on then.
using AbortHandler = std::function<void(const std::wstring& text)>;
KELDB_API void setAbortHandler(AbortHandler handler);

} // namespace runtime

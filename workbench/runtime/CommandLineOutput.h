// Where the host's printed text goes, and what happens when a module gives up.
#pragma once

#include "KelExport.h"

#include <functional>
#include <string>

namespace runtime {

/// Receives what kelutPrintf and print() print, as it comes: with line ends, and not necessarily whole lines.
using OutputSink = std::function<void(const std::wstring& text)>;
/// Without a sink the text is dropped.
KELDB_API void setOutputSink(OutputSink sink);
/// Prints a text of the host's own, which isn't a call that a module has made.
KELDB_API void print(const std::wstring& text);

/// Called with the text of kelrt_abort before the process ends. When it throws, the process goes on.
using AbortHandler = std::function<void(const std::wstring& text)>;
KELDB_API void setAbortHandler(AbortHandler handler);

} // namespace runtime

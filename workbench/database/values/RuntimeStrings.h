// Strings on the runtime library's heap, the form in which the host hands texts out.
#pragma once

#include "KelExport.h"

#include <string_view>

namespace engine {

/// A copy that free() ends; null when memory runs out. The ledger doesn't see it, because the module frees such a text
/// by the runtime library.
wchar_t* copyText(std::wstring_view text);
/// The same for a text that goes back through one of the host's own functions, entered in the ledger as `what`.
KELDB_API wchar_t* handOutText(std::wstring_view text, const char* what);

} // namespace engine

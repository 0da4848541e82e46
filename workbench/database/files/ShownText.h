// Texts that others have written, as a sentence of ours shows them.
#pragma once

#include "KelExport.h"

#include <string>
#include <string_view>

namespace zdr {

KELDB_API bool isControl(wchar_t character);

/// In at most 300 characters, and with U+FFFD in the place of each that can't be seen or that turns what stands around
/// it.
KELDB_API std::wstring shownText(std::wstring_view text);

} // namespace zdr

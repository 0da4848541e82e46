// Texts that others have written, as a sentence of ours shows them.
#pragma once

#include "KelExport.h"

#include <string>
#include <string_view>

namespace zdr {

/// A control character of either half of the first 256.
inline bool isControl(wchar_t character) {
    const auto code = static_cast<unsigned>(character);
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

/// In at most 300 characters, and with U+FFFD in the place of each that can't be seen or that turns what stands around
/// it.
KELDB_API std::wstring shownText(std::wstring_view text);

} // namespace zdr

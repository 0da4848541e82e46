// Formats what the command line prints, by the Microsoft runtime's meaning in both tiers: %s takes a wide string, %S a
// narrow one.
#pragma once

#include <cstdarg>
#include <string>

namespace runtime {

/// The formatted text; of a broken format, what was formatted before the fault.
std::wstring formatForCommandLine(const wchar_t* format, std::va_list arguments);

} // namespace runtime

// What the system says when it fails, and the Refusal that becomes of it.
#pragma once

#include <cstdint>
#include <string>

namespace zdr {

/// The system's own text for an error: errno on POSIX, GetLastError() on Windows.
std::wstring errorText(std::int64_t error);

/// Refuses a file with "can't be written: <action> failed, because of <the system's text>".
[[noreturn]] void writeFailure(const std::wstring& action, std::int64_t error);

} // namespace zdr

// Microsoft's wide printf, for both tiers: glibc and MinGW's C++ library read %s in a wide format as a narrow string
// and size %ld by the platform.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>

namespace kelmfc {

/// Appends what Microsoft's wide printf family prints: %s and %c wide, %S and %C narrow, h and l choosing either, %ld
/// 32 bits, %I64d and %lld 64 bits. An unknown conversion prints its letter; %n isn't honoured.
void AppendFormatted(std::wstring& out, const wchar_t* format, va_list args);

/// Narrow text as wide text: by the system's code page on Windows, from UTF-8 elsewhere (a bad byte becomes U+FFFD).
std::wstring Widen(const char* text, std::size_t length);

} // namespace kelmfc

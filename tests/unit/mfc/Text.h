// Lets GoogleTest compare and print what CString holds.
#pragma once

#include <afx.h>

#include <ostream>
#include <string>

inline void PrintTo(const CString& text, std::ostream* out) {
    *out << '"';
    for (int i = 0; i < text.GetLength(); ++i) {
        const auto code = static_cast<unsigned long>(text.GetAt(i));
        if (code >= 0x20 && code < 0x7F)
            *out << static_cast<char>(code);
        else
            *out << "\\u{" << std::hex << code << std::dec << '}';
    }
    *out << '"';
}

/// The whole text, also when there are nulls in it.
inline std::wstring whole(const CString& text) {
    return std::wstring(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

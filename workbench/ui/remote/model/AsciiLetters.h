// The letters and digits that addresses are made of, whatever the language of the system.
#pragma once

namespace remote {

inline bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}
inline bool isLetter(wchar_t character) {
    return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
}

} // namespace remote

// The characters of a text of a layer states file, between its bytes and the form that programs use. Whoever decodes
// has seen that the bytes are a text: TokenReader refuses what isn't.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace engine::statefile {

using Bytes = std::string_view; ///< of a text, without its quotes, as they stand in the file

/// The bytes that stand for themselves within a text: printable ASCII but the quote and the backslash.
inline constexpr auto kPlain = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0x20; byte < 0x80; ++byte)
        plain[byte] = byte != '"' && byte != '\\';
    return plain;
}();

inline bool isPlain(char c) {
    return kPlain[static_cast<std::uint8_t>(c)];
}

/// The value of a hexadecimal digit, or 16 for another character.
unsigned hexValue(char c);

constexpr bool isHighHalf(unsigned unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

/// Replaces what is in `text`, whose memory serves many texts.
void decode(Bytes bytes, std::wstring& text);
std::wstring decoded(Bytes bytes);
/// For a message, which a long text would only make unreadable.
std::wstring shown(Bytes bytes);
/// Whether the bytes stand for the word, which is ASCII.
bool isWord(Bytes bytes, std::string_view word);
/// Whether one of the characters is a zero.
bool holdsZero(Bytes bytes);
/// Whether there are more than so many characters of 16 bits for sure, told without decoding them.
bool isFarLonger(Bytes bytes, std::size_t characters);

} // namespace engine::statefile

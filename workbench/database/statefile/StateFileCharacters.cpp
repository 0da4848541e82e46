#include "StateFileCharacters.h"

#include "files/TextCoding.h"

#include <algorithm>

namespace engine::statefile {
namespace {

/// The character of an escape like \n.
char shortEscape(char c) {
    constexpr std::string_view kEscapes = "bfnrt", kMeanings = "\b\f\n\r\t";
    const std::size_t at = kEscapes.find(c);
    return at == std::string_view::npos ? c : kMeanings[at];
}

} // namespace

unsigned hexValue(char c) {
    constexpr std::string_view kDigits = "0123456789abcdef0123456789ABCDEF";
    const std::size_t at = kDigits.find(c);
    return at == std::string_view::npos ? 16 : static_cast<unsigned>(at % 16);
}

void decode(Bytes bytes, std::wstring& text) {
    if (std::ranges::all_of(bytes, isPlain)) {
        text.assign(bytes.begin(), bytes.end());
        return;
    }
    std::string plain;
    for (std::size_t at = 0; at < bytes.size();) {
        if (bytes[at] != '\\') {
            const std::size_t end = std::min(bytes.find('\\', at), bytes.size());
            plain += bytes.substr(at, end - at);
            at = end;
        } else if (bytes[at + 1] != 'u') {
            plain.push_back(shortEscape(bytes[at + 1]));
            at += 2;
        } else {
            std::wstring units; // both halves of a pair, which together become one character
            for (bool more = true; more; at += 6) {
                unsigned unit = 0;
                for (const char digit : bytes.substr(at + 2, 4))
                    unit = unit * 16 + hexValue(digit);
                units.push_back(static_cast<wchar_t>(unit));
                more = isHighHalf(unit);
            }
            plain += zdr::toUtf8(units);
        }
    }
    text = zdr::fromUtf8(plain).value();
}

std::wstring decoded(Bytes bytes) {
    std::wstring text;
    decode(bytes, text);
    return text;
}

std::wstring shown(Bytes bytes) {
    constexpr std::size_t kMostBytes = 1024;
    return bytes.size() > kMostBytes ? L"..." : decoded(bytes);
}

bool isWord(Bytes bytes, std::string_view word) {
    if (bytes == word)
        return true;
    if (isFarLonger(bytes, word.size()) || bytes.find('\\') == Bytes::npos)
        return false;
    return std::ranges::equal(decoded(bytes), word, {}, {}, [](char c) { return static_cast<wchar_t>(c); });
}

bool holdsZero(Bytes bytes) {
    for (std::size_t at = bytes.find('\\'); at != Bytes::npos; at = bytes.find('\\', at + 2))
        if (bytes.substr(at + 1, 5) == "u0000")
            return true;
    return false;
}

bool isFarLonger(Bytes bytes, std::size_t characters) {
    constexpr std::size_t kLongestForm = 6; // a backslash, u and four digits
    return bytes.size() > kLongestForm * characters;
}

} // namespace engine::statefile

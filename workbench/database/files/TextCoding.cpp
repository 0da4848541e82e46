// Conversion between wide texts and UTF-8 in which an unpaired surrogate stands as three bytes.
#include "TextCoding.h"

#include <algorithm>
#include <cstdint>

namespace zdr {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
constexpr std::uint32_t kLastCode = 0x10FFFF;

bool isHigh(std::uint32_t code) {
    return code >= 0xD800 && code < 0xDC00;
}
bool isLow(std::uint32_t code) {
    return code >= 0xDC00 && code < 0xE000;
}

std::uint32_t unit(wchar_t c) {
    if constexpr (sizeof(wchar_t) == 2)
        return static_cast<std::uint16_t>(c);
    else
        return static_cast<std::uint32_t>(c);
}

/// The code point at `index`, which moves past it.
std::uint32_t nextCode(std::wstring_view text, std::size_t& index) {
    const std::uint32_t code = unit(text[index++]);
    if (isHigh(code) && index < text.size() && isLow(unit(text[index])))
        return 0x10000 + ((code - 0xD800) << 10) + (unit(text[index++]) - 0xDC00);
    return code <= kLastCode ? code : kReplacement;
}

void appendUtf8(std::string& bytes, std::uint32_t code) {
    const auto byte = [&](std::uint32_t value) { bytes.push_back(static_cast<char>(value)); };
    const auto tail = [&](unsigned shift) { byte(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | (code >> 6));
        tail(0);
    } else if (code < 0x10000) {
        byte(0xE0 | (code >> 12));
        tail(6);
        tail(0);
    } else {
        byte(0xF0 | (code >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

void appendWide(std::wstring& text, std::uint32_t code) {
    if (sizeof(wchar_t) == 2 && code >= 0x10000) {
        text.push_back(static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10)));
        text.push_back(static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
    } else {
        text.push_back(static_cast<wchar_t>(code));
    }
}

/// What the first byte of a sequence says: its length in bytes, 0 when no sequence starts so, and the code's first
/// bits.
struct Lead {
    std::size_t length;
    std::uint32_t bits;
    std::uint32_t least; // a smaller code in a sequence of this length is overlong
};
Lead leadOf(std::uint8_t byte) {
    if ((byte & 0xE0) == 0xC0)
        return {2, byte & 0x1Fu, 0x80};
    if ((byte & 0xF0) == 0xE0)
        return {3, byte & 0x0Fu, 0x800};
    if ((byte & 0xF8) == 0xF0)
        return {4, byte & 0x07u, 0x10000};
    return {0, 0, 0};
}

std::optional<std::uint32_t> decodeSequence(std::string_view bytes, std::size_t& index) {
    const Lead lead = leadOf(static_cast<std::uint8_t>(bytes[index]));
    if (lead.length == 0 || bytes.size() - index < lead.length)
        return std::nullopt;
    std::uint32_t code = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<std::uint8_t>(bytes[index + i]);
        if ((byte & 0xC0) != 0x80)
            return std::nullopt;
        code = code << 6 | (byte & 0x3Fu);
    }
    if (code < lead.least || code > kLastCode)
        return std::nullopt;
    index += lead.length;
    return code;
}

} // namespace

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t index = 0; index < text.size();)
        appendUtf8(bytes, nextCode(text, index));
    return bytes;
}

std::optional<std::wstring> fromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    bool afterHigh = false;
    for (std::size_t index = 0; index < bytes.size();) {
        const auto byte = static_cast<std::uint8_t>(bytes[index]);
        if (byte < 0x80) {
            text.push_back(static_cast<wchar_t>(byte));
            afterHigh = false;
            ++index;
            continue;
        }
        const std::optional<std::uint32_t> code = decodeSequence(bytes, index);
        // A surrogate pair as two sequences would be a second spelling of one character.
        if (!code || (afterHigh && isLow(*code)))
            return std::nullopt;
        afterHigh = isHigh(*code);
        appendWide(text, *code);
    }
    return text;
}

std::size_t lengthInUnits(std::wstring_view text) {
    return text.size() + static_cast<std::size_t>(std::ranges::count_if(
                             text, [](wchar_t c) { return static_cast<std::uint64_t>(c) >> 16 != 0; }));
}

std::wstring_view cutToUnits(std::wstring_view text, std::size_t most) {
    std::size_t end = 0;
    for (std::size_t next = 0, units = 0; end < text.size(); end = next) {
        units += nextCode(text, next) < 0x10000 ? 1 : 2;
        if (units > most)
            break;
    }
    return text.substr(0, end);
}

std::filesystem::path systemPath(const std::wstring& path) {
#if defined(_WIN32)
    return std::filesystem::path(path);
#else
    std::string bytes = toUtf8(path);
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return std::filesystem::path(bytes);
#endif
}

std::wstring widePath(const std::filesystem::path& path) {
#if defined(_WIN32)
    return path.wstring();
#else
    // A file name on Linux may be any bytes; one that isn't UTF-8 is shown byte by byte.
    const std::string bytes = path.string();
    if (std::optional<std::wstring> text = fromUtf8(bytes))
        return *std::move(text);
    std::wstring text;
    for (const char c : bytes)
        text.push_back(static_cast<wchar_t>(static_cast<unsigned char>(c)));
    return text;
#endif
}

} // namespace zdr

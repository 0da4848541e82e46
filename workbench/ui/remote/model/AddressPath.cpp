#include "AddressPath.h"

#include "files/TextCoding.h"

#include <vector>

namespace remote {
namespace {

constexpr std::wstring_view kDigits = L"0123456789ABCDEF";
constexpr wchar_t kDelete = 0x7F;

/// The value of a hexadecimal digit; none when it isn't one.
std::optional<unsigned> digitValue(wchar_t character) {
    if (character >= L'0' && character <= L'9')
        return static_cast<unsigned>(character - L'0');
    if (character >= L'A' && character <= L'F')
        return static_cast<unsigned>(character - L'A' + 10);
    if (character >= L'a' && character <= L'f')
        return static_cast<unsigned>(character - L'a' + 10);
    return std::nullopt;
}

/// The byte that the percent sign at `index` and the two digits after it stand for.
std::optional<unsigned> encodedByte(std::wstring_view text, std::size_t index) {
    if (index + 2 >= text.size())
        return std::nullopt;
    const auto high = digitValue(text[index + 1]);
    const auto low = digitValue(text[index + 2]);
    return high && low ? std::optional(*high * 16 + *low) : std::nullopt;
}

bool isControl(unsigned code) {
    return code < L' ' || code == kDelete;
}

bool isHalf(wchar_t character, unsigned first) {
    const auto code = static_cast<unsigned>(character);
    return code >= first && code < first + 0x400;
}

/// Whether there is half of a surrogate pair without its other half at `index`. At a whole pair `index` moves on to the
/// second half.
bool isHalfAlone(std::wstring_view text, std::size_t& index) {
    constexpr unsigned kFirstHigh = 0xD800;
    constexpr unsigned kFirstLow = 0xDC00;
    if (isHalf(text[index], kFirstLow))
        return true;
    if (!isHalf(text[index], kFirstHigh))
        return false;
    ++index;
    return index == text.size() || !isHalf(text[index], kFirstLow);
}

/// Whether a path or a query may hold the byte as it is, without a percent sign.
bool standsForItself(unsigned char byte) {
    constexpr std::string_view kPlain = "-._~!$&'()*+,;=:@/?%";
    const bool isAlphanumeric =
        (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    return isAlphanumeric || kPlain.find(static_cast<char>(byte)) != std::string_view::npos;
}

bool isDots(std::wstring_view segment, std::string_view dots) {
    return decodedBytes(segment) == dots;
}

} // namespace

std::optional<std::wstring> pathFault(std::wstring_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\\')
            return L"has a backslash, where addresses have slashes";
        if (text[i] == L'%') {
            const auto byte = encodedByte(text, i);
            if (!byte)
                return L"has a percent sign without two hexadecimal digits behind it (a percent sign itself is %25)";
            if (isControl(*byte))
                return L"has an encoded control character";
        } else if (isHalfAlone(text, i)) {
            return L"has half a character";
        }
    }
    return std::nullopt;
}

std::wstring percentEncoded(std::wstring_view text) {
    std::wstring encoded;
    for (const char character : zdr::toUtf8(text)) {
        const auto byte = static_cast<unsigned char>(character);
        if (standsForItself(byte))
            encoded += static_cast<wchar_t>(byte);
        else
            encoded.append({L'%', kDigits[byte / 16], kDigits[byte % 16]});
    }
    return encoded;
}

std::string decodedBytes(std::wstring_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = text[i] == L'%' ? encodedByte(text, i) : std::nullopt;
        bytes += static_cast<char>(byte ? *byte : static_cast<unsigned>(text[i]));
        i += byte ? 2 : 0;
    }
    return bytes;
}

std::wstring withoutDotSegments(std::wstring_view path) {
    std::vector<std::wstring_view> kept;
    bool endsInFolder = true;
    while (!path.empty()) {
        path.remove_prefix(path.front() == L'/' ? 1 : 0);
        const std::wstring_view segment = path.substr(0, path.find(L'/'));
        path.remove_prefix(segment.size());
        const bool isUp = isDots(segment, "..");
        endsInFolder = isUp || isDots(segment, ".");
        if (!endsInFolder)
            kept.push_back(segment);
        else if (isUp && !kept.empty())
            kept.pop_back();
    }
    std::wstring result;
    for (const std::wstring_view segment : kept)
        result.append(1, L'/').append(segment);
    if (endsInFolder)
        result += L'/';
    return result;
}

} // namespace remote

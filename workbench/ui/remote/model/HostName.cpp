#include "HostName.h"

#include "AsciiLetters.h"

#include <algorithm>
#include <vector>

namespace remote {
namespace {

constexpr std::size_t kLongestHost = 253;
constexpr std::size_t kLongestLabel = 63;
constexpr wchar_t kBeyondAscii = 0x80;

bool isHexDigit(wchar_t character) {
    return isDigit(character) || (character >= L'a' && character <= L'f') || (character >= L'A' && character <= L'F');
}
bool isHostCharacter(wchar_t character) {
    return isLetter(character) || isDigit(character) || character == L'-' || character == L'_' ||
           character >= kBeyondAscii;
}
bool isNumber(std::wstring_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

/// 0 to 255, without a leading zero, which some systems take for an octal number.
bool isIpv4Part(std::wstring_view text) {
    if (!isNumber(text) || text.size() > 3 || (text.size() > 1 && text.front() == L'0'))
        return false;
    return text.size() < 3 || text <= L"255";
}

bool isIpv4Number(const std::vector<std::wstring_view>& parts) {
    return parts.size() == 4 && std::all_of(parts.begin(), parts.end(), isIpv4Part);
}

/// How many of the eight groups of an IPv6 number the text holds; none when it holds anything else.
std::optional<std::size_t> countGroups(std::wstring_view text, bool isTail) {
    if (text.empty())
        return 0;
    const std::vector<std::wstring_view> groups = split(text, L':');
    std::size_t count = 0;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const bool isLast = isTail && i + 1 == groups.size();
        if (isLast && isIpv4Number(split(groups[i], L'.')))
            count += 2;
        else if (!groups[i].empty() && groups[i].size() <= 4 &&
                 std::all_of(groups[i].begin(), groups[i].end(), isHexDigit))
            ++count;
        else
            return std::nullopt;
    }
    return count;
}

} // namespace

std::optional<std::wstring> hostFault(std::wstring_view host) {
    if (host.empty())
        return L"names no server";
    if (host.size() > kLongestHost)
        return L"names a server by more than 253 characters";
    const std::vector<std::wstring_view> labels = split(host, L'.');
    for (const std::wstring_view label : labels) {
        if (label.empty())
            return L"has a point too many in the name of its server";
        if (label.size() > kLongestLabel)
            return L"has more than 63 characters between two points in the name of its server";
        if (!std::all_of(label.begin(), label.end(), isHostCharacter))
            return L"has a character in the name of its server that such names can't have";
    }
    if (isNumber(labels.back()) && !isIpv4Number(labels))
        return L"has a number for its server that isn't made of four numbers up to 255";
    return std::nullopt;
}

bool isIpv6Number(std::wstring_view text) {
    constexpr std::size_t kGroups = 8;
    const std::size_t gap = text.find(L"::");
    if (gap == std::wstring_view::npos)
        return countGroups(text, true) == kGroups;
    const auto before = countGroups(text.substr(0, gap), false);
    const auto behind = countGroups(text.substr(gap + 2), true);
    return before && behind && *before + *behind < kGroups;
}

} // namespace remote

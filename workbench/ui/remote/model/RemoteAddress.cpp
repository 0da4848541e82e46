#include "RemoteAddress.h"

#include "AddressPath.h"
#include "AsciiLetters.h"
#include "HostName.h"

#include "files/ShownText.h"

#include <algorithm>

namespace remote {
namespace {

constexpr std::wstring_view kEndsServer = L"/?#\\";

std::wstring lowerCase(std::wstring_view text) {
    std::wstring lower(text);
    for (wchar_t& character : lower)
        if (character >= L'A' && character <= L'Z')
            character = static_cast<wchar_t>(character + (L'a' - L'A'));
    return lower;
}

std::wstring_view trimmed(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    return first == std::wstring_view::npos ? std::wstring_view()
                                            : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

bool holdsControl(std::wstring_view text) {
    return std::any_of(text.begin(), text.end(), zdr::isControl);
}

std::wstring withoutUser(std::wstring_view text) {
    const std::size_t server = text.find(L"//");
    if (server == std::wstring_view::npos)
        return std::wstring(text);
    const std::wstring_view rest = text.substr(server + 2);
    const std::size_t at = rest.substr(0, rest.find_first_of(kEndsServer)).rfind(L'@');
    return std::wstring(text.substr(0, server + 2)).append(rest.substr(at == std::wstring_view::npos ? 0 : at + 1));
}

/// The name before the first colon, in lower case; empty when that is no scheme. A single letter is a drive.
std::wstring schemeOf(std::wstring_view text) {
    const std::wstring_view name = text.substr(0, text.find(L':'));
    const bool isScheme = name.size() > 1 && name.size() < text.size() && isLetter(name.front()) &&
                          std::all_of(name.begin(), name.end(), [](wchar_t character) {
                              return isLetter(character) || isDigit(character) || character == L'+' ||
                                     character == L'-' || character == L'.';
                          });
    return isScheme ? lowerCase(name) : std::wstring();
}

ParsedAddress malformed(std::wstring cause) {
    return {AddressKind::Malformed, {}, std::move(cause)};
}

/// Takes the port off the end of `server` and puts it, or the scheme's usual one, into the address. False when what
/// follows the colon is no port.
bool takePort(std::wstring_view& server, Address& address) {
    const std::size_t colon = server.find(L':', server.starts_with(L'[') ? server.find(L']') : 0);
    address.port = address.scheme == Scheme::Http ? 80 : 443;
    if (colon == std::wstring_view::npos)
        return true;
    const std::wstring_view digits = server.substr(colon + 1);
    server = server.substr(0, colon);
    if (digits.empty())
        return true; // a colon alone means the usual port
    if (digits.size() > 5 || !std::all_of(digits.begin(), digits.end(), isDigit))
        return false;
    unsigned port = 0;
    for (const wchar_t digit : digits)
        port = port * 10 + static_cast<unsigned>(digit - L'0');
    address.port = static_cast<std::uint16_t>(port);
    return port > 0 && port <= 0xFFFF;
}

/// Parses what follows "scheme://".
ParsedAddress parseServer(Scheme scheme, std::wstring_view rest) {
    ParsedAddress parsed = {AddressKind::Remote, {}, {}};
    parsed.address.scheme = scheme;
    const std::size_t end = std::min(rest.find_first_of(kEndsServer), rest.size());
    std::wstring_view server = rest.substr(0, end);
    rest.remove_prefix(end);
    if (server.find(L'@') != std::wstring_view::npos)
        return malformed(L"has a user's name or password, which the Workbench doesn't send");
    const bool isBracketed = server.starts_with(L'[');
    if (!takePort(server, parsed.address))
        return malformed(L"has a port that isn't a number from 1 to 65535");
    if (isBracketed && !(server.ends_with(L']') && isIpv6Number(server.substr(1, server.size() - 2))))
        return malformed(L"has something in brackets for its server that isn't an IPv6 number");
    if (const auto fault = isBracketed ? std::nullopt : hostFault(server))
        return malformed(*fault);
    parsed.address.host = server;

    rest = rest.substr(0, rest.find(L'#')); // a fragment is never sent to a server
    if (const auto fault = pathFault(rest))
        return malformed(*fault);
    const std::size_t query = std::min(rest.find(L'?'), rest.size());
    parsed.address.target =
        withoutDotSegments(percentEncoded(rest.substr(0, query))) + percentEncoded(rest.substr(query));
    return parsed;
}

ParsedAddress parseAfterScheme(const std::wstring& scheme, std::wstring_view rest) {
    if (scheme != L"http" && scheme != L"https")
        return {AddressKind::UnknownScheme, {}, L"is neither an http:// nor an https:// address"};
    if (!rest.starts_with(L"//"))
        return malformed(L"lacks the two slashes behind " + scheme + L":");
    return parseServer(scheme == L"https" ? Scheme::Https : Scheme::Http, rest.substr(2));
}

/// The whole text of an address, up to its path.
std::wstring rootOf(const Address& address) {
    return (address.scheme == Scheme::Https ? L"https://" : L"http://") + address.host + L":" +
           std::to_wstring(address.port);
}

std::wstring absolute(const Address& from, std::wstring_view location) {
    if (!schemeOf(location).empty())
        return std::wstring(location);
    if (location.starts_with(L"//"))
        return (from.scheme == Scheme::Https ? L"https:" : L"http:") + std::wstring(location);
    const std::wstring path = from.target.substr(0, from.target.find(L'?'));
    if (location.starts_with(L"/"))
        return rootOf(from).append(location);
    if (location.empty() || location.starts_with(L"?") || location.starts_with(L"#"))
        return rootOf(from).append(location.starts_with(L"?") ? path : from.target).append(location);
    return rootOf(from).append(path.substr(0, path.rfind(L'/') + 1)).append(location);
}

} // namespace

ParsedAddress parseAddress(std::wstring_view text) {
    text = trimmed(text);
    if (text.empty())
        return malformed(L"is empty");
    if (holdsControl(text))
        return malformed(L"has a control character");
    const std::wstring scheme = schemeOf(text);
    if (scheme.empty() || scheme == L"file")
        return {AddressKind::Local, {}, L"isn't on a server but on this computer or its network"};
    if (text.size() > kLongestAddress)
        return malformed(L"is longer than 1023 characters");
    return parseAfterScheme(scheme, text.substr(scheme.size() + 1));
}

ParsedAddress resolveRedirect(const Address& from, std::wstring_view location) {
    const std::wstring whole = absolute(from, trimmed(location));
    if (holdsControl(whole))
        return malformed(L"has a control character");
    const std::wstring scheme = schemeOf(whole);
    if (from.scheme == Scheme::Https && scheme == L"http")
        return {AddressKind::UnknownScheme, {}, L"isn't an https:// address as the one before"};
    return parseAfterScheme(scheme, std::wstring_view(whole).substr(scheme.size() + 1));
}

bool isSameServer(const Address& one, const Address& other) {
    return one.scheme == other.scheme && one.port == other.port && lowerCase(one.host) == lowerCase(other.host);
}

std::wstring extensionOf(const Address& address) {
    constexpr std::size_t kLongest = 16;
    const std::wstring_view path = std::wstring_view(address.target).substr(0, address.target.find(L'?'));
    const std::string name = decodedBytes(path.substr(path.rfind(L'/') + 1));
    const std::size_t point = name.rfind('.');
    const std::string extension = point == std::string::npos ? std::string() : name.substr(point + 1);
    const bool isPlain = std::all_of(extension.begin(), extension.end(), [](char character) {
        return isDigit(static_cast<wchar_t>(character)) || isLetter(static_cast<wchar_t>(character));
    });
    return isPlain && extension.size() <= kLongest ? std::wstring(extension.begin(), extension.end()) : std::wstring();
}

std::wstring shownAddress(std::wstring_view text) {
    return zdr::shownText(withoutUser(text));
}

const wchar_t* adviceOn(AddressKind kind) {
    switch (kind) {
    case AddressKind::UnknownScheme:
        return L"Give one that begins with http:// or https://, or the path of a file.";
    case AddressKind::Malformed:
        return L"Correct it; an address is made up like https://server/folder/plan.las.";
    default:
        return L"";
    }
}

std::wstring sentencesAbout(std::wstring_view text, const std::wstring& cause, const std::wstring& advice) {
    return L"The address \"" + shownAddress(text) + L"\" " + cause + (advice.empty() ? L"." : L". ") + advice;
}

} // namespace remote

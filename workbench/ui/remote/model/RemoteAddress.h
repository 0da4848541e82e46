// Addresses of remote files: http://server:port/path?query and the same with https. Everything that isn't quite one is
// refused with its reason before anything is sent.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace remote {

/// In 16-bit characters; as many as a path of the host may have.
inline constexpr std::size_t kLongestAddress = 1023;

enum class Scheme { Http, Https };

struct Address {
    Scheme scheme = Scheme::Http;
    std::wstring host; ///< as it was written, which may be beyond ASCII; an IPv6 number has its brackets
    std::uint16_t port = 0;
    std::wstring target; ///< path and query as they are sent: ASCII, begins with a slash, percent-encoded

    bool operator==(const Address&) const = default;
};

enum class AddressKind {
    Remote,
    Local,         ///< a path of this computer or its network, or a file:// address
    UnknownScheme, ///< an address, but of something else than HTTP
    Malformed,
};

struct ParsedAddress {
    AddressKind kind;
    Address address;    ///< where the kind is Remote
    std::wstring cause; ///< otherwise: the end of a sentence that begins with the address
};

ParsedAddress parseAddress(std::wstring_view text);

/// The address that a redirect leads to. Never one that is not HTTP, and never from https back to http.
/// @param location as the server wrote it: absolute, or relative to `from`
ParsedAddress resolveRedirect(const Address& from, std::wstring_view location);

/// Whether both are on one server: the same scheme, name and port.
bool isSameServer(const Address& one, const Address& other);

/// The extension of the file at an address, without the point; empty when there is none of up to 16 ASCII letters and
/// digits.
std::wstring extensionOf(const Address& address);

/// The address for a sentence, as zdr::shownText, without a user's name and password.
std::wstring shownAddress(std::wstring_view text);

/// A sentence with what the user can do about a text of that kind; empty when there is nothing to do.
const wchar_t* adviceOn(AddressKind kind);
/// What a user is told about an address.
/// @param cause  the end of the sentence that begins with the address
/// @param advice the sentence after it, or empty
std::wstring sentencesAbout(std::wstring_view text, const std::wstring& cause, const std::wstring& advice);

} // namespace remote

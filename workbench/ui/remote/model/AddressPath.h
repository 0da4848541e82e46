// Path and query of an address, in the form in which they are sent.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace remote {

/// What keeps a text from being the path and the query of an address, as the end of a sentence; none when it can be.
std::optional<std::wstring> pathFault(std::wstring_view text);

/// Encodes what an address can't hold as it stands by percent signs, as UTF-8. What is encoded already stays.
/// @param text has no fault
std::wstring percentEncoded(std::wstring_view text);
/// The bytes that an encoded text stands for.
std::string decodedBytes(std::wstring_view text);

/// Takes the segments "." and ".." out of an encoded path, which then begins with a slash and leads nowhere above its
/// root.
std::wstring withoutDotSegments(std::wstring_view path);

} // namespace remote

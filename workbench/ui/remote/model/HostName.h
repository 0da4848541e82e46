// The names and numbers by which an address names a server.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace remote {

/// What keeps a text from being the name of a server or its number (four numbers with points between them), as the end
/// of a sentence; none when it is one. Letters beyond ASCII are left to whoever turns them into ASCII.
std::optional<std::wstring> hostFault(std::wstring_view host);
/// Whether a text is an IPv6 number, without its brackets and without a zone.
bool isIpv6Number(std::wstring_view text);

} // namespace remote

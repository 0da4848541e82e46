// Paths as Win32 takes them.
#pragma once

#include <string>

namespace zdr {

/// The path in the form that may be longer than 260 characters, where it must be.
std::wstring longPath(const std::wstring& path);

/// A new name for a file beside this one, in no use yet by this process.
std::wstring besidePath(const std::wstring& target);

/// The path of the file that a link leads to; any other path as it is. Refuses a link that leads nowhere: what it leads
/// to is mostly a disk that isn't there just now.
std::wstring behindLinks(const std::wstring& path);

} // namespace zdr

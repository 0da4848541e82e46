// Texts between the wide form that programs use and the UTF-8 of files, and paths between the wide form and the
// system's own. wchar_t has 16 bits on Windows and 32 elsewhere; a file looks the same from both.
#pragma once

#include "KelExport.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zdr {

/// UTF-8 of a wide text. Surrogates that stand as a pair become one character; an unpaired one keeps its three bytes,
/// so that every name survives.
KELDB_API std::string toUtf8(std::wstring_view text);

/// The wide text of UTF-8 bytes, unpaired surrogates included; none when the bytes aren't well formed.
KELDB_API std::optional<std::wstring> fromUtf8(std::string_view bytes);

/// The length of a wide text in 16-bit units, which is the same on every system.
KELDB_API std::size_t lengthInUnits(std::wstring_view text);

/// The beginning of a wide text that has at most `most` 16-bit units; the last character is whole.
KELDB_API std::wstring_view cutToUnits(std::wstring_view text, std::size_t most);

/// A path as the system takes it. Where `\` doesn't separate folders it is read as `/`, so that a relative path written
/// on Windows is found everywhere.
KELDB_API std::filesystem::path systemPath(const std::wstring& path);

/// A path for people.
KELDB_API std::wstring widePath(const std::filesystem::path& path);

} // namespace zdr

// Which paths lead out of this computer. That is told by their text and by the system's own list of drives: nothing is
// asked of the file system, which would ask the other computer.
#pragma once

#include "KelExport.h"

#include <functional>
#include <string>
#include <string_view>

namespace zdr {

/// Where a path leads.
struct PathPlace {
    enum class Kind {
        ThisComputer,
        Outside, ///< to a server, to a drive that stands for one, or to what only the system knows
        Address, ///< to no path at all, as http:// and file:// do
    };
    Kind kind = Kind::ThisComputer;
    std::wstring computer; ///< outside: which one, as far as the text tells; empty when it doesn't
    std::wstring folder;   ///< outside: the one of the file, with `\` between the names and without `..`
};

/// What the system has written down for the letter of a drive, as `\Device\Harddisk0`; empty for one that is free.
using DriveTarget = std::function<std::wstring(wchar_t letter)>;

KELDB_API PathPlace placeOf(std::wstring_view path, const DriveTarget& targetOf);

/// Whether both are outside, on the same computer.
KELDB_API bool areOnOneComputer(const PathPlace& one, const PathPlace& other);

/// The path of a reference as the system takes it. A relative one counts from the folder of the drawing that has it,
/// one that begins with a single separator from the top of the drawing's drive or server folder.
KELDB_API std::wstring referencePath(const std::wstring& drawing, const std::wstring& path);

/// A path that a person has typed, in full and in one spelling. What only the system can resolve stays as it is.
KELDB_API std::wstring fullPath(const std::wstring& path);

/// Whether two full paths lead to one file or folder, whichever separators and whichever case they are written in.
KELDB_API bool isSamePath(std::wstring_view one, std::wstring_view other);

} // namespace zdr

// What a typed line means: the command's name and its argument.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

struct CommandText {
    std::wstring name;     ///< upper case; empty for an empty line
    std::wstring argument; ///< without surrounding blanks, and without quotes when it is quoted as a whole
};

CommandText parseCommand(std::wstring_view line);

/// The numbers of a viewport command: n from 1 up, 0 for "none" (also "0"), -1 for anything else.
int parseViewportNumber(std::wstring_view argument);

/// Compares without regard to case, letter by letter of the basic plane.
bool sameName(std::wstring_view a, std::wstring_view b);

} // namespace workbench

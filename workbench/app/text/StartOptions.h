// What the words of the program's own command line ask for.
#pragma once

#include <string>
#include <vector>

namespace workbench {

struct StartOptions {
    std::wstring drawing;               ///< empty: start with a new one
    std::wstring module;                ///< empty: the one beside the program
    std::wstring script;                ///< a text file of commands, one a line
    std::vector<std::wstring> commands; ///< run after the start, before the script
    std::wstring error;                 ///< a sentence about the first word that makes no sense
};

/// @param words without the program's own name
StartOptions parseStartOptions(const std::vector<std::wstring>& words);

} // namespace workbench

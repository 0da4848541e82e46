// What the words of the program's own command line ask for.
#pragma once

#include <string>
#include <vector>

namespace workbench {

/// The switch, of the program and of SCRIPT, that lets a script go on after a line that couldn't be done.
inline constexpr const wchar_t* kKeepGoing = L"--keep-going";

struct StartOptions {
    std::wstring drawing;               ///< empty: start with a new one
    std::wstring module;                ///< empty: the one beside the program
    std::wstring script;                ///< a text file of commands, one a line
    std::vector<std::wstring> commands; ///< run after the start, before the script
    bool keepsGoing = false;            ///< also after one of them that couldn't be done
    std::wstring error;                 ///< a sentence about the first word that makes no sense

    /// Whether there is more to do than to open a drawing, so that perhaps nobody waits for it.
    bool isBatch() const { return !commands.empty() || !script.empty(); }
};

/// @param words without the program's own name
StartOptions parseStartOptions(const std::vector<std::wstring>& words);

/// The lines that the options ask for. The script's path is made whole, because it counts from the folder in which the
/// program was started, and a path in a line from the drawing's.
std::vector<std::wstring> startLines(const StartOptions& options);

} // namespace workbench

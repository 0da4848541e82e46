// What a command is: a row of the command table.
#pragma once

#include "CommandText.h"

#include <span>

namespace workbench {

class Session;

/// What Tab offers for a word.
enum class Offer {
    Nothing,
    Commands,
    Drawings,        ///< that are there to be read
    DrawingsToWrite, ///< beside the open one
    Scripts,         ///< files of any kind, and the switch that may stand before one
    Files,           ///< of any kind, from the folder in which the program was started
    Modules,
    Layouts,
    Viewports,
    Variables,
    References,
    Layers,
    LayersOrPlace, ///< layers, and at the end IN with a viewport
    Colors,
    Linetypes,
    LineWeights,
    PlotStyles,
    YesNo,
};

inline constexpr int kMany = 1 << 20;

/// How many words a command or an option takes: at least and at most so many.
struct Count {
    int least = 0;
    int most = 0;
};

/// The word after the name of a command that can do several things, as SET in LAYER SET.
struct Option {
    const wchar_t* name;  ///< upper case
    const wchar_t* alias; ///< or null
    const wchar_t* usage; ///< the words after it, as HELP shows them
    const wchar_t* help;  ///< one sentence
    Count count;          ///< of the words after it
    Offer first, rest;    ///< for the first word after it, and for the others
    void (*run)(Session& session, const Words& words);
};

/// A command has options, or a function of its own. With both, the function is for a first word that is no option's.
struct Command {
    const wchar_t* name;                                    ///< upper case
    const wchar_t* alias;                                   ///< short form, or null
    const wchar_t* usage;                                   ///< the arguments as HELP shows them; empty without any
    const wchar_t* help;                                    ///< one sentence
    Count count;                                            ///< of its words
    Offer first;                                            ///< for its first word, unless it has options
    void (*run)(Session& session, const CommandText& text); ///< null for a command that has options alone
    std::span<const Option> (*options)();                   ///< null for a command without options
};

/// "LAYER SET name" or "OPEN [path]": how a command, or one of its options, is typed.
std::wstring usageOf(const Command& command);
std::wstring usageOf(const Command& command, const Option& option);

/// The option of a name or alias, without regard to case; null when the command has none of that name.
const Option* findOption(const Command& command, std::wstring_view word);

/// Refuses a line whose first word, if there is one, is no option of the command.
void refuseOption(Session& session, const Command& command, const Words& words);

} // namespace workbench

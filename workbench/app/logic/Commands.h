// The Workbench's own commands, and how a typed line finds its command.
#pragma once

#include "Session.h"

namespace workbench {

/// A row of the command table.
struct Command {
    const wchar_t* name;
    const wchar_t* alias; ///< short form, or null
    const wchar_t* usage; ///< the argument as HELP shows it; empty without one
    const wchar_t* help;  ///< one sentence
    void (*run)(Session& session, const std::wstring& argument);
};

/// The row of a name or alias in upper case; null when there is none.
const Command* findCommand(const std::wstring& name);

/// Runs a line as it was typed: a command of the table, or one that a module has registered under a global or local
/// name. An exception that gets out of a command is told and goes no further.
void runLine(Session& session, const std::wstring& line);

} // namespace workbench

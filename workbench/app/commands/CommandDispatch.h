// Finds the command that a typed line names, and runs it.
#pragma once

#include "Session.h"

namespace workbench {

/// Longer lines are refused: no name, path or list needs as much.
inline constexpr std::size_t kLongestLine = 32767;

/// Runs a line as it was typed: a command of the table, or one that a module has registered under a global or local
/// name. An exception that a command throws is shown to the user and goes no further.
/// @return whether the command could be done; of one of a module it is known only that it hasn't thrown
bool runLine(Session& session, const std::wstring& line);

} // namespace workbench

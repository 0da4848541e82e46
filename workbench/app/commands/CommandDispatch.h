// How a typed line finds its command.
#pragma once

#include "Session.h"

namespace workbench {

/// Longer lines are refused: no name, path or list needs as much.
inline constexpr std::size_t kLongestLine = 32767;

/// Runs a line as it was typed: a command of the table, or one that a module has registered under a global or local
/// name. An exception that gets out of a command is told and goes no further.
void runLine(Session& session, const std::wstring& line);

} // namespace workbench

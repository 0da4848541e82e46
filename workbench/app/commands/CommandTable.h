// The one table of the Workbench's own commands, walked by dispatch, HELP and completion.
#pragma once

#include "Command.h"

#include <span>

namespace workbench {

/// In the order in which HELP lists them.
std::span<const Command> commandTable();

/// The row of a name or alias, without regard to case; null when there is none.
const Command* findCommand(std::wstring_view name);

} // namespace workbench

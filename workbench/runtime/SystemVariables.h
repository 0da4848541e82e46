// The host's system variables.
#pragma once

#include "KelExport.h"

#include <string>
#include <vector>

namespace runtime {

/// Gives CPROFILE, the one variable that the application keeps, another value until the next reset.
KELDB_API void setProfile(std::wstring name);

/// The names of all variables, in alphabetical order.
KELDB_API std::vector<std::wstring> systemVariableNames();

} // namespace runtime

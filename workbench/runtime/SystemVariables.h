// The host's system variables.
#pragma once

#include "KelExport.h"
#include "ResultBuffer.h"
#include "VornStatus.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace runtime {

using VariableValue = std::variant<std::int16_t, std::int32_t, double, std::wstring>;

/// Gives a variable that the application keeps, such as CPROFILE, another value until the next reset. eKeyNotFound for
/// a name without a variable, eNotApplicable for one that the drawing answers, eInvalidInput for a value of another
/// type.
[[nodiscard]] KELDB_API Vorn::ErrorStatus setSystemVariable(const wchar_t* name, VariableValue value);

/// The names of all variables, in alphabetical order.
KELDB_API std::vector<std::wstring> systemVariableNames();

} // namespace runtime

// Numbers as the host writes them for people, without a trace of the call.
#pragma once

#include "KelExport.h"

#include <string>

namespace engine {

/// A real in the drawing's units: what keldbRToS writes when unit and precision are left to the drawing.
KELDB_API std::wstring realText(double value);

} // namespace engine

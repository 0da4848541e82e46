// The system's file dialog, as a person answers it.
#pragma once

#include "Script.h"

#include <dlgs.h>

#include <string>

namespace ui {

/// Where the name is typed.
inline constexpr int kFileNameBox = cmb13;

/// Types a name or a path into its box, and waits until the box shows it.
Script typeFileName(const std::wstring& name);
/// The same, and Enter.
Script enterFileName(const std::wstring& name);

} // namespace ui

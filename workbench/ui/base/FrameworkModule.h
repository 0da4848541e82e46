// The module of kelui.dll itself, which holds the templates of the framework's own dialogs.
#pragma once

#include <windows.h>

namespace framework {

HMODULE frameworkModule();

} // namespace framework

// The name of the resource module, made from the path of the module itself.
#pragma once

#include <string>
#include <string_view>

/// The bare file name under which the resource module is looked for: the module's own, with "Res.dll" in the place of
/// its extension. The folder is thrown away on purpose, so that the system's search order decides where it comes from.
/// @param modulePath full path of the module, its extension as long as ".xmod"
std::wstring resourceModuleName(std::wstring_view modulePath);

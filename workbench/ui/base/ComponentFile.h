// Finds the files that are installed beside kelui.dll. Modules name them by component paths,
// "/Component;component/File.xaml", of which only the file's name counts here, so that no path leads out of the folder.
#pragma once

#include "KelExport.h"

#include <string>
#include <string_view>

namespace framework {

/// The folder of kelui.dll, with a backslash at its end.
KELUI_API std::wstring frameworkFolder();
/// The file beside kelui.dll that a component path names. A path that doesn't begin with a slash is answered as it is.
KELUI_API std::wstring componentFile(std::wstring_view componentPath);

} // namespace framework

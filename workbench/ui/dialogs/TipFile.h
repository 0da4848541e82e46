// The file of tips: for each dialog the texts of its controls' tips.
#pragma once

#include "KelExport.h"

#include <map>
#include <string>

namespace framework {

/// The tips of one dialog by control id.
using TipTexts = std::map<int, std::wstring>;

/// The prefix and the file of the framework's own dialogs.
inline constexpr const wchar_t* kTipPrefix = L"LAST";
inline constexpr const wchar_t* kTipFile = L"/KelDialogToolTips;Component/DialogToolTips.xaml";

/// Reads the tips that stand in `file`, a component path, for the dialog `scope` under `prefix`. Empty when the file is
/// missing or broken, or says nothing about the dialog: tips are a courtesy and never an error.
KELUI_API TipTexts readTips(const std::wstring& file, const std::wstring& scope, const std::wstring& prefix);

} // namespace framework

// The file of task dialogs: their texts and buttons, by key.
#pragma once

#include "KelExport.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace framework {

enum class TaskIcon { none, information, warning, error, shield };

/// Everything that one task dialog shows.
struct TaskDescription {
    std::wstring title;
    std::wstring instruction;
    std::wstring content;
    TaskIcon icon = TaskIcon::none;
    std::vector<std::wstring> commands; ///< texts of the command buttons; after a line break stands the second line
    unsigned int commonButtons = 0;     ///< TDCBF_ bits
};

/// Substitutions, by key.
using TaskPairs = std::map<std::wstring, std::wstring>;

/// The dialog `key` of `file`, a component path, with its placeholders filled in. Nothing when the file is missing or
/// broken, the key isn't in it, or the description makes no sense.
KELUI_API std::optional<TaskDescription> readTaskDialog(const std::wstring& file, std::wstring_view key,
                                                        const TaskPairs& pairs);

/// Replaces each "{key}" by its value, in one pass: what a value contains is not looked at again. Placeholders without
/// a value stay.
KELUI_API std::wstring substituted(std::wstring_view text, const TaskPairs& pairs);

} // namespace framework

// Asking and telling the user through the host's task dialogs.
#pragma once

#include <afxwin.h>

#include <optional>

struct TASKDIALOG_KEYVALUE;

/// What the host's prompts stand over: the main window of this thread. Null when there is none.
CWnd* threadMainWindow();

/// Shows the task dialog of that key from the host's file, over the thread's main window.
/// @param pairs,count substitutions in its texts, as COrvTaskDialog::LoadFromFile takes them
/// @return what COrvTaskDialog::ShowDialog answers; nothing when the dialog can't be loaded
std::optional<int> showTaskDialog(const wchar_t* key, const TASKDIALOG_KEYVALUE* pairs = nullptr, int count = 0);

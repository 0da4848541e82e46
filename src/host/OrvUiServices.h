// Task dialogs and help of the host. Windows tier.
#pragma once

#include "KelExport.h"

#include <afxwin.h>

/// One substitution in the texts of a task dialog.
struct TASKDIALOG_KEYVALUE {
    const wchar_t* key;
    const wchar_t* value;
};

/// The number of a task dialog's first command button.
inline constexpr int kTaskDialogFirstCommand = 1001;

/// A task dialog described in a XAML file of the host.
class KELUI_API COrvTaskDialog {
  public:
    COrvTaskDialog();
    ~COrvTaskDialog();
    COrvTaskDialog(const COrvTaskDialog&) = delete;
    COrvTaskDialog& operator=(const COrvTaskDialog&) = delete;

    /// Selects the dialog `key` of the file. `pairs` ends after `count` entries and is copied.
    /// @return non-zero on success
    BOOL LoadFromFile(const wchar_t* file, const wchar_t* key, const TASKDIALOG_KEYVALUE* pairs, int count);
    /// Shows what was loaded and answers the pressed button's number; 0 when it could not be shown.
    int ShowDialog(HWND parent);

  private:
    struct Description;
    Description* m_description;
};

/// Opens the host's help at a topic. `file` null means the host's own, `command` 0 the topic itself.
KELUI_API void keledHelp(const wchar_t* file, const wchar_t* topic, int command);
/// The host's main window; null while there is none.
KELUI_API HWND orvsw_vornMainWnd();

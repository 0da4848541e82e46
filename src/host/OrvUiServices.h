// Task dialogs and help of the host. Windows tier.
#pragma once

#include "KelExport.h"

#include <afxwin.h>

/// One substitution in the texts of a task dialog: "{key}" is replaced by the value.
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

    /// Selects the dialog `key` of the file. `pairs` ends after `count` entries and is copied; null stands for none,
    /// whatever `count` says.
    /// @return non-zero on success
    BOOL LoadFromFile(const wchar_t* file, const wchar_t* key, const TASKDIALOG_KEYVALUE* pairs, int count);
    /// Shows what was loaded and answers the pressed button's number: kTaskDialogFirstCommand and the following for the
    /// commands, the system's IDOK, IDCANCEL and so on for the others; 0 when it could not be shown.
    int ShowDialog(HWND parent);

  private:
    struct Description;
    Description* m_description;
};

/// The host's own questions and refusals about names. `kind` says what is named ("Layer state").
class KELUI_API CKelStandardTaskDialog {
  public:
    /// Asks whether the thing of that name is to be replaced.
    /// @return kTaskDialogFirstCommand for replace; IDCANCEL for no, and when the question can't be shown
    static unsigned int ShowDuplicateNameReplaceCancelDialog(const wchar_t* kind, const wchar_t* name, CWnd* parent);
    /// The refusals: of an empty name, a name that is too long, and one with characters that names can't have. `detail`
    /// is what the module has to add, and may be empty.
    static unsigned int ShowInvalidNameEmptyNameDialog(const wchar_t* kind, const wchar_t* detail, CWnd* parent);
    static unsigned int ShowInvalidNameTooLongDialog(const wchar_t* kind, const wchar_t* detail, CWnd* parent);
    static unsigned int ShowInvalidNameUnsupportedCharacters(const wchar_t* kind, const wchar_t* detail, CWnd* parent);
};

/// Opens the host's help at a topic. `file` null means the host's own, `command` 0 the topic itself.
/// Opens nothing, and tells nothing, when there is no such page or no program for it.
KELUI_API void keledHelp(const wchar_t* file, const wchar_t* topic, int command);
/// The host's main window; null while there is none.
KELUI_API HWND orvsw_vornMainWnd();

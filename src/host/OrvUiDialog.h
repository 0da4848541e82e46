// The host's dialog base classes. Windows tier.
//
// A dialog sets itself up in this order: SetDialogName, the base OnInitDialog, SetControlProperty,
// SetContextHelpPrefix, SetContextHelpFileName, SetUseTips(2), its own filling of controls, GetColumnSizes,
// SetPersistency(1).
#pragma once

#include "KelExport.h"

#include <afxwin.h>
#include <afxcmn.h>

/// One row of a resize table: how a control behaves when the dialog is resized.
struct _dlgControlTag {
    unsigned int id;
    unsigned int flags;      ///< one of the kOrvUiResize values
    unsigned int percentage; ///< share of the dialog's growth that the control takes; 100 is all of it
};
inline constexpr unsigned int kOrvUiResizeFollowBottom = 2;
inline constexpr unsigned int kOrvUiResizeFollowCorner = 3;
inline constexpr unsigned int kOrvUiResizeStretch = 48;

/// Modal loop, tips and context help.
class KELUI_API COrvUiBaseDialog : public CDialog {
  public:
    /// @param resources module that holds the template; null is the resource module that is current when it is loaded
    COrvUiBaseDialog(UINT templateId, CWnd* parent, HINSTANCE resources);
    ~COrvUiBaseDialog() override;

    /// A dialog whose template can't be loaded ends at once, as if cancelled.
    INT_PTR DoModal() override;

    /// Where the tips of the dialog's controls come from; both texts are copied.
    void SetContextHelpPrefix(const wchar_t* prefix);
    void SetContextHelpFileName(const wchar_t* fileName);
    /// 0 keeps the framework's tip out, 1 lets it in again, 2 turns tips on for the dialog.
    void SetUseTips(int use);

    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;
    /// The dialog's own help; called by the common help handler. The base does nothing.
    virtual void OnDialogHelp();

  protected:
    /// The common help handler, for the message maps of dialogs that have help, at ID_HELP or IDHELP: calls
    /// OnDialogHelp. F1 anywhere in such a dialog calls it too.
    afx_msg void onHelpCommand();
    /// The name under which the dialog's tips stand in the tip file; the base has none, and so no tips.
    virtual CString tipScope() const;

    DECLARE_MESSAGE_MAP()
    afx_msg void OnDestroy();
    afx_msg BOOL OnHelpInfo(HELPINFO* info);
    afx_msg LRESULT OnDpiChanged(WPARAM dpi, LPARAM place);

  private:
    struct Tips;
    Tips* m_tips;
    HINSTANCE m_templateModule;
    CString m_contextHelpPrefix;
    CString m_contextHelpFileName;
};

/// Persistence under the dialog's name, and resizing.
class KELUI_API COrvUiDialog : public COrvUiBaseDialog {
  public:
    /// @param resources module that holds the template; null is the resource module that is current when it is loaded
    COrvUiDialog(UINT templateId, CWnd* parent, HINSTANCE resources);
    ~COrvUiDialog() override;

    /// The key under which everything of this dialog is kept from one run to the next, its position from the start.
    /// Before the base OnInitDialog, which puts the dialog back to where one of this name was closed last.
    void SetDialogName(const wchar_t* name);
    /// 1 turns on the saving of the dialog's size. Its position is saved without it, where the dialog has a name.
    void SetPersistency(int on);
    /// Non-zero if the value exists; a missing one leaves `value` as it was.
    BOOL GetDialogData(const wchar_t* key, unsigned long& value);
    /// Non-zero if the value was stored.
    BOOL SetDialogData(const wchar_t* key, unsigned long value);
    /// Applies widths saved under the dialog's name; with nothing saved the widths stand.
    void GetColumnSizes(CListCtrl* list);
    /// Saves the list's present widths, in pixels of its display, under the dialog's name.
    void SaveColumnSizes(CListCtrl* list);
    /// Registers a resize table in the place of an earlier one; the rows are copied. Rows of absent controls do
    /// nothing.
    void SetControlProperty(_dlgControlTag* rows, unsigned long count);

    BOOL OnInitDialog() override;

  protected:
    CString tipScope() const override;

    DECLARE_MESSAGE_MAP()
    afx_msg void OnDestroy();
    afx_msg LRESULT OnDpiChanged(WPARAM dpi, LPARAM place);
    afx_msg void OnShowWindow(BOOL show, UINT status);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);

  private:
    struct Layout;
    Layout* m_layout;
    CString m_dialogName;
    int m_persistency;
};

/// Base of all dialogs of modules.
class KELUI_API CKelUiDialog : public COrvUiDialog {
  public:
    /// Takes the template from the current resource module unless `resources` names another.
    CKelUiDialog(UINT templateId, CWnd* parent = nullptr, HINSTANCE resources = nullptr);

  protected:
    DECLARE_MESSAGE_MAP()
};

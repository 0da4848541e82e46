// CDialog: a dialog from a template. The template is looked for when the dialog is made, by AfxFindResourceHandle.
// Narrower than MFC: no RT_DLGINIT data, no dialog bars, no help button.
#pragma once

#include "CWnd.h"

class AFXMFC_API CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)
  public:
    CDialog() = default;
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    // --- modeless: the object's owner deletes it, usually in PostNcDestroy ---
    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr) {
        return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
    }
    BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr);
    // --- modal ---
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr);
    /// What EndDialog was given; -1 when the template isn't found or the window can't be made.
    virtual INT_PTR DoModal();
    void EndDialog(int nResult);

    void MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }
    void NextDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 0, 0); }
    void PrevDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 1, 0); }
    void GotoDlgCtrl(CWnd* pWndCtrl) {
        ::SendMessage(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(pWndCtrl->m_hWnd), 1);
    }
    void SetDefID(UINT nID) { SendMessage(DM_SETDEFID, nID); }
    DWORD GetDefID() const { return static_cast<DWORD>(::SendMessage(m_hWnd, DM_GETDEFID, 0, 0)); }

    BOOL PreTranslateMessage(MSG* pMsg) override;
    /// Commands go to the dialog, then to its owner and the thread; control notifications only to the dialog.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;
    /// Exchanges the data. FALSE: the dialog has set the focus itself.
    virtual BOOL OnInitDialog();
    virtual void OnSetFont(CFont*) {}

  protected:
    virtual void OnOK();
    virtual void OnCancel();
    /// Disables the window that the dialog stands over, if that isn't the parent, and answers the parent to use.
    HWND PreModal();
    void PostModal();
    afx_msg LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT HandleSetFont(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    UINT m_nIDHelp = 0;
    LPCTSTR m_lpszTemplateName = nullptr;
    LPCDLGTEMPLATE m_lpDialogTemplate = nullptr;
    CWnd* m_pParentWnd = nullptr;

  private:
    BOOL CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst);
    BOOL CreateFromParent(LPCDLGTEMPLATE lpDialogTemplate, HWND hWndParent, HINSTANCE hInst);
    void RunCreated(LPCDLGTEMPLATE lpDialogTemplate, HWND hWndParent, HINSTANCE hInst);

    HWND m_hWndTop = nullptr;
    bool m_centers = false;
};

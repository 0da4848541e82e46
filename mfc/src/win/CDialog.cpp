// A modal dialog is a modeless one with a message loop of its own.

#include "ThreadState.h"

#include <new>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

// clang-format off
BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_MESSAGE(WM_INITDIALOG, HandleInitDialog)
    ON_MESSAGE(WM_SETFONT, HandleSetFont)
    ON_COMMAND(IDOK, OnOK)
    ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()
// clang-format on

namespace {

/// The template of a name in the current resources; null when there is none.
LPCDLGTEMPLATE findTemplate(LPCTSTR name, HINSTANCE& instance) {
    instance = AfxFindResourceHandle(name, RT_DIALOG);
    const HRSRC resource = ::FindResource(instance, name, RT_DIALOG);
    const HGLOBAL loaded = resource ? ::LoadResource(instance, resource) : nullptr;
    return loaded ? static_cast<LPCDLGTEMPLATE>(::LockResource(loaded)) : nullptr;
}

/// Whether the template leaves the place to the program. A template has one of two forms, which keep the style in
/// different places; the extended one has 0xFFFF in its second word.
bool leavesPlaceOpen(LPCDLGTEMPLATE dialogTemplate) {
    struct Extended {
        WORD version, signature;
        DWORD helpId, exStyle, style;
        WORD items;
        short x, y;
    };
    const auto* const extended = reinterpret_cast<const Extended*>(dialogTemplate);
    const bool isExtended = extended->signature == 0xFFFF;
    const DWORD style = isExtended ? extended->style : dialogTemplate->style;
    const int x = isExtended ? extended->x : dialogTemplate->x;
    const int y = isExtended ? extended->y : dialogTemplate->y;
    return !(style & (DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN | WS_CHILD)) && x == 0 && y == 0;
}

INT_PTR CALLBACK dialogProc(HWND handle, UINT message, WPARAM, LPARAM) {
    if (message != WM_INITDIALOG)
        return FALSE;
    auto* const dialog = dynamic_cast<CDialog*>(CWnd::FromHandlePermanent(handle));
    return dialog ? kelmfc::stopExceptions([dialog]() -> LRESULT { return dialog->OnInitDialog(); }) : TRUE;
}

} // namespace

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : m_nIDHelp(nIDTemplate), m_lpszTemplateName(MAKEINTRESOURCE(nIDTemplate)), m_pParentWnd(pParentWnd) {}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_pParentWnd(pParentWnd) {}

CDialog::~CDialog() {
    // Not left to ~CWnd: the messages of the window's end must still find a CDialog.
    if (m_hWnd)
        DestroyWindow();
}

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd) {
    m_lpszTemplateName = lpszTemplateName;
    HINSTANCE instance = nullptr;
    const LPCDLGTEMPLATE found = findTemplate(lpszTemplateName, instance);
    return found && CreateDlgIndirect(found, pParentWnd, instance);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd) {
    return CreateDlgIndirect(lpDialogTemplate, pParentWnd, AfxGetResourceHandle());
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd) {
    m_lpDialogTemplate = lpDialogTemplate;
    if (pParentWnd)
        m_pParentWnd = pParentWnd;
    return lpDialogTemplate != nullptr;
}

BOOL CDialog::CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst) {
    if (!pParentWnd)
        pParentWnd = AfxGetMainWnd();
    return CreateFromParent(lpDialogTemplate, pParentWnd ? pParentWnd->m_hWnd : nullptr, hInst);
}

BOOL CDialog::CreateFromParent(LPCDLGTEMPLATE lpDialogTemplate, HWND hWndParent, HINSTANCE hInst) {
    m_nModalResult = -1;
    m_nFlags |= WF_CONTINUEMODAL;
    m_centers = leavesPlaceOpen(lpDialogTemplate);
    kelmfc::hookWindowCreation(this);
    HWND created = ::CreateDialogIndirect(hInst, lpDialogTemplate, hWndParent, &dialogProc);
    if (!kelmfc::unhookWindowCreation())
        PostNcDestroy();
    // EndDialog was called while the dialog was being set up.
    if (created && !(m_nFlags & WF_CONTINUEMODAL)) {
        ::DestroyWindow(created);
        created = nullptr;
    }
    return created != nullptr;
}

INT_PTR CDialog::DoModal() {
    HINSTANCE instance = AfxGetResourceHandle();
    LPCDLGTEMPLATE dialogTemplate = m_lpDialogTemplate;
    if (!dialogTemplate && m_lpszTemplateName)
        dialogTemplate = findTemplate(m_lpszTemplateName, instance);
    if (!dialogTemplate)
        return -1;

    const HWND parent = PreModal();
    const bool hasParent = parent && parent != ::GetDesktopWindow();
    const BOOL wasEnabled = hasParent && ::IsWindowEnabled(parent);
    if (wasEnabled)
        ::EnableWindow(parent, FALSE);
    // The parent is enabled before the dialog goes, or Windows activates another program's window. A parent that was
    // disabled before stays so, although Wine's EndDialog enables every owner.
    const auto leave = [&] {
        if (hasParent)
            ::EnableWindow(parent, wasEnabled);
        if (parent && m_hWnd && ::GetActiveWindow() == m_hWnd)
            ::SetActiveWindow(parent);
        DestroyWindow();
        PostModal();
    };
    try {
        RunCreated(dialogTemplate, parent, instance);
    } catch (CException* exception) {
        exception->Delete();
        m_nModalResult = -1;
    } catch (const std::bad_alloc&) {
        m_nModalResult = -1;
    } catch (...) {
        leave();
        throw;
    }
    leave();
    return m_nModalResult;
}

void CDialog::RunCreated(LPCDLGTEMPLATE lpDialogTemplate, HWND hWndParent, HINSTANCE hInst) {
    if (!CreateFromParent(lpDialogTemplate, hWndParent, hInst))
        return;
    DWORD flags = MLF_SHOWONIDLE;
    if (GetStyle() & DS_NOIDLEMSG)
        flags |= MLF_NOIDLEMSG;
    RunModalLoop(flags);
    if (m_hWnd)
        SetWindowPos(nullptr, 0, 0, 0, 0, SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
}

HWND CDialog::PreModal() {
    return kelmfc::safeOwner(m_pParentWnd ? m_pParentWnd->m_hWnd : nullptr, &m_hWndTop);
}

void CDialog::PostModal() {
    if (m_hWndTop && ::IsWindow(m_hWndTop))
        ::EnableWindow(m_hWndTop, TRUE);
    m_hWndTop = nullptr;
}

void CDialog::EndDialog(int nResult) {
    if (m_nFlags & (WF_MODALLOOP | WF_CONTINUEMODAL))
        EndModalLoop(nResult);
    const HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
    const bool staysDisabled = !(m_nFlags & WF_MODALLOOP) && owner && !::IsWindowEnabled(owner);
    ::EndDialog(m_hWnd, nResult);
    if (staysDisabled)
        ::EnableWindow(owner, FALSE);
}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM) {
    CRect before;
    GetWindowRect(&before);
    const LRESULT result = Default();
    // OnInitDialog may have ended the dialog.
    if (m_hWnd && m_centers) {
        CRect after;
        GetWindowRect(&after);
        if (after.TopLeft() == before.TopLeft())
            CenterWindow();
    }
    return result;
}

LRESULT CDialog::HandleSetFont(WPARAM wParam, LPARAM) {
    OnSetFont(CFont::FromHandle(reinterpret_cast<HFONT>(wParam)));
    return Default();
}

BOOL CDialog::OnInitDialog() {
    // Data that can't be shown ends the dialog, as in MFC.
    if (!UpdateData(FALSE)) {
        EndDialog(-1);
        return FALSE;
    }
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg) {
    if (CWnd::PreTranslateMessage(pMsg))
        return TRUE;
    // A multi-line edit keeps Escape to itself; without this it would close nothing.
    const bool escapes = pMsg->message == WM_KEYDOWN && (pMsg->wParam == VK_ESCAPE || pMsg->wParam == VK_CANCEL);
    if (escapes && (::GetWindowLong(pMsg->hwnd, GWL_STYLE) & ES_MULTILINE)) {
        wchar_t name[16] = {};
        ::GetClassName(pMsg->hwnd, name, 16);
        const HWND cancel = ::GetDlgItem(m_hWnd, IDCANCEL);
        if (_wcsicmp(name, L"Edit") == 0 && (!cancel || ::IsWindowEnabled(cancel))) {
            SendMessage(WM_COMMAND, IDCANCEL);
            return TRUE;
        }
    }
    return PreTranslateInput(pMsg);
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    const bool isCommand = nCode == CN_COMMAND || nCode == CN_UPDATE_COMMAND_UI;
    // Only commands of the library's range travel on: a control's id means nothing to anyone else.
    if (!isCommand || nID < 0x8000 || nID >= 0xF000)
        return FALSE;
    CWnd* const owner = GetParent();
    if (owner && owner->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    CWinThread* const thread = AfxGetThread();
    return thread && thread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

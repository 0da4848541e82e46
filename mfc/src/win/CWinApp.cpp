// CWinApp: the program object, its start, and the texts that it shows.

#include "ThreadState.h"

#include <cstdlib>
#include <cwchar>

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

CWinApp::CWinApp(LPCTSTR lpszAppName) {
    m_pszAppName = lpszAppName ? _wcsdup(lpszAppName) : nullptr;
    kelmfc::theState().app = this;
}

CWinApp::~CWinApp() {
    std::free(const_cast<wchar_t*>(m_pszAppName));
    std::free(const_cast<wchar_t*>(m_pszExeName));
    if (kelmfc::theState().app == this)
        kelmfc::theState().app = nullptr;
}

void CWinApp::SetNames() {
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileName(m_hInstance, path, MAX_PATH);
    const wchar_t* const slash = std::wcsrchr(path, L'\\');
    std::wstring name = slash ? slash + 1 : path;
    name = name.substr(0, name.rfind(L'.'));
    if (!m_pszExeName)
        m_pszExeName = _wcsdup(name.c_str());
    if (m_pszAppName)
        return;
    CString title;
    const bool hasTitle = title.LoadString(AFX_IDS_APP_TITLE);
    m_pszAppName = _wcsdup(hasTitle ? static_cast<LPCTSTR>(title) : name.c_str());
}

BOOL CWinApp::InitInstance() {
    return TRUE;
}

int CWinApp::Run() {
    // Without a window nobody could end the loop.
    if (!m_pMainWnd)
        AfxPostQuitMessage(0);
    return CWinThread::Run();
}

int CWinApp::ExitInstance() {
    return CWinThread::ExitInstance();
}

BOOL CWinApp::OnIdle(LONG lCount) {
    return CWinThread::OnIdle(lCount);
}

LRESULT CWinApp::ProcessWndProcException(CException* e, const MSG* pMsg) {
    const bool isCommand = pMsg->message == WM_COMMAND;
    const bool isSilent = pMsg->message == WM_CREATE || pMsg->message == WM_PAINT;
    if (!isSilent && !e->IsKindOf(RUNTIME_CLASS(CUserException)))
        e->ReportError(MB_ICONEXCLAMATION | MB_SYSTEMMODAL,
                       isCommand ? AFX_IDP_COMMAND_FAILURE : AFX_IDP_INTERNAL_FAILURE);
    return isCommand ? 1 : CWinThread::ProcessWndProcException(e, pMsg);
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT) {
    HWND top = nullptr;
    const HWND owner = kelmfc::safeOwner(nullptr, &top);
    if ((nType & MB_ICONMASK) == 0)
        nType |= (nType & MB_TYPEMASK) <= MB_OKCANCEL ? MB_ICONEXCLAMATION : MB_ICONQUESTION;
    const int answer = ::MessageBox(owner, lpszPrompt, AfxGetAppName(), nType);
    if (top)
        ::EnableWindow(top, TRUE);
    return answer;
}

void CWinApp::DoWaitCursor(int nCode) {
    static const HCURSOR hourglass = ::LoadCursor(nullptr, IDC_WAIT);
    m_waitCursors += nCode;
    if (m_waitCursors > 0) {
        const HCURSOR before = ::SetCursor(hourglass);
        if (nCode > 0 && m_waitCursors == 1)
            m_cursorBefore = before;
    } else {
        m_waitCursors = 0;
        ::SetCursor(m_cursorBefore);
    }
}

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const {
    return ::LoadCursor(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}

HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const {
    return ::LoadIcon(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}

CWaitCursor::CWaitCursor() {
    if (CWinApp* const app = AfxGetApp())
        app->DoWaitCursor(1);
}

CWaitCursor::~CWaitCursor() {
    if (CWinApp* const app = AfxGetApp())
        app->DoWaitCursor(-1);
}

void CWaitCursor::Restore() {
    if (CWinApp* const app = AfxGetApp())
        app->DoWaitCursor(0);
}

CWinApp* AfxGetApp() {
    return kelmfc::theState().app;
}

LPCTSTR AfxGetAppName() {
    const CWinApp* const app = AfxGetApp();
    return app ? app->m_pszAppName : nullptr;
}

HINSTANCE AfxGetInstanceHandle() {
    const HINSTANCE instance = kelmfc::theState().instance;
    return instance ? instance : ::GetModuleHandle(nullptr);
}

BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE, LPTSTR lpCmdLine, int nCmdShow) {
    kelmfc::theState().instance = hInstance;
    if (CWinApp* const app = AfxGetApp()) {
        app->m_hInstance = hInstance;
        app->m_lpCmdLine = lpCmdLine;
        app->m_nCmdShow = nCmdShow;
        app->SetNames();
    }
    return TRUE;
}

int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow) {
    CWinApp* const app = AfxGetApp();
    if (!app || !AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow) || !app->InitApplication())
        return -1;
    if (app->InitInstance())
        return app->Run();
    if (app->m_pMainWnd)
        app->m_pMainWnd->DestroyWindow();
    return app->ExitInstance();
}

void AfxPostQuitMessage(int nExitCode) {
    ::PostQuitMessage(nExitCode);
}

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp) {
    if (CWinApp* const app = AfxGetApp())
        return app->DoMessageBox(lpszText, nType, nIDHelp);
    return ::MessageBox(nullptr, lpszText, nullptr, nType);
}

int AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp) {
    CString text;
    text.LoadString(nIDPrompt);
    return AfxMessageBox(text, nType, nIDHelp == static_cast<UINT>(-1) ? nIDPrompt : nIDHelp);
}

BOOL AfxRegisterClass(WNDCLASS* lpWndClass) {
    WNDCLASS existing{};
    return ::GetClassInfo(lpWndClass->hInstance, lpWndClass->lpszClassName, &existing) ||
           ::RegisterClass(lpWndClass) != 0;
}

LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon) {
    // Valid until the next call, as in MFC.
    static wchar_t name[96];
    const HINSTANCE instance = AfxGetInstanceHandle();
    ::wsprintf(name, L"Afx:%p:%x:%p:%p:%p", instance, nClassStyle, hCursor, hbrBackground, hIcon);
    WNDCLASS windowClass{};
    windowClass.style = nClassStyle;
    windowClass.lpfnWndProc = &::DefWindowProc;
    windowClass.hInstance = instance;
    windowClass.hIcon = hIcon;
    windowClass.hCursor = hCursor;
    windowClass.hbrBackground = hbrBackground;
    windowClass.lpszClassName = name;
    if (!AfxRegisterClass(&windowClass))
        AfxThrowResourceException();
    return name;
}

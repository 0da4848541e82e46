// CWinApp: the program. One static object of a derived class; AfxWinMain (linked in by kelmfc_winmain) runs it. A
// program with a main of its own calls AfxWinInit first. Narrower than MFC: no documents, command line parsing,
// profiles, help or OLE.
#pragma once

#include "CWinThread.h"

class AFXMFC_API CWinApp : public CWinThread {
    DECLARE_DYNAMIC(CWinApp)
  public:
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);
    ~CWinApp() override;

    HINSTANCE m_hInstance = nullptr;
    LPTSTR m_lpCmdLine = nullptr;
    int m_nCmdShow = SW_SHOWNORMAL;
    LPCTSTR m_pszAppName = nullptr; // allocated by _wcsdup, as in MFC
    LPCTSTR m_pszExeName = nullptr;

    virtual BOOL InitApplication() { return TRUE; }
    BOOL InitInstance() override;
    int Run() override;
    int ExitInstance() override;
    BOOL OnIdle(LONG lCount) override;
    /// Tells the user, except about CUserException; a command counts as handled.
    LRESULT ProcessWndProcException(CException* e, const MSG* pMsg) override;
    /// What AfxMessageBox calls.
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);
    /// 1 shows the hourglass, -1 takes one back, 0 shows it again if it should be there.
    virtual void DoWaitCursor(int nCode);

    // Found by AfxFindResourceHandle.
    HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
    HCURSOR LoadCursor(UINT nIDResource) const { return LoadCursor(MAKEINTRESOURCE(nIDResource)); }
    HICON LoadIcon(LPCTSTR lpszResourceName) const;
    HICON LoadIcon(UINT nIDResource) const { return LoadIcon(MAKEINTRESOURCE(nIDResource)); }
    HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const { return ::LoadCursor(nullptr, lpszCursorName); }
    HICON LoadStandardIcon(LPCTSTR lpszIconName) const { return ::LoadIcon(nullptr, lpszIconName); }

  private:
    friend AFXMFC_API BOOL AfxWinInit(HINSTANCE, HINSTANCE, LPTSTR, int);
    void SetNames();

    int m_waitCursors = 0;
    HCURSOR m_cursorBefore = nullptr;
};

/// The hourglass while the object lives.
class AFXMFC_API CWaitCursor {
  public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    void Restore();
};

AFXMFC_API CWinApp* AfxGetApp();
AFXMFC_API LPCTSTR AfxGetAppName();
AFXMFC_API HINSTANCE AfxGetInstanceHandle();
/// Where resources are looked for first; the program unless set.
AFXMFC_API HINSTANCE AfxGetResourceHandle();
AFXMFC_API void AfxSetResourceHandle(HINSTANCE hInstResource);
/// The module that has the resource: the current resource handle, the extension DLLs (the newest first), this library;
/// or the current resource handle when none has.
AFXMFC_API HINSTANCE AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);
/// The number of characters loaded, 0 when there is no such string.
AFXMFC_API int AfxLoadString(UINT nIDS, LPTSTR lpszBuf, UINT nMaxBuf = 256);

AFXMFC_API BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
AFXMFC_API int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
AFXMFC_API void AfxPostQuitMessage(int nExitCode);

AFXMFC_API int AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
AFXMFC_API int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));
// Replace %1 and %2; the second form takes its format from a string resource.
AFXMFC_API void AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1);
AFXMFC_API void AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2);
AFXMFC_API void AfxFormatStrings(CString& rString, LPCTSTR lpszFormat, const LPCTSTR* rglpsz, int nString);

/// The name of a window class made of these; the same answer for the same values. Throws CResourceException.
AFXMFC_API LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr, HBRUSH hbrBackground = nullptr,
                                       HICON hIcon = nullptr);
/// TRUE when the class exists afterwards.
AFXMFC_API BOOL AfxRegisterClass(WNDCLASS* lpWndClass);
AFXMFC_API LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
/// Calls the object's WindowProc; no exception gets out.
AFXMFC_API LRESULT AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);

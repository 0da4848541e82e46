// A whole program as kelmfc_winmain starts it: the command line arrives, the main window's end ends the loop, and
// ExitInstance's answer is the exit code. The exit code names the first step that went wrong, 0 for none.
#include <afxwin.h>

namespace {

class Starter : public CWinApp {
  public:
    BOOL InitInstance() override {
        if (m_hInstance != ::GetModuleHandle(nullptr) || AfxGetApp() != this)
            return fail(1);
        if (CString(m_lpCmdLine) != L"one \"two three\"")
            return fail(2);
        // Without a name of its own and a title in its resources a program is called as its file is.
        if (CString(AfxGetAppName()) != L"mfc_start_test")
            return fail(3);
        const LPCTSTR windowClass = AfxRegisterWndClass(0);
        if (!m_window.CreateEx(0, windowClass, L"", WS_OVERLAPPEDWINDOW, CRect(0, 0, 100, 100), nullptr, 0))
            return fail(4);
        m_pMainWnd = &m_window;
        m_window.PostMessage(WM_CLOSE);
        return TRUE;
    }
    int Run() override {
        const int code = CWinApp::Run();
        return m_window.m_hWnd ? 5 : code;
    }
    int ExitInstance() override {
        const int code = CWinApp::ExitInstance();
        return m_failure ? m_failure : code;
    }

  private:
    BOOL fail(int step) {
        m_failure = step;
        return FALSE;
    }

    CWnd m_window;
    int m_failure = 0;
};

Starter g_starter;

} // namespace

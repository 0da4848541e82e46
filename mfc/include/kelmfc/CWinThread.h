// CWinThread: a thread's message loop. Only the program's main thread has one here, as its CWinApp.
// Narrower than MFC: no AfxBeginThread, no thread messages.
#pragma once

#include "CWnd.h"

class AFXMFC_API CWinThread : public CCmdTarget {
    DECLARE_DYNAMIC(CWinThread)
  public:
    CWinThread();
    ~CWinThread() override;

    CWnd* m_pMainWnd = nullptr;
    CWnd* m_pActiveWnd = nullptr;
    HANDLE m_hThread = nullptr;
    DWORD m_nThreadID = 0;
    operator HANDLE() const { return m_hThread; }

    /// FALSE: the program ends without running.
    virtual BOOL InitInstance();
    /// Runs the message loop until WM_QUIT and answers ExitInstance's result.
    virtual int Run();
    virtual int ExitInstance();
    /// Called when no message waits, with the number of calls since the last message; TRUE asks for another call. Also
    /// called by a modal loop (RunModalLoop) when that is idle. The base deletes the temporary objects.
    virtual BOOL OnIdle(LONG lCount);
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// One message; FALSE at WM_QUIT.
    virtual BOOL PumpMessage();
    /// FALSE for messages after which OnIdle isn't called anew: the caret's timer, and mouse moves without a move.
    virtual BOOL IsIdleMessage(MSG* pMsg);
    /// Answers a message whose handler threw; whoever calls deletes the exception.
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
    virtual CWnd* GetMainWnd();

  private:
    friend AFXMFC_API MSG* AfxGetCurrentMessage();

    MSG m_msgCur{};
    CPoint m_ptCursorLast;
    UINT m_nMsgLast = WM_NULL;
};

/// The message that the loop took last.
AFXMFC_API MSG* AfxGetCurrentMessage();
AFXMFC_API CWinThread* AfxGetThread();
/// The thread's main window, null without a thread object or window.
AFXMFC_API CWnd* AfxGetMainWnd();

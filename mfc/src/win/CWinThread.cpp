// CWinThread: the message loop, and what to do with messages before, instead of and after their dispatch.

#include "ThreadState.h"

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

CWinThread::CWinThread() {
    m_hThread = ::GetCurrentThread();
    m_nThreadID = ::GetCurrentThreadId();
    if (!kelmfc::theState().thread)
        kelmfc::theState().thread = this;
}

CWinThread::~CWinThread() {
    if (kelmfc::theState().thread == this)
        kelmfc::theState().thread = nullptr;
}

CWinThread* AfxGetThread() {
    return kelmfc::theState().thread;
}

CWnd* AfxGetMainWnd() {
    CWinThread* const thread = AfxGetThread();
    return thread ? thread->GetMainWnd() : nullptr;
}

MSG* AfxGetCurrentMessage() {
    CWinThread* const thread = AfxGetThread();
    return thread ? &thread->m_msgCur : &kelmfc::theState().current;
}

CWnd* CWinThread::GetMainWnd() {
    return m_pActiveWnd ? m_pActiveWnd : m_pMainWnd;
}

BOOL CWinThread::InitInstance() {
    return FALSE;
}

int CWinThread::ExitInstance() {
    return static_cast<int>(AfxGetCurrentMessage()->wParam);
}

int CWinThread::Run() {
    bool idle = true;
    LONG count = 0;
    for (;;) {
        while (idle && !::PeekMessage(&m_msgCur, nullptr, 0, 0, PM_NOREMOVE))
            idle = OnIdle(count++);
        do {
            if (!PumpMessage())
                return ExitInstance();
            if (IsIdleMessage(&m_msgCur)) {
                idle = true;
                count = 0;
            }
        } while (::PeekMessage(&m_msgCur, nullptr, 0, 0, PM_NOREMOVE));
    }
}

BOOL CWinThread::OnIdle(LONG) {
    kelmfc::deleteTemporaryObjects();
    return FALSE;
}

namespace {

BOOL preTranslate(MSG* message) {
    CWnd* const mainWindow = AfxGetMainWnd();
    if (CWnd::WalkPreTranslateTree(mainWindow ? mainWindow->m_hWnd : nullptr, message))
        return TRUE;
    // The main window's accelerators work in a modeless dialog too. Under a modal one the main window is disabled, and
    // they don't.
    if (!mainWindow || !message->hwnd || !mainWindow->IsWindowEnabled())
        return FALSE;
    const CWnd* const top = CWnd::FromHandle(message->hwnd)->GetTopLevelParent();
    return top != mainWindow && mainWindow->PreTranslateMessage(message);
}

BOOL pumpOne(MSG* message, CWinThread* thread) {
    if (!::GetMessage(message, nullptr, 0, 0))
        return FALSE;
    const BOOL translated = thread ? thread->PreTranslateMessage(message) : preTranslate(message);
    if (message->message != WM_KICKIDLE && !translated) {
        ::TranslateMessage(message);
        ::DispatchMessage(message);
    }
    return TRUE;
}

} // namespace

BOOL CWinThread::PreTranslateMessage(MSG* pMsg) {
    return preTranslate(pMsg);
}

BOOL CWinThread::PumpMessage() {
    return pumpOne(&m_msgCur, this);
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg) {
    constexpr UINT kSystemTimer = 0x0118; // the caret's
    if (pMsg->message == WM_MOUSEMOVE || pMsg->message == WM_NCMOUSEMOVE) {
        // When a window appears or goes under a resting pointer, Windows sends a mouse move to the same place.
        if (m_ptCursorLast == pMsg->pt && pMsg->message == m_nMsgLast)
            return FALSE;
        m_ptCursorLast = pMsg->pt;
        m_nMsgLast = pMsg->message;
        return TRUE;
    }
    return pMsg->message != WM_PAINT && pMsg->message != kSystemTimer;
}

LRESULT CWinThread::ProcessWndProcException(CException*, const MSG* pMsg) {
    return kelmfc::resultAfterException(*pMsg);
}

namespace kelmfc {

BOOL pumpMessage() {
    CWinThread* const thread = AfxGetThread();
    return thread ? thread->PumpMessage() : pumpOne(&theState().current, nullptr);
}

BOOL isIdleMessage(MSG* message) {
    CWinThread* const thread = AfxGetThread();
    return thread ? thread->IsIdleMessage(message) : message->message != WM_PAINT;
}

} // namespace kelmfc

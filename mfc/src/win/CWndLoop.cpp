// CWnd: messages before they are dispatched, and the loop of a modal window.

#include "ThreadState.h"

BOOL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg) {
    for (HWND window = pMsg->hwnd; window; window = ::GetParent(window)) {
        CWnd* const object = FromHandlePermanent(window);
        if (object && object->PreTranslateMessage(pMsg))
            return TRUE;
        if (window == hWndStop)
            break;
    }
    return FALSE;
}

BOOL CWnd::PreTranslateMessage(MSG* pMsg) {
    FilterToolTipMessage(pMsg);
    return FALSE;
}

BOOL CWnd::PreTranslateInput(LPMSG lpMsg) {
    const bool isKey = lpMsg->message >= WM_KEYFIRST && lpMsg->message <= WM_KEYLAST;
    const bool isMouse = lpMsg->message >= WM_MOUSEFIRST && lpMsg->message <= WM_MOUSELAST;
    return (isKey || isMouse) && IsDialogMessage(lpMsg);
}

BOOL CWnd::ContinueModal() {
    return (m_nFlags & WF_CONTINUEMODAL) != 0;
}

void CWnd::EndModalLoop(int nResult) {
    m_nModalResult = nResult;
    if (m_nFlags & WF_CONTINUEMODAL) {
        m_nFlags &= ~WF_CONTINUEMODAL;
        PostMessage(WM_NULL); // wakes the loop up
    }
}

namespace {

bool endsHiding(const MSG& message) {
    constexpr UINT kSystemTimer = 0x0118; // undocumented; sent while a hidden window has the caret
    return message.message == kSystemTimer || message.message == WM_SYSKEYDOWN;
}

/// What a modal loop does while no message waits.
class IdleWork {
  public:
    IdleWork(CWnd& window, DWORD flags)
        : m_window(window), m_flags(flags), m_parent(::GetParent(window.m_hWnd)),
          m_showsOnIdle((flags & MLF_SHOWONIDLE) && !(window.GetStyle() & WS_VISIBLE)) {}

    bool isDue() const { return m_isDue; }
    void begin() {
        m_isDue = true;
        m_count = 0;
    }
    void show() {
        if (!m_showsOnIdle)
            return;
        m_showsOnIdle = false;
        m_window.ShowWindow(SW_SHOWNORMAL);
        m_window.UpdateWindow();
    }
    void run() {
        show();
        if (!(m_flags & MLF_NOIDLEMSG) && m_parent && m_count == 0)
            ::SendMessage(m_parent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_window.m_hWnd));
        bool wantsMore = false;
        if (!(m_flags & MLF_NOKICKIDLE))
            wantsMore = m_window.SendMessage(WM_KICKIDLE, MSGF_DIALOGBOX, m_count) != 0;
        if (CWinThread* const thread = AfxGetThread())
            wantsMore = thread->OnIdle(m_count) || wantsMore;
        else
            kelmfc::deleteTemporaryObjects();
        ++m_count;
        m_isDue = wantsMore;
    }

  private:
    CWnd& m_window;
    DWORD m_flags;
    HWND m_parent;
    bool m_showsOnIdle;
    bool m_isDue = true;
    LONG m_count = 0;
};

/// Counts the nested loops, by which their temporary objects are told apart, and deletes this loop's at its end.
class LoopScope {
  public:
    LoopScope() { ++kelmfc::theState().modalLoops; }
    ~LoopScope() {
        kelmfc::deleteTemporaryObjects();
        --kelmfc::theState().modalLoops;
    }
    LoopScope(const LoopScope&) = delete;
    LoopScope& operator=(const LoopScope&) = delete;
};

bool messageWaits(MSG* message) {
    return ::PeekMessage(message, nullptr, 0, 0, PM_NOREMOVE);
}

} // namespace

int CWnd::RunModalLoop(DWORD dwFlags) {
    const LoopScope scope;
    m_nFlags |= WF_MODALLOOP | WF_CONTINUEMODAL;
    MSG* const message = AfxGetCurrentMessage();
    IdleWork idle(*this, dwFlags);
    while (ContinueModal()) {
        while (idle.isDue() && !messageWaits(message))
            idle.run();
        do {
            if (!kelmfc::pumpMessage()) {
                // WM_QUIT ends the program, so the outer loops have to get it too.
                AfxPostQuitMessage(0);
                m_nFlags &= ~(WF_MODALLOOP | WF_CONTINUEMODAL);
                return -1;
            }
            if (endsHiding(*message))
                idle.show();
            if (!ContinueModal())
                break;
            if (kelmfc::isIdleMessage(message))
                idle.begin();
        } while (messageWaits(message));
    }
    m_nFlags &= ~(WF_MODALLOOP | WF_CONTINUEMODAL);
    return m_nModalResult;
}

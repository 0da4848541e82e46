// CWnd: the tips of windows that have enabled them. One tip window serves the thread. It has one tool, which is
// whatever OnToolHitTest has found under the pointer.

#include "ToolTips.h"

#include <cstdlib>

namespace {

// Without what later versions of the control have added; OnToolHitTest gets this one, as in MFC.
const UINT kToolSize = TTTOOLINFOW_V1_SIZE;
constexpr INT_PTR kNoTool = -1;

struct Tips {
    CToolTipCtrl window;   ///< has no handle while the thread has no tip window
    HWND asked = nullptr;  ///< the window that OnToolHitTest was last called for
    INT_PTR hit = kNoTool; ///< what it answered
    TOOLINFO tool{};       ///< names what the tip window got for that; nothing while its size is 0
};

Tips& theTips() {
    // Never destroyed: windows may outlive the library's static objects.
    static Tips& tips = *new Tips;
    return tips;
}

/// What OnToolHitTest fills in, with the text that it allocates.
struct ToolAnswer {
    ToolAnswer() { tool.cbSize = kToolSize; }
    ~ToolAnswer() {
        if (tool.lpszText != LPSTR_TEXTCALLBACK && !tool.hinst)
            std::free(tool.lpszText);
    }
    ToolAnswer(const ToolAnswer&) = delete;
    ToolAnswer& operator=(const ToolAnswer&) = delete;

    TOOLINFO tool{};
};

/// Does nothing for a tool of the size 0, which the control refuses.
void removeTool(TOOLINFO tool) {
    theTips().window.SendMessage(TTM_DELTOOL, 0, reinterpret_cast<LPARAM>(&tool));
}

void forgetTool() {
    Tips& tips = theTips();
    removeTool(tips.tool);
    tips.asked = nullptr;
    tips.tool = {};
}

/// The first window from this one upwards that has tips enabled.
const CWnd* withTips(HWND window) {
    for (; window; window = ::GetParent(window)) {
        const CWnd* const object = CWnd::FromHandlePermanent(window);
        if (object && (object->m_nFlags & WF_TOOLTIPS))
            return object;
    }
    return nullptr;
}

HWND withoutParent(HWND window) {
    while (::GetWindowLong(window, GWL_STYLE) & WS_CHILD)
        window = ::GetParent(window);
    return window;
}

/// Makes sure that there is a tip window, and that the top-level window that `window` is in owns it: with another owner
/// it would go behind that one, or be destroyed with it. False: it can't be made.
bool ensureTipWindow(HWND window) {
    Tips& tips = theTips();
    const HWND top = withoutParent(window);
    if (tips.window.m_hWnd && ::GetWindow(tips.window.m_hWnd, GW_OWNER) == top)
        return true;
    tips.window.DestroyWindow();
    forgetTool();
    try {
        if (!tips.window.Create(CWnd::FromHandle(top), TTS_ALWAYSTIP))
            return false;
    } catch (CMemoryException* exception) {
        // No reason to end the dialog, as an exception out of PreTranslateMessage would.
        exception->Delete();
        return false;
    }
    tips.window.Activate(FALSE);
    return true;
}

bool isTopParentActive(const CWnd& window) {
    return ::GetForegroundWindow() == ::GetLastActivePopup(window.GetTopLevelParent()->m_hWnd);
}

void addTool(const CWnd& window, TOOLINFO tool) {
    const bool alwaysTips = (tool.uFlags & TTF_ALWAYSTIP) != 0;
    tool.uFlags &= ~(TTF_NOTBUTTON | TTF_ALWAYSTIP);
    Tips& tips = theTips();
    tips.window.SendMessage(TTM_ADDTOOL, 0, reinterpret_cast<LPARAM>(&tool));
    tips.tool.cbSize = tool.cbSize;
    tips.tool.hwnd = tool.hwnd;
    tips.tool.uId = tool.uId;
    if (alwaysTips || isTopParentActive(window))
        tips.window.Activate(TRUE);
}

/// Tells the tip window of a message, for the window that the tip window finds under the pointer.
void relay(MSG message) {
    CToolTipCtrl& window = theTips().window;
    POINT point = message.pt;
    message.hwnd = reinterpret_cast<HWND>(window.SendMessage(TTM_WINDOWFROMPOINT, 0, reinterpret_cast<LPARAM>(&point)));
    if (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST)
        ::ScreenToClient(message.hwnd, &point);
    message.lParam = MAKELPARAM(point.x, point.y);
    window.RelayEvent(&message);
}

void followPointer(const CWnd& window, const MSG& message) {
    CPoint point(message.pt);
    window.ScreenToClient(&point);
    ToolAnswer answer;
    const INT_PTR hit = window.OnToolHitTest(point, &answer.tool);
    if (!ensureTipWindow(window.m_hWnd))
        return;
    Tips& tips = theTips();
    if (tips.asked == window.m_hWnd && tips.hit == hit) {
        if (hit != kNoTool)
            relay(message);
        return;
    }
    const TOOLINFO former = tips.tool;
    tips.asked = window.m_hWnd;
    tips.hit = hit;
    tips.tool = {};
    if (hit != kNoTool)
        addTool(window, answer.tool);
    // The former tool goes afterwards, so that the control sees the pointer change from one tool to the next, which it
    // answers with a shorter delay.
    relay(message);
    removeTool(former);
}

bool isMoveOrRelease(UINT message) {
    return message == WM_MOUSEMOVE || message == WM_NCMOUSEMOVE || message == WM_LBUTTONUP || message == WM_RBUTTONUP ||
           message == WM_MBUTTONUP || message == WM_NCLBUTTONUP || message == WM_NCRBUTTONUP ||
           message == WM_NCMBUTTONUP;
}

bool isPress(UINT message) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
    case WM_NCRBUTTONDOWN:
    case WM_NCRBUTTONDBLCLK:
    case WM_NCMBUTTONDOWN:
    case WM_NCMBUTTONDBLCLK:
        return true;
    default:
        return false;
    }
}

bool isKey(UINT message) {
    return message >= WM_KEYFIRST && message <= WM_KEYLAST;
}

bool isButtonHeld() {
    return ::GetKeyState(VK_LBUTTON) < 0 || ::GetKeyState(VK_RBUTTON) < 0 || ::GetKeyState(VK_MBUTTON) < 0;
}

} // namespace

namespace kelmfc {

void removeTipsOf(HWND window) {
    if (theTips().asked == window)
        forgetTool();
}

void hideTipsOver(HWND window) {
    const HWND asked = theTips().asked;
    if (asked && withoutParent(asked) == window)
        CWnd::CancelToolTips();
}

HWND childAt(HWND window, POINT point) {
    for (HWND child = ::GetTopWindow(window); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        CRect place;
        ::GetWindowRect(child, &place);
        const bool counts = LOWORD(::GetDlgCtrlID(child)) != 0xFFFF;
        if (counts && (::GetWindowLong(child, GWL_STYLE) & WS_VISIBLE) && place.PtInRect(point))
            return child;
    }
    return nullptr;
}

} // namespace kelmfc

BOOL CWnd::EnableToolTips(BOOL bEnable) {
    if (bEnable) {
        m_nFlags |= WF_TOOLTIPS;
    } else if (m_nFlags & WF_TOOLTIPS) {
        m_nFlags &= ~WF_TOOLTIPS;
        if (theTips().asked == m_hWnd)
            CancelToolTips();
    }
    return TRUE;
}

void CWnd::CancelToolTips(BOOL) {
    theTips().window.Activate(FALSE);
}

void CWnd::FilterToolTipMessage(MSG* pMsg) {
    const CWnd* const owner = withTips(pMsg->hwnd);
    const bool follows = isMoveOrRelease(pMsg->message) && !isButtonHeld();
    if (follows && !owner)
        forgetTool();
    else if (follows && owner == this)
        followPointer(*this, *pMsg);
    else if (owner == this && (isPress(pMsg->message) || isKey(pMsg->message)))
        CancelToolTips(isKey(pMsg->message));
}

INT_PTR CWnd::OnToolHitTest(CPoint point, TOOLINFO* pTI) const {
    ClientToScreen(&point);
    const HWND child = kelmfc::childAt(m_hWnd, point);
    if (!child)
        return kNoTool;
    if (pTI && pTI->cbSize >= kToolSize) {
        pTI->hwnd = m_hWnd;
        pTI->uId = reinterpret_cast<UINT_PTR>(child);
        pTI->uFlags |= TTF_IDISHWND;
        pTI->lpszText = LPSTR_TEXTCALLBACK;
        if (!(::SendMessage(child, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON))
            pTI->uFlags |= TTF_NOTBUTTON | TTF_CENTERTIP;
    }
    return LOWORD(::GetDlgCtrlID(child));
}

// CWnd: what spares its users a few lines of Win32 each.

#include "ThreadState.h"

#include <algorithm>
#include <utility>

void CWnd::GetWindowText(CString& rString) const {
    const int length = GetWindowTextLength();
    const int copied = GetWindowText(rString.GetBuffer(length), length + 1);
    rString.ReleaseBuffer(copied);
}

int CWnd::GetDlgItemText(int nID, CString& rString) const {
    rString.Empty();
    const HWND item = ::GetDlgItem(m_hWnd, nID);
    if (item)
        FromHandle(item)->GetWindowText(rString);
    return rString.GetLength();
}

BOOL CWnd::ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
    const auto before = static_cast<DWORD>(::GetWindowLongPtr(hWnd, GWL_STYLE));
    const DWORD after = (before & ~dwRemove) | dwAdd;
    if (before == after)
        return FALSE;
    ::SetWindowLongPtr(hWnd, GWL_STYLE, static_cast<LONG_PTR>(after));
    if (nFlags != 0)
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    return TRUE;
}

BOOL CWnd::ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
    const auto before = static_cast<DWORD>(::GetWindowLongPtr(hWnd, GWL_EXSTYLE));
    const DWORD after = (before & ~dwRemove) | dwAdd;
    if (before == after)
        return FALSE;
    ::SetWindowLongPtr(hWnd, GWL_EXSTYLE, static_cast<LONG_PTR>(after));
    if (nFlags != 0)
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    return TRUE;
}

CFont* CWnd::GetFont() const {
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw) {
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont ? pFont->m_hObject : nullptr), MAKELPARAM(bRedraw, 0));
}

HICON CWnd::SetIcon(HICON hIcon, BOOL bBigIcon) {
    return reinterpret_cast<HICON>(
        SendMessage(WM_SETICON, static_cast<WPARAM>(bBigIcon), reinterpret_cast<LPARAM>(hIcon)));
}

HICON CWnd::GetIcon(BOOL bBigIcon) const {
    return reinterpret_cast<HICON>(SendMessage(WM_GETICON, static_cast<WPARAM>(bBigIcon)));
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const {
    lpwndpl->length = sizeof(WINDOWPLACEMENT);
    return ::GetWindowPlacement(m_hWnd, lpwndpl);
}

void CWnd::ClientToScreen(LPRECT lpRect) const {
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(lpRect), 2);
}

void CWnd::ScreenToClient(LPRECT lpRect) const {
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(lpRect), 2);
}

void CWnd::MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const {
    MapWindowPoints(pwndTo, reinterpret_cast<POINT*>(lpRect), 2);
}

void CWnd::MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const {
    ::MapWindowPoints(m_hWnd, pwndTo ? pwndTo->m_hWnd : nullptr, lpPoint, nCount);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner) {
    HWND owner = pAlternateOwner ? pAlternateOwner->m_hWnd : nullptr;
    const bool isChild = (GetStyle() & WS_CHILD) != 0;
    if (!owner)
        owner = isChild ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    ::GetMonitorInfo(::MonitorFromWindow(owner ? owner : m_hWnd, MONITOR_DEFAULTTONEAREST), &monitor);
    CRect area = monitor.rcWork;
    CRect over = area;
    if (isChild && owner) {
        ::GetClientRect(owner, &area);
        over = area;
    } else if (owner && ::IsWindowVisible(owner) && !::IsIconic(owner)) {
        ::GetWindowRect(owner, &over);
    }
    CRect own;
    GetWindowRect(&own);
    const int x = std::clamp(over.left + (over.Width() - own.Width()) / 2, area.left,
                             std::max(area.left, area.right - own.Width()));
    const int y = std::clamp(over.top + (over.Height() - own.Height()) / 2, area.top,
                             std::max(area.top, area.bottom - own.Height()));
    SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, CRgn* prgnUpdate, UINT flags) {
    return ::RedrawWindow(m_hWnd, lpRectUpdate, prgnUpdate ? static_cast<HRGN>(*prgnUpdate) : nullptr, flags);
}

void CWnd::SendMessageToDescendants(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm) {
    for (HWND child = ::GetTopWindow(hWnd); child;) {
        const HWND next = ::GetWindow(child, GW_HWNDNEXT);
        if (!bOnlyPerm)
            ::SendMessage(child, message, wParam, lParam);
        else if (CWnd* const window = FromHandlePermanent(child))
            AfxCallWndProc(window, child, message, wParam, lParam);
        if (bDeep && ::GetTopWindow(child))
            SendMessageToDescendants(child, message, wParam, lParam, bDeep, bOnlyPerm);
        child = next;
    }
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType) {
    return ::MessageBox(m_hWnd, lpszText, lpszCaption ? lpszCaption : AfxGetAppName(), nType);
}

CWnd* CWnd::SetParent(CWnd* pWndNewParent) {
    return FromHandle(::SetParent(m_hWnd, pWndNewParent ? pWndNewParent->m_hWnd : nullptr));
}

CWnd* CWnd::GetTopLevelParent() const {
    HWND window = m_hWnd;
    while (const HWND parent = ::GetParent(window))
        window = parent;
    return FromHandle(window);
}

CWnd* CWnd::GetTopLevelOwner() const {
    HWND window = m_hWnd;
    while (const HWND parent = ::GetParent(window))
        window = parent;
    while (const HWND owner = ::GetWindow(window, GW_OWNER))
        window = owner;
    return FromHandle(window);
}

CWnd* CWnd::GetDescendantWindow(HWND hWnd, int nID, BOOL bOnlyPerm) {
    const HWND direct = ::GetDlgItem(hWnd, nID);
    if (direct) {
        if (CWnd* const window = FromHandlePermanent(direct))
            return window;
        if (!bOnlyPerm)
            return FromHandle(direct);
    }
    for (HWND child = ::GetTopWindow(hWnd); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (CWnd* const found = GetDescendantWindow(child, nID, bOnlyPerm))
            return found;
    }
    return nullptr;
}

int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const {
    for (int id = nIDFirstButton; id <= nIDLastButton; ++id) {
        if (IsDlgButtonChecked(id))
            return id;
    }
    return 0;
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious) const {
    return FromHandle(::GetNextDlgTabItem(m_hWnd, pWndCtl ? pWndCtl->m_hWnd : nullptr, bPrevious));
}

namespace {

/// While one lives, notifications of the window's controls are dropped.
class ExchangeScope {
  public:
    explicit ExchangeScope(HWND window) : m_outer(std::exchange(kelmfc::theState().exchanging, window)) {}
    ~ExchangeScope() { kelmfc::theState().exchanging = m_outer; }
    ExchangeScope(const ExchangeScope&) = delete;
    ExchangeScope& operator=(const ExchangeScope&) = delete;

  private:
    HWND m_outer;
};

} // namespace

BOOL CWnd::UpdateData(BOOL bSaveAndValidate) {
    const ExchangeScope scope(m_hWnd);
    CDataExchange exchange(this, bSaveAndValidate);
    try {
        DoDataExchange(&exchange);
    } catch (CUserException* exception) {
        // Whoever refused the data has told the user.
        exception->Delete();
        return FALSE;
    } catch (CException* exception) {
        exception->ReportError(MB_ICONEXCLAMATION, AFX_IDP_INTERNAL_FAILURE);
        exception->Delete();
        return FALSE;
    }
    return TRUE;
}

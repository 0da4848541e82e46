// CWnd: handles and their objects, the window procedure, creation, subclassing and the end of a window.

#include "HandleMap.h"
#include "ToolTips.h"

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

namespace {

using WindowMap = kelmfc::HandleMap<CWnd, HWND, &CWnd::m_hWnd>;

WindowMap& theMap() {
    static WindowMap& map = *new WindowMap;
    return map;
}

/// Notes the message being handled, and puts the outer one back at its end, also when a handler throws.
class MessageScope {
  public:
    MessageScope(HWND window, UINT message, WPARAM wParam, LPARAM lParam) : m_outer(kelmfc::theState().lastSent) {
        MSG& last = kelmfc::theState().lastSent;
        last.hwnd = window;
        last.message = message;
        last.wParam = wParam;
        last.lParam = lParam;
    }
    ~MessageScope() { kelmfc::theState().lastSent = m_outer; }
    MessageScope(const MessageScope&) = delete;
    MessageScope& operator=(const MessageScope&) = delete;

  private:
    MSG m_outer;
};

} // namespace

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

CWnd::CWnd() = default;

CWnd::~CWnd() {
    // The map takes the handle from a temporary object before it deletes it.
    if (m_hWnd && FromHandlePermanent(m_hWnd) == this)
        DestroyWindow();
}

CWnd* CWnd::FromHandle(HWND hWnd) {
    if (!hWnd)
        return nullptr;
    if (CWnd* const permanent = FromHandlePermanent(hWnd))
        return permanent;
    if (CWnd* const temporary = theMap().temporary(hWnd))
        return temporary;
    return theMap().addTemporary(hWnd, new CWnd);
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd) {
    return theMap().permanent(hWnd);
}

void CWnd::DeleteTempMap() {
    theMap().deleteTemporary();
}

BOOL CWnd::Attach(HWND hWndNew) {
    if (!hWndNew || m_hWnd || FromHandlePermanent(hWndNew))
        return FALSE;
    theMap().attach(hWndNew, this);
    return TRUE;
}

HWND CWnd::Detach() {
    return m_hWnd ? theMap().detach(this) : nullptr;
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
    if (!Attach(hWnd))
        return FALSE;
    PreSubclassWindow();
    const auto before =
        reinterpret_cast<WNDPROC>(::SetWindowLongPtr(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    if (before != &AfxWndProc && !*GetSuperWndProcAddr())
        *GetSuperWndProcAddr() = before;
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent) {
    const HWND control = ::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID));
    return control && SubclassWindow(control);
}

HWND CWnd::UnsubclassWindow() {
    WNDPROC& super = *GetSuperWndProcAddr();
    if (super) {
        ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(super));
        super = nullptr;
    }
    return Detach();
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs) {
    if (!cs.lpszClass)
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW),
                                           reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1), nullptr);
    return TRUE;
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                  UINT nID, void* pContext) {
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, pContext);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, LPVOID lpParam) {
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, pParentWnd ? pParentWnd->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                    int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam) {
    CREATESTRUCT cs{};
    cs.dwExStyle = dwExStyle;
    cs.lpszClass = lpszClassName;
    cs.lpszName = lpszWindowName;
    cs.style = static_cast<LONG>(dwStyle);
    cs.x = x;
    cs.y = y;
    cs.cx = nWidth;
    cs.cy = nHeight;
    cs.hwndParent = hWndParent;
    cs.hMenu = nIDorHMenu;
    cs.hInstance = AfxGetInstanceHandle();
    cs.lpCreateParams = lpParam;
    if (!PreCreateWindow(cs)) {
        PostNcDestroy();
        return FALSE;
    }
    kelmfc::hookWindowCreation(this);
    const HWND created = ::CreateWindowEx(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x,
                                          cs.y, cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
    // If the window was created and is gone again, PostNcDestroy has been called already.
    if (!kelmfc::unhookWindowCreation())
        PostNcDestroy();
    return created != nullptr;
}

BOOL CWnd::DestroyWindow() {
    if (!m_hWnd)
        return FALSE;
    const HWND handle = m_hWnd;
    const bool wasPermanent = FromHandlePermanent(handle) == this;
    const BOOL destroyed = ::DestroyWindow(handle);
    // A window that was only attached hasn't our procedure, so its object isn't told of its end. Otherwise
    // PostNcDestroy may have deleted this object; so look into the map before touching a member.
    if (destroyed && wasPermanent && FromHandlePermanent(handle) == this)
        Detach();
    return destroyed;
}

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam) {
    CWnd* const window = CWnd::FromHandlePermanent(hWnd);
    if (!window || window->m_hWnd != hWnd)
        return ::DefWindowProc(hWnd, nMsg, wParam, lParam);
    return AfxCallWndProc(window, hWnd, nMsg, wParam, lParam);
}

void CWndInternals::adopt(CWnd* window, HWND handle) {
    window->Attach(handle);
    window->PreSubclassWindow();
    const auto before =
        reinterpret_cast<WNDPROC>(::SetWindowLongPtr(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    if (before != &AfxWndProc)
        *window->GetSuperWndProcAddr() = before;
}

LRESULT CWndInternals::call(CWnd* window, UINT message, WPARAM wParam, LPARAM lParam) {
    return window->WindowProc(message, wParam, lParam);
}

LRESULT AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam) {
    const MessageScope scope(hWnd, nMsg, wParam, lParam);
    return kelmfc::stopExceptions([&] { return CWndInternals::call(pWnd, nMsg, wParam, lParam); });
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (!OnWndMsg(message, wParam, lParam, &result))
        result = DefWindowProc(message, wParam, lParam);
    return result;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const WNDPROC super = *GetSuperWndProcAddr();
    return super ? ::CallWindowProc(super, m_hWnd, message, wParam, lParam)
                 : ::DefWindowProc(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
    const MSG& last = kelmfc::theState().lastSent;
    return DefWindowProc(last.message, last.wParam, last.lParam);
}

const MSG* CWnd::GetCurrentMessage() {
    return &kelmfc::theState().lastSent;
}

void CWnd::OnNcDestroy() {
    if (CWinThread* const thread = AfxGetThread()) {
        if (thread->m_pMainWnd == this) {
            thread->m_pMainWnd = nullptr;
            AfxPostQuitMessage(0);
        }
        if (thread->m_pActiveWnd == this)
            thread->m_pActiveWnd = nullptr;
    }
    kelmfc::removeTipsOf(m_hWnd);
    Default();
    WNDPROC& super = *GetSuperWndProcAddr();
    const auto current = reinterpret_cast<WNDPROC>(::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC));
    if (current == &AfxWndProc && super)
        ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(super));
    super = nullptr;
    Detach();
    PostNcDestroy();
}

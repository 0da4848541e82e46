// CWnd: a message from the window procedure through the message map to its handler, and reflection of what controls
// send.

#include "ThreadState.h"
#include "ToolTips.h"

#include <bit>

namespace {

/// What a WM_CTLCOLOR entry gets in lParam, since Windows has one message for each kind of control.
struct ControlColor {
    HDC dc;
    HWND control;
    UINT kind; ///< CTLCOLOR_
};

template <class Handler> Handler handlerOf(const AFX_MSGMAP_ENTRY& entry) {
    return std::bit_cast<Handler>(entry.pfn);
}

template <class T> T* pointer(LPARAM lParam) {
    return reinterpret_cast<T*>(lParam);
}

CWnd* windowOf(WPARAM wParam) {
    return CWnd::FromHandle(reinterpret_cast<HWND>(wParam));
}

CPoint pointOf(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

// What ON_REGISTERED_MESSAGE writes for a message whose number is only known to the running system.
constexpr UINT kRegistered = 0xC000;

const AFX_MSGMAP_ENTRY* findEntry(const AFX_MSGMAP* map, UINT message) {
    for (; map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nSig != AfxSig_end; ++entry) {
            const bool found = entry->nMessage == kRegistered ? *reinterpret_cast<const UINT*>(entry->nSig) == message
                                                              : entry->nMessage == message;
            if (found && entry->nCode == 0 && entry->nID == 0)
                return entry;
        }
    }
    return nullptr;
}

// A flat table of forms: how wParam and lParam become a handler's arguments.
LRESULT callWindowHandler(CWnd* window, const AFX_MSGMAP_ENTRY& entry, WPARAM wParam, LPARAM lParam) {
    const UINT low = LOWORD(wParam);
    const UINT high = HIWORD(wParam);
    const UINT sig = entry.nMessage == kRegistered ? static_cast<UINT>(AfxSig_Message) : static_cast<UINT>(entry.nSig);
    switch (sig) {
    case AfxSig_Void:
        (window->*handlerOf<void (CWnd::*)()>(entry))();
        return 0;
    case AfxSig_Message:
        return (window->*handlerOf<LRESULT (CWnd::*)(WPARAM, LPARAM)>(entry))(wParam, lParam);
    case AfxSig_Create:
        return (window->*handlerOf<int (CWnd::*)(LPCREATESTRUCT)>(entry))(pointer<CREATESTRUCT>(lParam));
    case AfxSig_Size:
        (window->*handlerOf<void (CWnd::*)(UINT, int, int)>(entry))(static_cast<UINT>(wParam), LOWORD(lParam),
                                                                    HIWORD(lParam));
        return 0;
    case AfxSig_Move: {
        const CPoint point = pointOf(lParam);
        (window->*handlerOf<void (CWnd::*)(int, int)>(entry))(point.x, point.y);
        return 0;
    }
    case AfxSig_Rect:
        (window->*handlerOf<void (CWnd::*)(UINT, LPRECT)>(entry))(static_cast<UINT>(wParam), pointer<RECT>(lParam));
        return TRUE;
    case AfxSig_MinMax:
        (window->*handlerOf<void (CWnd::*)(MINMAXINFO*)>(entry))(pointer<MINMAXINFO>(lParam));
        return 0;
    case AfxSig_EraseBkgnd:
        return (window->*handlerOf<BOOL (CWnd::*)(CDC*)>(entry))(CDC::FromHandle(reinterpret_cast<HDC>(wParam)));
    case AfxSig_CtlColor: {
        const auto& color = *pointer<ControlColor>(lParam);
        return reinterpret_cast<LRESULT>((window->*handlerOf<HBRUSH (CWnd::*)(CDC*, CWnd*, UINT)>(entry))(
            CDC::FromHandle(color.dc), CWnd::FromHandle(color.control), color.kind));
    }
    case AfxSig_CtlColorReflect: {
        const auto& color = *pointer<ControlColor>(lParam);
        return reinterpret_cast<LRESULT>(
            (window->*handlerOf<HBRUSH (CWnd::*)(CDC*, UINT)>(entry))(CDC::FromHandle(color.dc), color.kind));
    }
    case AfxSig_DrawItem:
        (window->*handlerOf<void (CWnd::*)(int, LPDRAWITEMSTRUCT)>(entry))(static_cast<int>(wParam),
                                                                           pointer<DRAWITEMSTRUCT>(lParam));
        return TRUE;
    case AfxSig_MeasureItem:
        (window->*handlerOf<void (CWnd::*)(int, LPMEASUREITEMSTRUCT)>(entry))(static_cast<int>(wParam),
                                                                              pointer<MEASUREITEMSTRUCT>(lParam));
        return TRUE;
    case AfxSig_CompareItem:
        return (window->*handlerOf<int (CWnd::*)(int, LPCOMPAREITEMSTRUCT)>(entry))(static_cast<int>(wParam),
                                                                                    pointer<COMPAREITEMSTRUCT>(lParam));
    case AfxSig_DeleteItem:
        (window->*handlerOf<void (CWnd::*)(int, LPDELETEITEMSTRUCT)>(entry))(static_cast<int>(wParam),
                                                                             pointer<DELETEITEMSTRUCT>(lParam));
        return TRUE;
    case AfxSig_DrawItemReflect:
        (window->*handlerOf<void (CWnd::*)(LPDRAWITEMSTRUCT)>(entry))(pointer<DRAWITEMSTRUCT>(lParam));
        return TRUE;
    case AfxSig_MeasureItemReflect:
        (window->*handlerOf<void (CWnd::*)(LPMEASUREITEMSTRUCT)>(entry))(pointer<MEASUREITEMSTRUCT>(lParam));
        return TRUE;
    case AfxSig_Timer:
        (window->*handlerOf<void (CWnd::*)(UINT_PTR)>(entry))(wParam);
        return 0;
    case AfxSig_Mouse:
        (window->*handlerOf<void (CWnd::*)(UINT, CPoint)>(entry))(static_cast<UINT>(wParam), pointOf(lParam));
        return 0;
    case AfxSig_Wheel:
        return (window->*handlerOf<BOOL (CWnd::*)(UINT, short, CPoint)>(entry))(low, static_cast<short>(high),
                                                                                pointOf(lParam));
    case AfxSig_Key:
        (window->*handlerOf<void (CWnd::*)(UINT, UINT, UINT)>(entry))(static_cast<UINT>(wParam), LOWORD(lParam),
                                                                      HIWORD(lParam));
        return 0;
    case AfxSig_SysCommand:
        (window->*handlerOf<void (CWnd::*)(UINT, LPARAM)>(entry))(static_cast<UINT>(wParam), lParam);
        return 0;
    case AfxSig_FocusWnd:
        (window->*handlerOf<void (CWnd::*)(CWnd*)>(entry))(windowOf(wParam));
        return 0;
    case AfxSig_LParamWnd:
        (window->*handlerOf<void (CWnd::*)(CWnd*)>(entry))(windowOf(static_cast<WPARAM>(lParam)));
        return 0;
    case AfxSig_Bool:
        (window->*handlerOf<void (CWnd::*)(BOOL)>(entry))(wParam != 0);
        return 0;
    case AfxSig_ShowWindow:
        (window->*handlerOf<void (CWnd::*)(BOOL, UINT)>(entry))(wParam != 0, static_cast<UINT>(lParam));
        return 0;
    case AfxSig_Scroll:
        (window->*handlerOf<void (CWnd::*)(UINT, UINT, CScrollBar*)>(entry))(
            low, high, static_cast<CScrollBar*>(windowOf(static_cast<WPARAM>(lParam))));
        return 0;
    case AfxSig_ScrollReflect:
        (window->*handlerOf<void (CWnd::*)(UINT, UINT)>(entry))(low, high);
        return 0;
    case AfxSig_Activate:
        (window->*handlerOf<void (CWnd::*)(UINT, CWnd*, BOOL)>(entry))(low, windowOf(static_cast<WPARAM>(lParam)),
                                                                       high != 0);
        return 0;
    case AfxSig_ActivateApp:
        (window->*handlerOf<void (CWnd::*)(BOOL, DWORD)>(entry))(wParam != 0, static_cast<DWORD>(lParam));
        return 0;
    case AfxSig_InitMenuPopup:
        (window->*handlerOf<void (CWnd::*)(CMenu*, UINT, BOOL)>(entry))(
            CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)), LOWORD(lParam), HIWORD(lParam) != 0);
        return 0;
    case AfxSig_MenuSelect:
        (window->*handlerOf<void (CWnd::*)(UINT, UINT, HMENU)>(entry))(low, high, pointer<HMENU__>(lParam));
        return 0;
    case AfxSig_ContextMenu:
        (window->*handlerOf<void (CWnd::*)(CWnd*, CPoint)>(entry))(windowOf(wParam), pointOf(lParam));
        return 0;
    case AfxSig_SetCursor:
        return (window->*handlerOf<BOOL (CWnd::*)(CWnd*, UINT, UINT)>(entry))(windowOf(wParam), LOWORD(lParam),
                                                                              HIWORD(lParam));
    case AfxSig_MouseActivate:
        return (window->*handlerOf<int (CWnd::*)(CWnd*, UINT, UINT)>(entry))(windowOf(wParam), LOWORD(lParam),
                                                                             HIWORD(lParam));
    case AfxSig_UintResult:
        return (window->*handlerOf<UINT (CWnd::*)()>(entry))();
    case AfxSig_BoolResult:
        return (window->*handlerOf<BOOL (CWnd::*)()>(entry))();
    case AfxSig_NcActivate:
        return (window->*handlerOf<BOOL (CWnd::*)(BOOL)>(entry))(wParam != 0);
    case AfxSig_NcHitTest:
        return (window->*handlerOf<LRESULT (CWnd::*)(CPoint)>(entry))(pointOf(lParam));
    case AfxSig_WindowPos:
        (window->*handlerOf<void (CWnd::*)(WINDOWPOS*)>(entry))(pointer<WINDOWPOS>(lParam));
        return 0;
    case AfxSig_HelpInfo:
        return (window->*handlerOf<BOOL (CWnd::*)(HELPINFO*)>(entry))(pointer<HELPINFO>(lParam));
    case AfxSig_SettingChange:
        (window->*handlerOf<void (CWnd::*)(UINT, LPCTSTR)>(entry))(static_cast<UINT>(wParam),
                                                                   pointer<const TCHAR>(lParam));
        return 0;
    case AfxSig_StyleChange:
        (window->*handlerOf<void (CWnd::*)(int, LPSTYLESTRUCT)>(entry))(static_cast<int>(wParam),
                                                                        pointer<STYLESTRUCT>(lParam));
        return 0;
    case AfxSig_LResult:
        return (window->*handlerOf<LRESULT (CWnd::*)()>(entry))();
    case AfxSig_ParentNotify:
        (window->*handlerOf<void (CWnd::*)(UINT, LPARAM)>(entry))(static_cast<UINT>(wParam), lParam);
        return 0;
    case AfxSig_EnterIdle:
        (window->*handlerOf<void (CWnd::*)(UINT, CWnd*)>(entry))(static_cast<UINT>(wParam),
                                                                 windowOf(static_cast<WPARAM>(lParam)));
        return 0;
    case AfxSig_DropFiles:
        (window->*handlerOf<void (CWnd::*)(HDROP)>(entry))(reinterpret_cast<HDROP>(wParam));
        return 0;
    default:
        return 0;
    }
}

bool isControlColor(UINT message) {
    return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
}

/// Asks an update handler whether a command that is about to be routed is enabled.
class CommandTest : public CCmdUI {
  public:
    void Enable(BOOL bOn) override {
        m_bEnableChanged = TRUE;
        isEnabled = bOn != FALSE;
    }
    bool isEnabled = true;
};

} // namespace

// clang-format off
BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
    ON_WM_NCDESTROY()
    ON_WM_CTLCOLOR()
    ON_WM_DRAWITEM()
    ON_WM_MEASUREITEM()
    ON_WM_COMPAREITEM()
    ON_WM_DELETEITEM()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_PARENTNOTIFY()
END_MESSAGE_MAP()
// clang-format on

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    LRESULT result = 0;
    BOOL handled = TRUE;
    ControlColor color{};
    // Here, because a handler of WM_ACTIVATE need not call the base.
    if (message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE)
        kelmfc::hideTipsOver(m_hWnd);
    if (message == WM_COMMAND) {
        handled = OnCommand(wParam, lParam);
        result = 1;
    } else if (message == WM_NOTIFY) {
        handled = reinterpret_cast<NMHDR*>(lParam)->hwndFrom && OnNotify(wParam, lParam, &result);
    } else {
        if (isControlColor(message)) {
            color = {reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam), message - WM_CTLCOLORMSGBOX};
            message = WM_CTLCOLOR;
            lParam = reinterpret_cast<LPARAM>(&color);
        }
        const AFX_MSGMAP_ENTRY* const entry = findEntry(GetMessageMap(), message);
        handled = entry != nullptr;
        if (entry)
            result = callWindowHandler(this, *entry, wParam, lParam);
    }
    if (handled && pResult)
        *pResult = result;
    return handled;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const UINT id = LOWORD(wParam);
    const auto control = reinterpret_cast<HWND>(lParam);
    int code = HIWORD(wParam);
    if (control) {
        if (kelmfc::theState().exchanging == m_hWnd || ReflectLastMsg(control))
            return TRUE;
    } else if (id != 0) {
        // From a menu or an accelerator: the command may have been disabled since the menu was shown.
        CommandTest test;
        test.m_nID = id;
        OnCmdMsg(id, CN_UPDATE_COMMAND_UI, &test, nullptr);
        if (!test.isEnabled)
            return TRUE;
        code = CN_COMMAND;
    }
    return id != 0 && OnCmdMsg(id, code, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) {
    auto* const header = reinterpret_cast<NMHDR*>(lParam);
    if (kelmfc::theState().exchanging == m_hWnd || ReflectLastMsg(header->hwndFrom, pResult))
        return TRUE;
    const auto id = static_cast<UINT>(::GetDlgCtrlID(header->hwndFrom));
    AFX_NOTIFY notify = {pResult, header};
    return OnCmdMsg(id, static_cast<int>(MAKELONG(header->code, WM_NOTIFY)), &notify, nullptr);
}

BOOL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult) {
    CWnd* const child = FromHandlePermanent(hWndChild);
    return child && child->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult) {
    // A copy, because others may be handled while the reflected message is.
    const MSG last = kelmfc::theState().lastSent;
    return OnChildNotify(last.message, last.wParam, last.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    switch (message) {
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_PARENTNOTIFY:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_DELETEITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_COMPAREITEM:
        return CWnd::OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, pResult);
    case WM_COMMAND:
        if (!CCmdTarget::OnCmdMsg(0, static_cast<int>(MAKELONG(HIWORD(wParam), WM_REFLECT_BASE + WM_COMMAND)), nullptr,
                                  nullptr))
            return FALSE;
        if (pResult)
            *pResult = 1;
        return TRUE;
    case WM_NOTIFY: {
        auto* const header = reinterpret_cast<NMHDR*>(lParam);
        AFX_NOTIFY notify = {pResult, header};
        return CCmdTarget::OnCmdMsg(0, static_cast<int>(MAKELONG(header->code, WM_REFLECT_BASE + WM_NOTIFY)), &notify,
                                    nullptr);
    }
    default:
        break;
    }
    if (!isControlColor(message))
        return FALSE;
    ControlColor color = {reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam), message - WM_CTLCOLORMSGBOX};
    LRESULT brush = 0;
    const BOOL handled = CWnd::OnWndMsg(WM_REFLECT_BASE + WM_CTLCOLOR, 0, reinterpret_cast<LPARAM>(&color), &brush);
    if (!handled || brush == 0)
        return FALSE;
    if (pResult)
        *pResult = brush;
    return TRUE;
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT) {
    LRESULT brush = 0;
    if (pWnd && FromHandlePermanent(pWnd->m_hWnd) && pWnd->SendChildNotifyLastMsg(&brush))
        return reinterpret_cast<HBRUSH>(brush);
    return reinterpret_cast<HBRUSH>(Default());
}

void CWnd::OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct) {
    if (nIDCtl == 0 || !ReflectLastMsg(lpDrawItemStruct->hwndItem))
        Default();
}

void CWnd::OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct) {
    CWnd* const child =
        nIDCtl ? GetDescendantWindow(m_hWnd, static_cast<int>(lpMeasureItemStruct->CtlID), TRUE) : nullptr;
    if (!child || !child->SendChildNotifyLastMsg())
        Default();
}

int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT lpCompareItemStruct) {
    LRESULT result = 0;
    if (ReflectLastMsg(lpCompareItemStruct->hwndItem, &result))
        return static_cast<int>(result);
    return static_cast<int>(Default());
}

void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT lpDeleteItemStruct) {
    if (!ReflectLastMsg(lpDeleteItemStruct->hwndItem))
        Default();
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar* pScrollBar) {
    if (!pScrollBar || !ReflectLastMsg(pScrollBar->m_hWnd))
        Default();
}

void CWnd::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) {
    CWnd::OnHScroll(nSBCode, nPos, pScrollBar);
}

void CWnd::OnParentNotify(UINT message, LPARAM lParam) {
    const bool aboutChild = LOWORD(message) == WM_CREATE || LOWORD(message) == WM_DESTROY;
    if (!aboutChild || !ReflectLastMsg(reinterpret_cast<HWND>(lParam)))
        Default();
}

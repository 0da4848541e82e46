// Message maps: the tables that connect messages, commands and notifications with member functions, and the macros that
// write them. A handler's signature is checked by static_cast, so a wrong one doesn't compile.
// Narrower than MFC: the ON_WM_ macros below, no ON_THREAD_MESSAGE, no message map in a class template.
#pragma once

#include "kelmfc/CObject.h"

#include <bit>

class CCmdTarget;
class CCmdUI;
class CDC;
class CMenu;
class CPoint;
class CScrollBar;
class CWnd;

using AFX_PMSG = void (CCmdTarget::*)();

// How the dispatcher reads wParam and lParam for a handler, and which handler type it calls.
enum AfxSig : UINT_PTR {
    AfxSig_end,
    AfxSig_Void,
    AfxSig_Message,
    AfxSig_Create,
    AfxSig_Size,
    AfxSig_Move,
    AfxSig_Rect,
    AfxSig_MinMax,
    AfxSig_EraseBkgnd,
    AfxSig_CtlColor,
    AfxSig_CtlColorReflect,
    AfxSig_DrawItem,
    AfxSig_MeasureItem,
    AfxSig_CompareItem,
    AfxSig_DeleteItem,
    AfxSig_DrawItemReflect,
    AfxSig_MeasureItemReflect,
    AfxSig_Timer,
    AfxSig_Mouse,
    AfxSig_Wheel,
    AfxSig_Key,
    AfxSig_SysCommand,
    AfxSig_FocusWnd,
    AfxSig_LParamWnd,
    AfxSig_Bool,
    AfxSig_ShowWindow,
    AfxSig_Scroll,
    AfxSig_ScrollReflect,
    AfxSig_Activate,
    AfxSig_ActivateApp,
    AfxSig_InitMenuPopup,
    AfxSig_MenuSelect,
    AfxSig_ContextMenu,
    AfxSig_SetCursor,
    AfxSig_MouseActivate,
    AfxSig_UintResult,
    AfxSig_BoolResult,
    AfxSig_NcActivate,
    AfxSig_NcHitTest,
    AfxSig_WindowPos,
    AfxSig_HelpInfo,
    AfxSig_SettingChange,
    AfxSig_StyleChange,
    AfxSig_LResult,
    AfxSig_ParentNotify,
    AfxSig_EnterIdle,
    AfxSig_DropFiles,
    AfxSigCmd_Void,
    AfxSigCmd_Range,
    AfxSigCmd_Ex,
    AfxSigCmd_ReflectEx,
    AfxSigCmd_UpdateUI,
    AfxSigNotify_Void,
    AfxSigNotify_Range,
    AfxSigNotify_Ex,
    AfxSigNotify_ReflectEx,
};

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;
    UINT nID;
    UINT nLastID;
    UINT_PTR nSig; // an AfxSig, or the address of a registered message's number where nMessage is 0xC000
    AFX_PMSG pfn;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

/// What a notification's handler gets, as it travels through OnCmdMsg.
struct AFX_NOTIFY {
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

/// Receives the handler that was found, where OnCmdMsg is asked to find it without calling it.
struct AFX_CMDHANDLERINFO {
    CCmdTarget* pTarget;
    AFX_PMSG pmf;
};

/// The number that message maps use for all WM_CTLCOLOR... messages.
#ifndef WM_CTLCOLOR
#define WM_CTLCOLOR 0x0019
#endif

constexpr UINT CN_COMMAND = 0;
constexpr int CN_UPDATE_COMMAND_UI = -1;
/// Added to a message that a parent hands back to the control that sent it.
constexpr UINT WM_REFLECT_BASE = 0xBC00;

/// Turns a handler into the one type that tables keep; the dispatcher turns it back, as the entry's AfxSig says.
template <class Handler> AFX_PMSG AfxHandler(Handler handler) {
    static_assert(sizeof(Handler) == sizeof(AFX_PMSG));
    return std::bit_cast<AFX_PMSG>(handler);
}

#define DECLARE_MESSAGE_MAP()                                                                                          \
  protected:                                                                                                           \
    static const AFX_MSGMAP* GetThisMessageMap();                                                                      \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                                         \
    const AFX_MSGMAP* theClass::GetMessageMap() const {                                                                \
        return GetThisMessageMap();                                                                                    \
    }                                                                                                                  \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                                                  \
        using ThisClass [[maybe_unused]] = theClass;                                                                   \
        using TheBaseClass = baseClass;                                                                                \
        static const AFX_MSGMAP_ENTRY _messageEntries[] = {

#define END_MESSAGE_MAP()                                                                                              \
    { 0, 0, 0, 0, AfxSig_end, nullptr }                                                                                \
    }                                                                                                                  \
    ;                                                                                                                  \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, &_messageEntries[0]};                      \
    return &messageMap;                                                                                                \
    }

#define AFX_MAP_ENTRY(message, code, firstId, lastId, sig, type, handler)                                              \
    {(message), static_cast<WORD>(static_cast<int>(code)), static_cast<WORD>(firstId), static_cast<WORD>(lastId),      \
     sig,       AfxHandler(static_cast<type>(handler))},
#define AFX_WM_ENTRY(message, sig, type, handler) AFX_MAP_ENTRY(message, 0, 0, 0, sig, type, &ThisClass::handler)

// --- commands and control notifications ---
#define ON_COMMAND(id, memberFxn)                                                                                      \
    AFX_MAP_ENTRY(WM_COMMAND, CN_COMMAND, id, id, AfxSigCmd_Void, void (CCmdTarget::*)(), memberFxn)
#define ON_COMMAND_RANGE(id, idLast, memberFxn)                                                                        \
    AFX_MAP_ENTRY(WM_COMMAND, CN_COMMAND, id, idLast, AfxSigCmd_Range, void (CCmdTarget::*)(UINT), memberFxn)
#define ON_COMMAND_EX(id, memberFxn)                                                                                   \
    AFX_MAP_ENTRY(WM_COMMAND, CN_COMMAND, id, id, AfxSigCmd_Ex, BOOL (CCmdTarget::*)(UINT), memberFxn)
#define ON_UPDATE_COMMAND_UI(id, memberFxn) ON_UPDATE_COMMAND_UI_RANGE(id, id, memberFxn)
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn)                                                              \
    {WM_COMMAND,                                                                                                       \
     static_cast<UINT>(CN_UPDATE_COMMAND_UI),                                                                          \
     static_cast<WORD>(id),                                                                                            \
     static_cast<WORD>(idLast),                                                                                        \
     AfxSigCmd_UpdateUI,                                                                                               \
     AfxHandler(static_cast<void (CCmdTarget::*)(CCmdUI*)>(memberFxn))},
#define ON_CONTROL(wNotifyCode, id, memberFxn)                                                                         \
    AFX_MAP_ENTRY(WM_COMMAND, wNotifyCode, id, id, AfxSigCmd_Void, void (CCmdTarget::*)(), memberFxn)
#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn)                                                           \
    AFX_MAP_ENTRY(WM_COMMAND, wNotifyCode, id, idLast, AfxSigCmd_Range, void (CCmdTarget::*)(UINT), memberFxn)
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn)                                                                     \
    AFX_MAP_ENTRY(WM_COMMAND + WM_REFLECT_BASE, wNotifyCode, 0, 0, AfxSigCmd_Void, void(CCmdTarget::*)(), memberFxn)
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn)                                                                  \
    AFX_MAP_ENTRY(WM_COMMAND + WM_REFLECT_BASE, wNotifyCode, 0, 0, AfxSigCmd_ReflectEx, BOOL(CCmdTarget::*)(),         \
                  memberFxn)

#define ON_NOTIFY(wNotifyCode, id, memberFxn)                                                                          \
    AFX_MAP_ENTRY(WM_NOTIFY, wNotifyCode, id, id, AfxSigNotify_Void, void (CCmdTarget::*)(NMHDR*, LRESULT*), memberFxn)
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn)                                                            \
    AFX_MAP_ENTRY(WM_NOTIFY, wNotifyCode, id, idLast, AfxSigNotify_Range,                                              \
                  void (CCmdTarget::*)(UINT, NMHDR*, LRESULT*), memberFxn)
#define ON_NOTIFY_EX(wNotifyCode, id, memberFxn) ON_NOTIFY_EX_RANGE(wNotifyCode, id, id, memberFxn)
#define ON_NOTIFY_EX_RANGE(wNotifyCode, id, idLast, memberFxn)                                                         \
    AFX_MAP_ENTRY(WM_NOTIFY, wNotifyCode, id, idLast, AfxSigNotify_Ex, BOOL (CCmdTarget::*)(UINT, NMHDR*, LRESULT*),   \
                  memberFxn)
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn)                                                                      \
    AFX_MAP_ENTRY(WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0, AfxSigNotify_Void,                                   \
                  void(CCmdTarget::*)(NMHDR*, LRESULT*), memberFxn)
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn)                                                                   \
    AFX_MAP_ENTRY(WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0, AfxSigNotify_ReflectEx,                              \
                  BOOL(CCmdTarget::*)(NMHDR*, LRESULT*), memberFxn)

#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)
#define ON_STN_CLICKED(id, memberFxn) ON_CONTROL(STN_CLICKED, id, memberFxn)
#define ON_STN_DBLCLK(id, memberFxn) ON_CONTROL(STN_DBLCLK, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)

// --- messages by number ---
#define ON_MESSAGE(message, memberFxn)                                                                                 \
    AFX_MAP_ENTRY(message, 0, 0, 0, AfxSig_Message, LRESULT (CWnd::*)(WPARAM, LPARAM), memberFxn)
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn)                                                             \
    {0xC000,                                                                                                           \
     0,                                                                                                                \
     0,                                                                                                                \
     0,                                                                                                                \
     reinterpret_cast<UINT_PTR>(static_cast<const UINT*>(&nMessageVariable)),                                          \
     AfxHandler(static_cast<LRESULT (CWnd::*)(WPARAM, LPARAM)>(memberFxn))},

// --- messages of Windows ---
#define AFX_WM_VOID(message, handler) AFX_WM_ENTRY(message, AfxSig_Void, void (CWnd::*)(), handler)
#define AFX_WM_MOUSE(message, handler) AFX_WM_ENTRY(message, AfxSig_Mouse, void (CWnd::*)(UINT, CPoint), handler)
#define AFX_WM_KEY(message, handler) AFX_WM_ENTRY(message, AfxSig_Key, void (CWnd::*)(UINT, UINT, UINT), handler)

#define ON_WM_CREATE() AFX_WM_ENTRY(WM_CREATE, AfxSig_Create, int (CWnd::*)(LPCREATESTRUCT), OnCreate)
#define ON_WM_DESTROY() AFX_WM_VOID(WM_DESTROY, OnDestroy)
#define ON_WM_NCDESTROY() AFX_WM_VOID(WM_NCDESTROY, OnNcDestroy)
#define ON_WM_CLOSE() AFX_WM_VOID(WM_CLOSE, OnClose)
#define ON_WM_PAINT() AFX_WM_VOID(WM_PAINT, OnPaint)
#define ON_WM_NCPAINT() AFX_WM_VOID(WM_NCPAINT, OnNcPaint)
#define ON_WM_CANCELMODE() AFX_WM_VOID(WM_CANCELMODE, OnCancelMode)
#define ON_WM_SYSCOLORCHANGE() AFX_WM_VOID(WM_SYSCOLORCHANGE, OnSysColorChange)
#define ON_WM_MOUSELEAVE() AFX_WM_VOID(WM_MOUSELEAVE, OnMouseLeave)
#define ON_WM_SIZE() AFX_WM_ENTRY(WM_SIZE, AfxSig_Size, void (CWnd::*)(UINT, int, int), OnSize)
#define ON_WM_SIZING() AFX_WM_ENTRY(WM_SIZING, AfxSig_Rect, void (CWnd::*)(UINT, LPRECT), OnSizing)
#define ON_WM_MOVING() AFX_WM_ENTRY(WM_MOVING, AfxSig_Rect, void (CWnd::*)(UINT, LPRECT), OnMoving)
#define ON_WM_MOVE() AFX_WM_ENTRY(WM_MOVE, AfxSig_Move, void (CWnd::*)(int, int), OnMove)
#define ON_WM_GETMINMAXINFO()                                                                                          \
    AFX_WM_ENTRY(WM_GETMINMAXINFO, AfxSig_MinMax, void (CWnd::*)(MINMAXINFO*), OnGetMinMaxInfo)
#define ON_WM_ERASEBKGND() AFX_WM_ENTRY(WM_ERASEBKGND, AfxSig_EraseBkgnd, BOOL (CWnd::*)(CDC*), OnEraseBkgnd)
#define ON_WM_CTLCOLOR() AFX_WM_ENTRY(WM_CTLCOLOR, AfxSig_CtlColor, HBRUSH (CWnd::*)(CDC*, CWnd*, UINT), OnCtlColor)
#define ON_WM_CTLCOLOR_REFLECT()                                                                                       \
    AFX_WM_ENTRY(WM_CTLCOLOR + WM_REFLECT_BASE, AfxSig_CtlColorReflect, HBRUSH(CWnd::*)(CDC*, UINT), CtlColor)
#define ON_WM_DRAWITEM() AFX_WM_ENTRY(WM_DRAWITEM, AfxSig_DrawItem, void (CWnd::*)(int, LPDRAWITEMSTRUCT), OnDrawItem)
#define ON_WM_MEASUREITEM()                                                                                            \
    AFX_WM_ENTRY(WM_MEASUREITEM, AfxSig_MeasureItem, void (CWnd::*)(int, LPMEASUREITEMSTRUCT), OnMeasureItem)
#define ON_WM_COMPAREITEM()                                                                                            \
    AFX_WM_ENTRY(WM_COMPAREITEM, AfxSig_CompareItem, int (CWnd::*)(int, LPCOMPAREITEMSTRUCT), OnCompareItem)
#define ON_WM_DELETEITEM()                                                                                             \
    AFX_WM_ENTRY(WM_DELETEITEM, AfxSig_DeleteItem, void (CWnd::*)(int, LPDELETEITEMSTRUCT), OnDeleteItem)
#define ON_WM_DRAWITEM_REFLECT()                                                                                       \
    AFX_WM_ENTRY(WM_DRAWITEM + WM_REFLECT_BASE, AfxSig_DrawItemReflect, void(CWnd::*)(LPDRAWITEMSTRUCT), DrawItem)
#define ON_WM_MEASUREITEM_REFLECT()                                                                                    \
    AFX_WM_ENTRY(WM_MEASUREITEM + WM_REFLECT_BASE, AfxSig_MeasureItemReflect, void(CWnd::*)(LPMEASUREITEMSTRUCT),      \
                 MeasureItem)
#define ON_WM_TIMER() AFX_WM_ENTRY(WM_TIMER, AfxSig_Timer, void (CWnd::*)(UINT_PTR), OnTimer)
#define ON_WM_LBUTTONDOWN() AFX_WM_MOUSE(WM_LBUTTONDOWN, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_WM_MOUSE(WM_LBUTTONUP, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_WM_MOUSE(WM_LBUTTONDBLCLK, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_WM_MOUSE(WM_RBUTTONDOWN, OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_WM_MOUSE(WM_RBUTTONUP, OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() AFX_WM_MOUSE(WM_RBUTTONDBLCLK, OnRButtonDblClk)
#define ON_WM_MBUTTONDOWN() AFX_WM_MOUSE(WM_MBUTTONDOWN, OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_WM_MOUSE(WM_MBUTTONUP, OnMButtonUp)
#define ON_WM_MBUTTONDBLCLK() AFX_WM_MOUSE(WM_MBUTTONDBLCLK, OnMButtonDblClk)
#define ON_WM_MOUSEMOVE() AFX_WM_MOUSE(WM_MOUSEMOVE, OnMouseMove)
#define ON_WM_NCMOUSEMOVE() AFX_WM_MOUSE(WM_NCMOUSEMOVE, OnNcMouseMove)
#define ON_WM_NCLBUTTONDOWN() AFX_WM_MOUSE(WM_NCLBUTTONDOWN, OnNcLButtonDown)
#define ON_WM_NCLBUTTONDBLCLK() AFX_WM_MOUSE(WM_NCLBUTTONDBLCLK, OnNcLButtonDblClk)
#define ON_WM_MOUSEWHEEL() AFX_WM_ENTRY(WM_MOUSEWHEEL, AfxSig_Wheel, BOOL (CWnd::*)(UINT, short, CPoint), OnMouseWheel)
#define ON_WM_KEYDOWN() AFX_WM_KEY(WM_KEYDOWN, OnKeyDown)
#define ON_WM_KEYUP() AFX_WM_KEY(WM_KEYUP, OnKeyUp)
#define ON_WM_CHAR() AFX_WM_KEY(WM_CHAR, OnChar)
#define ON_WM_SYSKEYDOWN() AFX_WM_KEY(WM_SYSKEYDOWN, OnSysKeyDown)
#define ON_WM_SYSKEYUP() AFX_WM_KEY(WM_SYSKEYUP, OnSysKeyUp)
#define ON_WM_SYSCHAR() AFX_WM_KEY(WM_SYSCHAR, OnSysChar)
#define ON_WM_SYSCOMMAND() AFX_WM_ENTRY(WM_SYSCOMMAND, AfxSig_SysCommand, void (CWnd::*)(UINT, LPARAM), OnSysCommand)
#define ON_WM_SETFOCUS() AFX_WM_ENTRY(WM_SETFOCUS, AfxSig_FocusWnd, void (CWnd::*)(CWnd*), OnSetFocus)
#define ON_WM_KILLFOCUS() AFX_WM_ENTRY(WM_KILLFOCUS, AfxSig_FocusWnd, void (CWnd::*)(CWnd*), OnKillFocus)
#define ON_WM_CAPTURECHANGED()                                                                                         \
    AFX_WM_ENTRY(WM_CAPTURECHANGED, AfxSig_LParamWnd, void (CWnd::*)(CWnd*), OnCaptureChanged)
#define ON_WM_ENABLE() AFX_WM_ENTRY(WM_ENABLE, AfxSig_Bool, void (CWnd::*)(BOOL), OnEnable)
#define ON_WM_ENDSESSION() AFX_WM_ENTRY(WM_ENDSESSION, AfxSig_Bool, void (CWnd::*)(BOOL), OnEndSession)
#define ON_WM_SHOWWINDOW() AFX_WM_ENTRY(WM_SHOWWINDOW, AfxSig_ShowWindow, void (CWnd::*)(BOOL, UINT), OnShowWindow)
#define ON_WM_HSCROLL() AFX_WM_ENTRY(WM_HSCROLL, AfxSig_Scroll, void (CWnd::*)(UINT, UINT, CScrollBar*), OnHScroll)
#define ON_WM_VSCROLL() AFX_WM_ENTRY(WM_VSCROLL, AfxSig_Scroll, void (CWnd::*)(UINT, UINT, CScrollBar*), OnVScroll)
#define ON_WM_HSCROLL_REFLECT()                                                                                        \
    AFX_WM_ENTRY(WM_HSCROLL + WM_REFLECT_BASE, AfxSig_ScrollReflect, void(CWnd::*)(UINT, UINT), HScroll)
#define ON_WM_VSCROLL_REFLECT()                                                                                        \
    AFX_WM_ENTRY(WM_VSCROLL + WM_REFLECT_BASE, AfxSig_ScrollReflect, void(CWnd::*)(UINT, UINT), VScroll)
#define ON_WM_ACTIVATE() AFX_WM_ENTRY(WM_ACTIVATE, AfxSig_Activate, void (CWnd::*)(UINT, CWnd*, BOOL), OnActivate)
#define ON_WM_ACTIVATEAPP() AFX_WM_ENTRY(WM_ACTIVATEAPP, AfxSig_ActivateApp, void (CWnd::*)(BOOL, DWORD), OnActivateApp)
#define ON_WM_INITMENUPOPUP()                                                                                          \
    AFX_WM_ENTRY(WM_INITMENUPOPUP, AfxSig_InitMenuPopup, void (CWnd::*)(CMenu*, UINT, BOOL), OnInitMenuPopup)
#define ON_WM_MENUSELECT()                                                                                             \
    AFX_WM_ENTRY(WM_MENUSELECT, AfxSig_MenuSelect, void (CWnd::*)(UINT, UINT, HMENU), OnMenuSelect)
#define ON_WM_CONTEXTMENU()                                                                                            \
    AFX_WM_ENTRY(WM_CONTEXTMENU, AfxSig_ContextMenu, void (CWnd::*)(CWnd*, CPoint), OnContextMenu)
#define ON_WM_SETCURSOR() AFX_WM_ENTRY(WM_SETCURSOR, AfxSig_SetCursor, BOOL (CWnd::*)(CWnd*, UINT, UINT), OnSetCursor)
#define ON_WM_MOUSEACTIVATE()                                                                                          \
    AFX_WM_ENTRY(WM_MOUSEACTIVATE, AfxSig_MouseActivate, int (CWnd::*)(CWnd*, UINT, UINT), OnMouseActivate)
#define ON_WM_GETDLGCODE() AFX_WM_ENTRY(WM_GETDLGCODE, AfxSig_UintResult, UINT (CWnd::*)(), OnGetDlgCode)
#define ON_WM_QUERYENDSESSION() AFX_WM_ENTRY(WM_QUERYENDSESSION, AfxSig_BoolResult, BOOL (CWnd::*)(), OnQueryEndSession)
#define ON_WM_NCACTIVATE() AFX_WM_ENTRY(WM_NCACTIVATE, AfxSig_NcActivate, BOOL (CWnd::*)(BOOL), OnNcActivate)
#define ON_WM_NCHITTEST() AFX_WM_ENTRY(WM_NCHITTEST, AfxSig_NcHitTest, LRESULT (CWnd::*)(CPoint), OnNcHitTest)
#define ON_WM_WINDOWPOSCHANGED()                                                                                       \
    AFX_WM_ENTRY(WM_WINDOWPOSCHANGED, AfxSig_WindowPos, void (CWnd::*)(WINDOWPOS*), OnWindowPosChanged)
#define ON_WM_WINDOWPOSCHANGING()                                                                                      \
    AFX_WM_ENTRY(WM_WINDOWPOSCHANGING, AfxSig_WindowPos, void (CWnd::*)(WINDOWPOS*), OnWindowPosChanging)
#define ON_WM_HELPINFO() AFX_WM_ENTRY(WM_HELP, AfxSig_HelpInfo, BOOL (CWnd::*)(HELPINFO*), OnHelpInfo)
#define ON_WM_SETTINGCHANGE()                                                                                          \
    AFX_WM_ENTRY(WM_SETTINGCHANGE, AfxSig_SettingChange, void (CWnd::*)(UINT, LPCTSTR), OnSettingChange)
#define ON_WM_STYLECHANGED()                                                                                           \
    AFX_WM_ENTRY(WM_STYLECHANGED, AfxSig_StyleChange, void (CWnd::*)(int, LPSTYLESTRUCT), OnStyleChanged)
#define ON_WM_THEMECHANGED() AFX_WM_ENTRY(WM_THEMECHANGED, AfxSig_LResult, LRESULT (CWnd::*)(), OnThemeChanged)
#define ON_WM_PARENTNOTIFY()                                                                                           \
    AFX_WM_ENTRY(WM_PARENTNOTIFY, AfxSig_ParentNotify, void (CWnd::*)(UINT, LPARAM), OnParentNotify)
#define ON_WM_ENTERIDLE() AFX_WM_ENTRY(WM_ENTERIDLE, AfxSig_EnterIdle, void (CWnd::*)(UINT, CWnd*), OnEnterIdle)
#define ON_WM_DROPFILES() AFX_WM_ENTRY(WM_DROPFILES, AfxSig_DropFiles, void (CWnd::*)(HDROP), OnDropFiles)

// CWnd: a window with a C++ object. The object doesn't own the window's memory, the window doesn't own the object; see
// PostNcDestroy. FromHandle answers the permanent object of a handle (Create, Attach, SubclassWindow) or makes a
// temporary one, which is gone at the next idle of the message loop it was made in. Narrower than MFC: no OLE, ActiveX,
// scrolling helpers, control bars or tips that follow the pointer (EnableTrackingToolTips); members can't be called
// through a null pointer (GetSafeHwnd included). Wider: any C++ exception in a handler is stopped, not only CException.
#pragma once

#include "CCmdTarget.h"
#include "CDC.h"
#include "CMenu.h"

#include <commctrl.h>

class CDataExchange;
class CScrollBar;
struct CWndInternals;

// Flags of RunModalLoop.
constexpr DWORD MLF_NOIDLEMSG = 0x0001;
constexpr DWORD MLF_NOKICKIDLE = 0x0002;
constexpr DWORD MLF_SHOWONIDLE = 0x0004;

// Values of CWnd::m_nFlags.
constexpr int WF_TOOLTIPS = 0x0001;
constexpr int WF_TEMPHIDE = 0x0004;
constexpr int WF_MODALLOOP = 0x0010;
constexpr int WF_CONTINUEMODAL = 0x0020;

/// Sent to the window of a modal loop when there is nothing to do: wParam MSGF_DIALOGBOX, lParam the number of calls
/// since the last message. A result other than 0 asks for another call.
constexpr UINT WM_KICKIDLE = 0x036A;
constexpr UINT WM_COMMANDHELP = 0x0365;

// Flags that OnToolHitTest may add to a tool's own; the control never sees them.
/// The tool is no button, so a press on it needs no help in a status bar.
constexpr UINT TTF_NOTBUTTON = 0x80000000;
/// The tip shows while the program isn't the active one, too.
constexpr UINT TTF_ALWAYSTIP = 0x40000000;

class AFXMFC_API CWnd : public CCmdTarget {
    DECLARE_DYNCREATE(CWnd)
  public:
    CWnd();
    /// Destroys the window if it is still there.
    ~CWnd() override;

    HWND m_hWnd = nullptr;

    operator HWND() const { return m_hWnd; }
    HWND GetSafeHwnd() const { return m_hWnd; }

    // --- handles and objects ---
    static CWnd* FromHandle(HWND hWnd);
    static CWnd* FromHandlePermanent(HWND hWnd);
    static void DeleteTempMap();
    BOOL Attach(HWND hWndNew);
    HWND Detach();
    /// Attaches and routes the window's messages through this object's map.
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    /// Gives the window its former procedure back and detaches.
    HWND UnsubclassWindow();
    virtual void PreSubclassWindow() {}

    // --- creation and destruction ---
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID, void* pContext = nullptr);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                          int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    virtual BOOL DestroyWindow();

    // --- text, style, state ---
    void SetWindowText(LPCTSTR lpszString) { ::SetWindowText(m_hWnd, lpszString); }
    int GetWindowText(LPTSTR lpszString, int nMaxCount) const { return ::GetWindowText(m_hWnd, lpszString, nMaxCount); }
    void GetWindowText(CString& rString) const;
    int GetWindowTextLength() const { return ::GetWindowTextLength(m_hWnd); }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtr(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtr(m_hWnd, GWL_EXSTYLE)); }
    /// FALSE when nothing had to change. `nFlags` other than 0 are passed on to SetWindowPos.
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0) {
        return ModifyStyle(m_hWnd, dwRemove, dwAdd, nFlags);
    }
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0) {
        return ModifyStyleEx(m_hWnd, dwRemove, dwAdd, nFlags);
    }
    static BOOL ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);
    static BOOL ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    int SetDlgCtrlID(int nID) { return static_cast<int>(::SetWindowLongPtr(m_hWnd, GWLP_ID, nID)); }
    BOOL EnableWindow(BOOL bEnable = TRUE) { return ::EnableWindow(m_hWnd, bEnable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
    BOOL IsZoomed() const { return ::IsZoomed(m_hWnd); }
    CFont* GetFont() const;
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    HICON SetIcon(HICON hIcon, BOOL bBigIcon);
    HICON GetIcon(BOOL bBigIcon) const;
    CMenu* GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }
    BOOL SetMenu(CMenu* pMenu) { return ::SetMenu(m_hWnd, pMenu ? pMenu->m_hMenu : nullptr); }
    void DrawMenuBar() { ::DrawMenuBar(m_hWnd); }
    CMenu* GetSystemMenu(BOOL bRevert) const { return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert)); }

    // --- place and size ---
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE) {
        ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
    }
    void MoveWindow(LPCRECT r, BOOL bRepaint = TRUE) {
        MoveWindow(r->left, r->top, r->right - r->left, r->bottom - r->top, bRepaint);
    }
    /// `pWndInsertAfter` may be &wndTop, &wndBottom, &wndTopMost or &wndNoTopMost.
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags) {
        return ::SetWindowPos(m_hWnd, pWndInsertAfter ? pWndInsertAfter->m_hWnd : nullptr, x, y, cx, cy, nFlags);
    }
    static const CWnd wndTop;
    static const CWnd wndBottom;
    static const CWnd wndTopMost;
    static const CWnd wndNoTopMost;
    void BringWindowToTop() { ::BringWindowToTop(m_hWnd); }
    BOOL GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const;
    BOOL SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl) { return ::SetWindowPlacement(m_hWnd, lpwndpl); }
    void GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
    void GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
    void ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }
    void ClientToScreen(LPRECT lpRect) const;
    void ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }
    void ScreenToClient(LPRECT lpRect) const;
    void MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const;
    void MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const;
    /// Over its owner or parent, or over `pAlternateOwner`, within the work area.
    void CenterWindow(CWnd* pAlternateOwner = nullptr);

    // --- painting ---
    CDC* GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
    CDC* GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }
    int ReleaseDC(CDC* pDC) { return ::ReleaseDC(m_hWnd, pDC->m_hDC); }
    CDC* BeginPaint(LPPAINTSTRUCT lpPaint) { return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint)); }
    void EndPaint(LPPAINTSTRUCT lpPaint) { ::EndPaint(m_hWnd, lpPaint); }
    void Invalidate(BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, lpRect, bErase); }
    void ValidateRect(LPCRECT lpRect) { ::ValidateRect(m_hWnd, lpRect); }
    BOOL GetUpdateRect(LPRECT lpRect, BOOL bErase = FALSE) { return ::GetUpdateRect(m_hWnd, lpRect, bErase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, CRgn* prgnUpdate = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    void SetRedraw(BOOL bRedraw = TRUE) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(bRedraw)); }
    BOOL LockWindowUpdate() { return ::LockWindowUpdate(m_hWnd); }
    static void UnlockWindowUpdate() { ::LockWindowUpdate(nullptr); }

    // --- messages ---
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessage(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::PostMessage(m_hWnd, message, wParam, lParam);
    }
    BOOL SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam) {
        return ::SendNotifyMessage(m_hWnd, message, wParam, lParam);
    }
    /// With `bOnlyPerm` only windows with permanent objects get it, straight to their WindowProc.
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL bDeep = TRUE,
                                  BOOL bOnlyPerm = FALSE) {
        SendMessageToDescendants(m_hWnd, message, wParam, lParam, bDeep, bOnlyPerm);
    }
    static void SendMessageToDescendants(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep,
                                         BOOL bOnlyPerm);
    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = nullptr, UINT nType = MB_OK);
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer) {
        return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
    }
    BOOL KillTimer(UINT_PTR nIDEvent) { return ::KillTimer(m_hWnd, nIDEvent); }
    /// Offers a message to the C++ objects from its window up to, and including, `hWndStop`.
    static BOOL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);
    /// TRUE: handled, don't dispatch.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    static const MSG* GetCurrentMessage();

    // --- tool tips ---
    /// With tips enabled the window is asked by OnToolHitTest what is under the pointer, over itself and over its
    /// children, unless one of them has tips of its own. Disabling hides the tip that it has asked for.
    BOOL EnableToolTips(BOOL bEnable = TRUE);
    /// Hides the tip that this thread shows, if there is one; it comes again over another tool. `bKeys` says that a key
    /// is the reason.
    static void CancelToolTips(BOOL bKeys = FALSE);
    /// Shows and hides tips as a message asks for. PreTranslateMessage does it; an override that keeps a message from
    /// its base calls it.
    void FilterToolTipMessage(MSG* pMsg);
    /// What is at a point of the client area: -1 for nothing, otherwise a number that tells this tool from its
    /// neighbours, and `pTI` filled in. A text in `pTI` is freed by free(), unless it is LPSTR_TEXTCALLBACK or the
    /// number of a string of `hinst`. The base answers for the visible child under the point, with its id, and a text
    /// that is asked for by TTN_NEEDTEXT.
    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const;

    // --- focus, capture, activation, relatives ---
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
    static CWnd* GetCapture() { return FromHandle(::GetCapture()); }
    CWnd* SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
    static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
    BOOL SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
    static CWnd* GetForegroundWindow() { return FromHandle(::GetForegroundWindow()); }
    static CWnd* GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
    static CWnd* WindowFromPoint(POINT point) { return FromHandle(::WindowFromPoint(point)); }
    static CWnd* FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName) {
        return FromHandle(::FindWindow(lpszClassName, lpszWindowName));
    }
    CWnd* ChildWindowFromPoint(POINT point) const { return FromHandle(::ChildWindowFromPoint(m_hWnd, point)); }
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* SetParent(CWnd* pWndNewParent);
    CWnd* GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }
    CWnd* GetTopWindow() const { return FromHandle(::GetTopWindow(m_hWnd)); }
    CWnd* GetLastActivePopup() const { return FromHandle(::GetLastActivePopup(m_hWnd)); }
    BOOL IsChild(const CWnd* pWnd) const { return ::IsChild(m_hWnd, pWnd->m_hWnd); }
    CWnd* GetTopLevelParent() const;
    CWnd* GetTopLevelOwner() const;
    /// The window that gets this window's commands and notifications: the owner set by SetOwner, or else the parent.
    CWnd* GetOwner() const { return m_hWndOwner ? FromHandle(m_hWndOwner) : GetParent(); }
    void SetOwner(CWnd* pOwnerWnd) { m_hWndOwner = pOwnerWnd ? pOwnerWnd->m_hWnd : nullptr; }

    // --- dialog items ---
    CWnd* GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
    void GetDlgItem(int nID, HWND* phWnd) const { *phWnd = ::GetDlgItem(m_hWnd, nID); }
    /// The child, grandchild, ... with that id; with `bOnlyPerm` only one with a permanent object.
    CWnd* GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const {
        return GetDescendantWindow(m_hWnd, nID, bOnlyPerm);
    }
    static CWnd* GetDescendantWindow(HWND hWnd, int nID, BOOL bOnlyPerm);
    void SetDlgItemText(int nID, LPCTSTR lpszString) { ::SetDlgItemText(m_hWnd, nID, lpszString); }
    int GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const {
        return static_cast<int>(::GetDlgItemText(m_hWnd, nID, lpStr, nMaxCount));
    }
    int GetDlgItemText(int nID, CString& rString) const;
    void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE) { ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned); }
    UINT GetDlgItemInt(int nID, BOOL* lpTrans = nullptr, BOOL bSigned = TRUE) const {
        return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
    }
    void CheckDlgButton(int nIDButton, UINT nCheck) { ::CheckDlgButton(m_hWnd, nIDButton, nCheck); }
    UINT IsDlgButtonChecked(int nIDButton) const { return ::IsDlgButtonChecked(m_hWnd, nIDButton); }
    void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton) {
        ::CheckRadioButton(m_hWnd, nIDFirstButton, nIDLastButton, nIDCheckButton);
    }
    /// Which of the range is checked, 0 for none.
    int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const;
    LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendDlgItemMessage(m_hWnd, nID, message, wParam, lParam);
    }
    CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
    BOOL IsDialogMessage(LPMSG lpMsg) { return ::IsDialogMessage(m_hWnd, lpMsg); }
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

    // --- modal loop ---
    int RunModalLoop(DWORD dwFlags = 0);
    virtual BOOL ContinueModal();
    virtual void EndModalLoop(int nResult);

    // --- routing ---
    BOOL SendChildNotifyLastMsg(LRESULT* pResult = nullptr);
    static BOOL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);
    BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// Sends the system's dialog keys on to IsDialogMessage.
    BOOL PreTranslateInput(LPMSG lpMsg);

    int m_nModalResult = 0;
    int m_nFlags = 0;

  protected:
    virtual void DoDataExchange(CDataExchange*) {}
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// A message that a control sent to its parent comes back to the control here.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual WNDPROC* GetSuperWndProcAddr() { return &m_pfnSuper; }
    /// The last call a window makes to its object, which may `delete this` here.
    virtual void PostNcDestroy() {}
    /// Passes the message being handled, with its own parameters, to the default procedure.
    LRESULT Default();

    // A handler of the same name in a derived class may call these.
    afx_msg int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnNcDestroy();
    afx_msg void OnClose() { Default(); }
    afx_msg void OnPaint() { Default(); }
    afx_msg void OnNcPaint() { Default(); }
    afx_msg void OnCancelMode() { Default(); }
    afx_msg void OnSysColorChange() { Default(); }
    afx_msg void OnMouseLeave() { Default(); }
    afx_msg void OnSize(UINT, int, int) { Default(); }
    afx_msg void OnSizing(UINT, LPRECT) { Default(); }
    afx_msg void OnMoving(UINT, LPRECT) { Default(); }
    afx_msg void OnMove(int, int) { Default(); }
    afx_msg void OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
    afx_msg BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
    afx_msg void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    afx_msg int OnCompareItem(int nIDCtl, LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    afx_msg void OnDeleteItem(int nIDCtl, LPDELETEITEMSTRUCT lpDeleteItemStruct);
    afx_msg void OnTimer(UINT_PTR) { Default(); }
    afx_msg void OnLButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonUp(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg void OnRButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnRButtonUp(UINT, CPoint) { Default(); }
    afx_msg void OnRButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg void OnMButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnMButtonUp(UINT, CPoint) { Default(); }
    afx_msg void OnMButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg void OnMouseMove(UINT, CPoint) { Default(); }
    afx_msg void OnNcMouseMove(UINT, CPoint) { Default(); }
    afx_msg void OnNcLButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnNcLButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    afx_msg void OnKeyDown(UINT, UINT, UINT) { Default(); }
    afx_msg void OnKeyUp(UINT, UINT, UINT) { Default(); }
    afx_msg void OnChar(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysKeyUp(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysChar(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysCommand(UINT, LPARAM) { Default(); }
    afx_msg void OnSetFocus(CWnd*) { Default(); }
    afx_msg void OnKillFocus(CWnd*) { Default(); }
    afx_msg void OnCaptureChanged(CWnd*) { Default(); }
    afx_msg void OnEnable(BOOL) { Default(); }
    afx_msg void OnEndSession(BOOL) { Default(); }
    afx_msg void OnShowWindow(BOOL, UINT) { Default(); }
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    afx_msg void OnActivateApp(BOOL, DWORD) { Default(); }
    afx_msg void OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
    afx_msg void OnMenuSelect(UINT, UINT, HMENU) { Default(); }
    afx_msg void OnContextMenu(CWnd*, CPoint) { Default(); }
    afx_msg BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    afx_msg int OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
    afx_msg UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    afx_msg BOOL OnQueryEndSession() { return static_cast<BOOL>(Default()); }
    afx_msg BOOL OnNcActivate(BOOL) { return static_cast<BOOL>(Default()); }
    afx_msg LRESULT OnNcHitTest(CPoint) { return Default(); }
    afx_msg void OnWindowPosChanged(WINDOWPOS*) { Default(); }
    afx_msg void OnWindowPosChanging(WINDOWPOS*) { Default(); }
    afx_msg BOOL OnHelpInfo(HELPINFO*) { return static_cast<BOOL>(Default()); }
    afx_msg void OnSettingChange(UINT, LPCTSTR) { Default(); }
    afx_msg void OnStyleChanged(int, LPSTYLESTRUCT) { Default(); }
    afx_msg LRESULT OnThemeChanged() { return Default(); }
    afx_msg void OnParentNotify(UINT message, LPARAM lParam);
    afx_msg void OnEnterIdle(UINT, CWnd*) { Default(); }
    afx_msg void OnDropFiles(HDROP) { Default(); }
    DECLARE_MESSAGE_MAP()

  private:
    // For the library itself.
    friend struct CWndInternals;
    /// One of the special windows of SetWindowPos.
    explicit CWnd(HWND hWnd) : m_hWnd(hWnd) {}

    WNDPROC m_pfnSuper = nullptr;
    HWND m_hWndOwner = nullptr;
};

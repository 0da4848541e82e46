// CToolTipCtrl: a tool tip window. It doesn't subclass the windows of its tools, so the owner's PreTranslateMessage
// passes it the mouse messages by RelayEvent. Times are milliseconds. A window for which CWnd::OnToolHitTest says
// enough needs none of its own, only CWnd::EnableToolTips.
#pragma once

#include "CWnd.h"

#include <commctrl.h>

#ifndef LPSTR_TEXTCALLBACK
#error "commctrl.h lacks LPSTR_TEXTCALLBACK"
#endif

class AFXMFC_API CToolTipCtrl : public CWnd {
    DECLARE_DYNAMIC(CToolTipCtrl)
  public:
    using CWnd::Create;
    virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);

    /// `pWnd` as a whole (without `lpRectTool`), or a part of its client area named by `nIDTool`.
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText = LPSTR_TEXTCALLBACK, LPCRECT lpRectTool = nullptr, UINT_PTR nIDTool = 0);
    BOOL AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool = nullptr, UINT_PTR nIDTool = 0);
    void DelTool(CWnd* pWnd, UINT_PTR nIDTool = 0);
    void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    void GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool = 0) const;
    void SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect);
    int GetToolCount() const { return static_cast<int>(SendMessage(TTM_GETTOOLCOUNT)); }
    void Activate(BOOL bActivate) { SendMessage(TTM_ACTIVATE, static_cast<WPARAM>(bActivate)); }
    void RelayEvent(LPMSG lpMsg) { SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(lpMsg)); }
    void Pop() { SendMessage(TTM_POP); }
    void Update() { SendMessage(TTM_UPDATE); }
    void SetDelayTime(UINT nDelay) { SendMessage(TTM_SETDELAYTIME, TTDT_AUTOMATIC, static_cast<LPARAM>(nDelay)); }
    void SetDelayTime(DWORD dwDuration, int iTime) { SendMessage(TTM_SETDELAYTIME, dwDuration, MAKELPARAM(iTime, 0)); }
    int GetDelayTime(DWORD dwDuration) const { return static_cast<int>(SendMessage(TTM_GETDELAYTIME, dwDuration)); }
    int SetMaxTipWidth(int iWidth) { return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, iWidth)); }
    int GetMaxTipWidth() const { return static_cast<int>(SendMessage(TTM_GETMAXTIPWIDTH)); }

  protected:
    /// Which window a relayed message is taken for; also a disabled one, and a combo box instead of the edit in it.
    afx_msg LRESULT OnWindowFromPoint(WPARAM, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

  private:
    TOOLINFO Tool(const CWnd* wnd, UINT_PTR id) const;
};

// CCmdTarget: what can receive commands. CCmdUI: how a command's menu item looks at the moment.
#pragma once

#include "../afxmsg_.h"

class AFXMFC_API CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)
  public:
    CCmdTarget();

    /// Offers a command, a control notification or a notification to the message map, most derived class first. With
    /// `pHandlerInfo` the handler is only named, not called. TRUE: handled, look no further.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    // Counted; the hourglass stands until every Begin has had its End.
    void BeginWaitCursor();
    void EndWaitCursor();
    void RestoreWaitCursor();

  protected:
    virtual const AFX_MSGMAP* GetMessageMap() const;
    static const AFX_MSGMAP* GetThisMessageMap();
};

/// Through it an update handler says how the command's item is to look. Without a menu nothing is shown, but DoUpdate
/// answers all the same.
class AFXMFC_API CCmdUI {
  public:
    CCmdUI() = default;
    virtual ~CCmdUI() = default;

    UINT m_nID = 0;
    UINT m_nIndex = 0;
    UINT m_nIndexMax = 0;
    CMenu* m_pMenu = nullptr;

    virtual void Enable(BOOL bOn = TRUE);
    /// 0 off, 1 on, 2 indeterminate (shown as on).
    virtual void SetCheck(int nCheck = 1);
    virtual void SetRadio(BOOL bOn = TRUE);
    virtual void SetText(LPCTSTR lpszText);
    void ContinueRouting() { m_bContinueRouting = TRUE; }

    /// Asks `pTarget`. An item that nobody handles is disabled if `bDisableIfNoHndler` says so.
    BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);

    BOOL m_bEnableChanged = FALSE;
    BOOL m_bContinueRouting = FALSE;
};

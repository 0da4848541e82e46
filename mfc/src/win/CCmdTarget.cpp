// CCmdTarget and CCmdUI: commands and notifications through the message maps.

#include "ThreadState.h"

#include <bit>

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::CCmdTarget() = default;

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, AfxSig_end, nullptr}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

namespace {

template <class Handler> Handler handlerOf(const AFX_MSGMAP_ENTRY& entry) {
    return std::bit_cast<Handler>(entry.pfn);
}

BOOL callNotify(CCmdTarget* target, const AFX_MSGMAP_ENTRY& entry, UINT id, void* extra) {
    const auto* const notify = static_cast<AFX_NOTIFY*>(extra);
    switch (entry.nSig) {
    case AfxSigNotify_Void:
        (target->*handlerOf<void (CCmdTarget::*)(NMHDR*, LRESULT*)>(entry))(notify->pNMHDR, notify->pResult);
        return TRUE;
    case AfxSigNotify_Range:
        (target->*handlerOf<void (CCmdTarget::*)(UINT, NMHDR*, LRESULT*)>(entry))(id, notify->pNMHDR, notify->pResult);
        return TRUE;
    case AfxSigNotify_Ex:
        return (target->*handlerOf<BOOL (CCmdTarget::*)(UINT, NMHDR*, LRESULT*)>(entry))(id, notify->pNMHDR,
                                                                                         notify->pResult);
    case AfxSigNotify_ReflectEx:
        return (target->*handlerOf<BOOL (CCmdTarget::*)(NMHDR*, LRESULT*)>(entry))(notify->pNMHDR, notify->pResult);
    default:
        return FALSE;
    }
}

BOOL callUpdate(CCmdTarget* target, const AFX_MSGMAP_ENTRY& entry, void* extra) {
    auto* const ui = static_cast<CCmdUI*>(extra);
    ui->m_bContinueRouting = FALSE;
    (target->*handlerOf<void (CCmdTarget::*)(CCmdUI*)>(entry))(ui);
    return !ui->m_bContinueRouting;
}

BOOL callHandler(CCmdTarget* target, const AFX_MSGMAP_ENTRY& entry, UINT id, void* extra) {
    switch (entry.nSig) {
    case AfxSigCmd_Void:
        (target->*entry.pfn)();
        return TRUE;
    case AfxSigCmd_Range:
        (target->*handlerOf<void (CCmdTarget::*)(UINT)>(entry))(id);
        return TRUE;
    case AfxSigCmd_Ex:
        return (target->*handlerOf<BOOL (CCmdTarget::*)(UINT)>(entry))(id);
    case AfxSigCmd_ReflectEx:
        return (target->*handlerOf<BOOL (CCmdTarget::*)()>(entry))();
    case AfxSigCmd_UpdateUI:
        return callUpdate(target, entry, extra);
    default:
        return callNotify(target, entry, id, extra);
    }
}

bool matches(const AFX_MSGMAP_ENTRY& entry, UINT message, UINT code, UINT id) {
    return entry.nMessage == message && entry.nCode == code && entry.nID <= id && id <= entry.nLastID;
}

} // namespace

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
    UINT message = WM_COMMAND;
    auto code = static_cast<UINT>(nCode);
    // A notification's number stands in the low half, the message that brought it in the high half.
    if (nCode != CN_UPDATE_COMMAND_UI) {
        if (HIWORD(code) != 0)
            message = HIWORD(code);
        code = LOWORD(code);
    }
    for (const AFX_MSGMAP* map = GetMessageMap(); map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nSig != AfxSig_end; ++entry) {
            if (!matches(*entry, message, code, nID))
                continue;
            if (pHandlerInfo) {
                *pHandlerInfo = {this, entry->pfn};
                return TRUE;
            }
            // The most derived entry decides, also when it declines.
            return callHandler(this, *entry, nID, pExtra);
        }
    }
    return FALSE;
}

void CCmdTarget::BeginWaitCursor() {
    if (CWinApp* const app = AfxGetApp())
        app->DoWaitCursor(1);
}

void CCmdTarget::EndWaitCursor() {
    if (CWinApp* const app = AfxGetApp())
        app->DoWaitCursor(-1);
}

void CCmdTarget::RestoreWaitCursor() {
    if (CWinApp* const app = AfxGetApp())
        app->DoWaitCursor(0);
}

void CCmdUI::Enable(BOOL bOn) {
    m_bEnableChanged = TRUE;
    if (m_pMenu)
        m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_DISABLED | MF_GRAYED));
}

void CCmdUI::SetCheck(int nCheck) {
    if (m_pMenu)
        m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (nCheck ? MF_CHECKED : MF_UNCHECKED));
}

void CCmdUI::SetRadio(BOOL bOn) {
    if (m_pMenu && bOn)
        m_pMenu->CheckMenuRadioItem(m_nIndex, m_nIndex, m_nIndex, MF_BYPOSITION);
    else
        SetCheck(bOn ? 1 : 0);
}

void CCmdUI::SetText(LPCTSTR lpszText) {
    if (!m_pMenu)
        return;
    const UINT state = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION) & ~static_cast<UINT>(MF_BITMAP | MF_OWNERDRAW);
    m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | state, m_nID, lpszText);
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler) {
    m_bEnableChanged = FALSE;
    const BOOL answered = pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (bDisableIfNoHndler && !m_bEnableChanged) {
        AFX_CMDHANDLERINFO info{};
        Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
    }
    return answered;
}

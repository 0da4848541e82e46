// Menus and the map of their handles.
#include <afxwin.h>

#include "HandleMap.h"

IMPLEMENT_DYNCREATE(CMenu, CObject)

namespace {

using MenuMap = kelmfc::HandleMap<CMenu, HMENU, &CMenu::m_hMenu>;

MenuMap& theMap() {
    static MenuMap& map = *new MenuMap;
    return map;
}

} // namespace

CMenu* CMenu::FromHandle(HMENU hMenu) {
    if (!hMenu)
        return nullptr;
    if (CMenu* const menu = theMap().permanent(hMenu))
        return menu;
    if (CMenu* const menu = theMap().temporary(hMenu))
        return menu;
    return theMap().addTemporary(hMenu, new CMenu);
}

CMenu* CMenu::FromHandlePermanent(HMENU hMenu) {
    return theMap().permanent(hMenu);
}

void CMenu::DeleteTempMap() {
    theMap().deleteTemporary();
}

BOOL CMenu::Attach(HMENU hMenu) {
    ASSERT(!m_hMenu);
    if (!hMenu)
        return FALSE;
    theMap().attach(hMenu, this);
    return TRUE;
}

HMENU CMenu::Detach() {
    return m_hMenu ? theMap().detach(this) : nullptr;
}

BOOL CMenu::LoadMenu(LPCTSTR lpszResourceName) {
    return Attach(::LoadMenu(AfxFindResourceHandle(lpszResourceName, RT_MENU), lpszResourceName));
}

BOOL CMenu::DestroyMenu() {
    return m_hMenu ? ::DestroyMenu(Detach()) : FALSE;
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const {
    rString.Empty();
    const int length = GetMenuString(nIDItem, nullptr, 0, nFlags);
    if (length <= 0)
        return 0;
    const int copied = GetMenuString(nIDItem, rString.GetBuffer(length), length + 1, nFlags);
    rString.ReleaseBuffer(copied);
    return copied;
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect) {
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd ? pWnd->m_hWnd : nullptr, lpRect);
}

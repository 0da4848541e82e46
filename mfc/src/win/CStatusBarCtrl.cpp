// Status bar, tabs and progress bar: the members that are more than one message.
#include <afxcmn.h>

IMPLEMENT_DYNAMIC(CStatusBarCtrl, CWnd)
IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)
IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)

CString CStatusBarCtrl::GetText(int nPane, int* pType) const {
    const auto pane = static_cast<WPARAM>(nPane);
    const auto answer = static_cast<DWORD>(SendMessage(SB_GETTEXTLENGTH, pane));
    const int length = LOWORD(answer);
    if (pType)
        *pType = HIWORD(answer);
    CString text;
    // The "text" of an owner-drawn pane is a number of the owner's.
    if (HIWORD(answer) & SBT_OWNERDRAW)
        return text;
    SendMessage(SB_GETTEXT, pane, reinterpret_cast<LPARAM>(text.GetBuffer(length)));
    text.ReleaseBuffer(length);
    return text;
}

int CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem) {
    TCITEM item = {};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    return InsertItem(nItem, &item);
}

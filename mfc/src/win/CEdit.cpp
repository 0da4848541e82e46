// The edit control's members that are more than one message.
#include <afxwin.h>

#include <commctrl.h>

IMPLEMENT_DYNAMIC(CEdit, CWnd)

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(nStartChar), nEndChar);
    if (!bNoScroll)
        SendMessage(EM_SCROLLCARET);
}

void CEdit::GetSel(int& nStartChar, int& nEndChar) const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    nStartChar = static_cast<int>(start);
    nEndChar = static_cast<int>(end);
}

BOOL CEdit::SetCueBanner(LPCWSTR lpszText, BOOL fDrawWhenFocused) {
    return static_cast<BOOL>(
        SendMessage(EM_SETCUEBANNER, static_cast<WPARAM>(fDrawWhenFocused), reinterpret_cast<LPARAM>(lpszText)));
}

// List boxes, combo boxes and scroll bars: texts as CString, and owner drawing, which comes back from the parent.
#include <afxwin.h>

IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

namespace {

// Whether the message was one of owner drawing, which both controls have under the same names.
template <class Control> bool drewItem(Control& control, UINT message, LPARAM lParam, LRESULT* result) {
    switch (message) {
    case WM_DRAWITEM:
        control.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return true;
    case WM_MEASUREITEM:
        control.MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        return true;
    case WM_COMPAREITEM: {
        const LRESULT order = control.CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
        if (result)
            *result = order;
        return true;
    }
    case WM_DELETEITEM:
        control.DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam));
        return true;
    default:
        return false;
    }
}

} // namespace

void CListBox::GetText(int nIndex, CString& rString) const {
    rString.Empty();
    const int length = GetTextLen(nIndex);
    if (length == LB_ERR)
        return;
    GetText(nIndex, rString.GetBuffer(length));
    rString.ReleaseBuffer();
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    return drewItem(*this, message, lParam, pResult) ? TRUE : CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

void CComboBox::GetLBText(int nIndex, CString& rString) const {
    rString.Empty();
    const int length = GetLBTextLen(nIndex);
    if (length == CB_ERR)
        return;
    GetLBText(nIndex, rString.GetBuffer(length));
    rString.ReleaseBuffer();
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    return drewItem(*this, message, lParam, pResult) ? TRUE : CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

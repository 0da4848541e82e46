#include "CInPlaceEdit.h"

#include "resource.h"

BEGIN_MESSAGE_MAP(CInPlaceEdit, CEdit)
ON_WM_GETDLGCODE()
ON_WM_KILLFOCUS()
ON_WM_SHOWWINDOW()
END_MESSAGE_MAP()

CInPlaceEdit::~CInPlaceEdit() = default;

BOOL CInPlaceEdit::Create(CWnd* list) {
    if (!CEdit::Create(WS_CHILD, CRect(0, 0, 0, 0), list, IDC_LSTATE_INPLACE_EDIT))
        return FALSE;
    SendMessage(WM_SETFONT, static_cast<WPARAM>(list->SendMessage(WM_GETFONT)), TRUE);
    return TRUE;
}

BOOL CInPlaceEdit::PreCreateWindow(CREATESTRUCT& window) {
    // Several lines, so that Esc and Enter come here before the dialog; neither gets as far as the text.
    window.style |= WS_BORDER | ES_WANTRETURN | ES_NOHIDESEL | ES_AUTOHSCROLL | ES_MULTILINE;
    return CEdit::PreCreateWindow(window);
}

BOOL CInPlaceEdit::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == VK_RETURN) {
        GetParent()->SetFocus(); // and the loss of the focus keeps the text
        return TRUE;
    }
    if (message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE) {
        Report(kInPlaceEditCancelled);
        return TRUE;
    }
    return CEdit::PreTranslateMessage(message);
}

UINT CInPlaceEdit::OnGetDlgCode() {
    const UINT code = static_cast<UINT>(Default());
    // A box of several lines asks for every key, and would send the answer to Tab to its parent as if that were the
    // dialog. Tab is left to the dialog, which moves its focus.
    const auto* key = reinterpret_cast<const MSG*>(GetCurrentMessage()->lParam);
    const bool isTab = key && (key->message == WM_KEYDOWN || key->message == WM_CHAR) && key->wParam == VK_TAB;
    return isTab ? code & ~static_cast<UINT>(DLGC_WANTALLKEYS | DLGC_WANTTAB) : code;
}

void CInPlaceEdit::OnKillFocus(CWnd* receiver) {
    CEdit::OnKillFocus(receiver);
    if (IsWindowVisible() && (!receiver || !IsChild(receiver)))
        Report(kInPlaceEditLeft);
}

void CInPlaceEdit::OnShowWindow(BOOL show, UINT status) {
    if (!show)
        return;
    constexpr int kLeftMargin = 2;
    CEdit::OnShowWindow(show, status);
    SendMessage(EM_SETMARGINS, EC_LEFTMARGIN, kLeftMargin);
    SetSel(0, -1); // all of it, with the caret in view
}

void CInPlaceEdit::Report(UINT code) {
    NMHDR header = {};
    header.hwndFrom = m_hWnd;
    header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    header.code = code;
    GetParent()->SendMessage(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

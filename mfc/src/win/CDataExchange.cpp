// Dialog data exchange: the exchange itself and the functions for each kind of control.
#include <afxwin.h>

#include <cerrno>
#include <cfloat>
#include <cwchar>
#include <limits>

namespace {

CString textOf(HWND control) {
    CString text;
    const int length = ::GetWindowTextLength(control);
    const int copied = ::GetWindowText(control, text.GetBuffer(length), length + 1);
    text.ReleaseBuffer(copied);
    return text;
}

// Writes the text only if it differs: otherwise the control would flicker and notify a change.
void setText(HWND control, LPCTSTR text) {
    if (textOf(control) != text)
        ::SetWindowText(control, text);
}

int ask(HWND control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return static_cast<int>(::SendMessage(control, message, wParam, lParam));
}

[[noreturn]] void refuse(CDataExchange* exchange, UINT prompt) {
    AfxMessageBox(prompt, MB_OK | MB_ICONEXCLAMATION);
    exchange->Fail();
}

[[noreturn]] void refuse(CDataExchange* exchange, const CString& prompt) {
    AfxMessageBox(prompt, MB_OK | MB_ICONEXCLAMATION);
    exchange->Fail();
}

bool isBlank(LPCTSTR text) {
    return text[std::wcsspn(text, L" \t")] == 0;
}

// Whether the whole text, blanks around it aside, is a decimal integer of the type.
template <class Integer> bool readInteger(const CString& text, Integer& value) {
    LPTSTR end = nullptr;
    errno = 0;
    const long long number = std::wcstoll(text, &end, 10);
    if (end == text.GetString() || !isBlank(end) || errno == ERANGE)
        return false;
    if (number < std::numeric_limits<Integer>::min() || number > std::numeric_limits<Integer>::max())
        return false;
    value = static_cast<Integer>(number);
    return true;
}

template <class Integer>
void exchangeInteger(CDataExchange* exchange, int id, Integer& value, LPCTSTR format, UINT prompt) {
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        CString text;
        text.Format(format, value);
        setText(control, text);
    } else if (!readInteger(textOf(control), value)) {
        refuse(exchange, prompt);
    }
}

bool isRadioButton(HWND control) {
    return (::SendMessage(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

bool startsGroup(HWND control) {
    return (::GetWindowLongPtr(control, GWL_STYLE) & WS_GROUP) != 0;
}

CString number(int value) {
    CString text;
    text.Format(L"%d", value);
    return text;
}

} // namespace

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd) {}

HWND CDataExchange::PrepareCtrl(int nIDC) {
    const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC);
    if (!control) {
        TRACE(L"The dialog has no control %d to exchange data with.\n", nIDC);
        AfxThrowNotSupportedException();
    }
    m_idLastControl = nIDC;
    m_bEditLastControl = FALSE;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC) {
    const HWND control = PrepareCtrl(nIDC);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail() {
    const HWND control = m_idLastControl ? ::GetDlgItem(m_pDlgWnd->m_hWnd, m_idLastControl) : nullptr;
    if (m_bSaveAndValidate && control) {
        ::SetFocus(control);
        if (m_bEditLastControl)
            ::SendMessage(control, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl) {
    if (rControl.m_hWnd)
        return;
    if (!rControl.SubclassWindow(pDX->PrepareCtrl(nIDC)))
        AfxThrowNotSupportedException();
}

void DDX_Text(CDataExchange* pDX, int nIDC, CString& value) {
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = textOf(control);
    else
        setText(control, value);
}

void DDX_Text(CDataExchange* pDX, int nIDC, int& value) {
    exchangeInteger(pDX, nIDC, value, L"%d", AFX_IDP_PARSE_INT);
}

void DDX_Text(CDataExchange* pDX, int nIDC, UINT& value) {
    exchangeInteger(pDX, nIDC, value, L"%u", AFX_IDP_PARSE_UINT);
}

void DDX_Text(CDataExchange* pDX, int nIDC, long& value) {
    exchangeInteger(pDX, nIDC, value, L"%ld", AFX_IDP_PARSE_INT);
}

void DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value) {
    exchangeInteger(pDX, nIDC, value, L"%lu", AFX_IDP_PARSE_UINT);
}

void DDX_Text(CDataExchange* pDX, int nIDC, double& value) {
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (!pDX->m_bSaveAndValidate) {
        CString text;
        text.Format(L"%.*g", DBL_DIG, value);
        setText(control, text);
        return;
    }
    const CString text = textOf(control);
    LPTSTR end = nullptr;
    const double read = std::wcstod(text, &end);
    if (end == text.GetString() || !isBlank(end))
        refuse(pDX, AFX_IDP_PARSE_REAL);
    value = read;
}

void DDX_Check(CDataExchange* pDX, int nIDC, int& value) {
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate) {
        value = ask(control, BM_GETCHECK);
        return;
    }
    const bool known = value >= BST_UNCHECKED && value <= BST_INDETERMINATE;
    ask(control, BM_SETCHECK, static_cast<WPARAM>(known ? value : BST_UNCHECKED));
}

void DDX_Radio(CDataExchange* pDX, int nIDC, int& value) {
    HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = -1;
    int button = 0;
    do {
        if (isRadioButton(control)) {
            if (!pDX->m_bSaveAndValidate)
                ask(control, BM_SETCHECK, button == value ? BST_CHECKED : BST_UNCHECKED);
            else if (ask(control, BM_GETCHECK) != BST_UNCHECKED)
                value = button;
            ++button;
        }
        control = ::GetWindow(control, GW_HWNDNEXT);
    } while (control && !startsGroup(control));
}

void DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index) {
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        index = ask(control, CB_GETCURSEL);
    else
        ask(control, CB_SETCURSEL, static_cast<WPARAM>(index));
}

void DDX_CBString(CDataExchange* pDX, int nIDC, CString& value) {
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = textOf(control);
    else if (ask(control, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(value.GetString())) ==
             CB_ERR)
        setText(control, value);
}

void DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index) {
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        index = ask(control, LB_GETCURSEL);
    else
        ask(control, LB_SETCURSEL, static_cast<WPARAM>(index));
}

void DDX_LBString(CDataExchange* pDX, int nIDC, CString& value) {
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (!pDX->m_bSaveAndValidate) {
        ask(control, LB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(value.GetString()));
        return;
    }
    value.Empty();
    const int index = ask(control, LB_GETCURSEL);
    if (index != LB_ERR)
        static_cast<CListBox*>(CWnd::FromHandle(control))->GetText(index, value);
}

void DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars) {
    if (pDX->m_bSaveAndValidate) {
        if (value.GetLength() <= nChars)
            return;
        CString prompt;
        AfxFormatString1(prompt, AFX_IDP_PARSE_STRING_SIZE, number(nChars));
        refuse(pDX, prompt);
    }
    if (pDX->m_idLastControl && pDX->m_bEditLastControl)
        pDX->m_pDlgWnd->SendDlgItemMessage(pDX->m_idLastControl, EM_SETLIMITTEXT, static_cast<WPARAM>(nChars));
}

void DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal) {
    if (!pDX->m_bSaveAndValidate || (value >= minVal && value <= maxVal))
        return;
    CString prompt;
    AfxFormatString2(prompt, AFX_IDP_PARSE_INT_RANGE, number(minVal), number(maxVal));
    refuse(pDX, prompt);
}

#include "MessageBoxes.h"

void showFailure(const CWnd& owner, const wchar_t* text) {
    ::MessageBoxW(owner.m_hWnd, text, nullptr, MB_ICONEXCLAMATION | MB_OK);
}

bool askYesNo(const CWnd& owner, const wchar_t* question) {
    CString title;
    owner.GetWindowText(title); // without one the system would head the question with its word for an error
    return ::MessageBoxW(owner.m_hWnd, question, title, MB_ICONQUESTION | MB_YESNO) != IDNO;
}

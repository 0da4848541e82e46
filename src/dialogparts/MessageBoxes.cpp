#include "MessageBoxes.h"

void showFailure(const CWnd& owner, const wchar_t* text) {
    ::MessageBoxW(owner.m_hWnd, text, nullptr, MB_ICONEXCLAMATION | MB_OK);
}

bool askYesNo(const CWnd& owner, const wchar_t* question) {
    CString title;
    owner.GetWindowText(title); // without one the system would head the question with its word for an error
    int answer = IDCANCEL;
    // A box without Cancel has no such answer, but on Wine Esc gives it and closes the box. The question is put again.
    while (answer == IDCANCEL)
        answer = ::MessageBoxW(owner.m_hWnd, question, title, MB_ICONQUESTION | MB_YESNO);
    return answer != IDNO;
}

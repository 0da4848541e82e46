#include "MessageBoxes.h"

void showFailure(const CWnd& owner, const wchar_t* text) {
    ::MessageBoxW(owner.m_hWnd, text, nullptr, MB_ICONEXCLAMATION | MB_OK);
}

bool askYesNo(const CWnd& owner, const wchar_t* question) {
    return ::MessageBoxW(owner.m_hWnd, question, nullptr, MB_ICONQUESTION | MB_YESNO) != IDNO;
}

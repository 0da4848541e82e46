// CString's formatting members that need no resources.
#include "afx.h"

#include "WideFormat.h"

void CString::FormatV(LPCTSTR pszFormat, va_list args) {
    // Into a new string, because an argument may be this string's own text.
    std::wstring text;
    kelmfc::AppendFormatted(text, pszFormat, args);
    m_text = std::move(text);
}

void CString::AppendFormatV(LPCTSTR pszFormat, va_list args) {
    std::wstring text;
    kelmfc::AppendFormatted(text, pszFormat, args);
    m_text += text;
}

void CString::Format(LPCTSTR pszFormat, ...) {
    va_list args;
    va_start(args, pszFormat);
    FormatV(pszFormat, args);
    va_end(args);
}

void CString::AppendFormat(LPCTSTR pszFormat, ...) {
    va_list args;
    va_start(args, pszFormat);
    AppendFormatV(pszFormat, args);
    va_end(args);
}

// CString's part that needs Windows: texts and formats from string resources, and the system's own formatting.
#include <afxwin.h>

namespace {

// A module's strings lie in blocks of 16, each a length and as many characters.
LPCWSTR stringInBlock(LPCWSTR block, UINT id) {
    for (UINT before = id % 16; before > 0; --before)
        block += 1 + *block;
    return block;
}

} // namespace

// A string that isn't there leaves the text as it was.
BOOL CString::LoadString(UINT nID) {
    CString text;
    for (int capacity = 256;; capacity *= 2) {
        const int length = AfxLoadString(nID, text.GetBuffer(capacity), static_cast<UINT>(capacity));
        text.ReleaseBuffer(length);
        if (length >= capacity - 1)
            continue;
        if (length > 0)
            *this = text;
        return length > 0;
    }
}

BOOL CString::LoadString(HINSTANCE hInstance, UINT nID) {
    // Without a buffer the system answers where the string lies in the resource.
    LPCWSTR text = nullptr;
    const int length = ::LoadString(hInstance, nID, reinterpret_cast<LPWSTR>(&text), 0);
    if (length > 0)
        SetString(text, length);
    return length > 0;
}

BOOL CString::LoadString(HINSTANCE hInstance, UINT nID, WORD wLanguageID) {
    const HRSRC found = ::FindResourceEx(hInstance, RT_STRING, MAKEINTRESOURCE(nID / 16 + 1), wLanguageID);
    const HGLOBAL loaded = found ? ::LoadResource(hInstance, found) : nullptr;
    if (!loaded)
        return FALSE;
    const LPCWSTR text = stringInBlock(static_cast<LPCWSTR>(::LockResource(loaded)), nID);
    if (*text > 0)
        SetString(text + 1, *text);
    return *text > 0;
}

void CString::Format(UINT nFormatID, ...) {
    CString format;
    VERIFY(format.LoadString(nFormatID));
    va_list args;
    va_start(args, nFormatID);
    FormatV(format, args);
    va_end(args);
}

void CString::AppendFormat(UINT nFormatID, ...) {
    CString format;
    VERIFY(format.LoadString(nFormatID));
    va_list args;
    va_start(args, nFormatID);
    AppendFormatV(format, args);
    va_end(args);
}

void CString::FormatMessageV(LPCTSTR pszFormat, va_list* pArgs) {
    LPTSTR text = nullptr;
    ::SetLastError(ERROR_SUCCESS);
    const DWORD length = ::FormatMessage(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER, pszFormat, 0, 0,
                                         reinterpret_cast<LPTSTR>(&text), 0, pArgs);
    // 0 is also the length of an empty result.
    if (length == 0 && ::GetLastError() != ERROR_SUCCESS)
        return;
    SetString(text, static_cast<int>(length));
    ::LocalFree(text);
}

void CString::FormatMessage(LPCTSTR pszFormat, ...) {
    va_list args;
    va_start(args, pszFormat);
    FormatMessageV(pszFormat, &args);
    va_end(args);
}

void CString::FormatMessage(UINT nFormatID, ...) {
    CString format;
    VERIFY(format.LoadString(nFormatID));
    va_list args;
    va_start(args, nFormatID);
    FormatMessageV(format, &args);
    va_end(args);
}

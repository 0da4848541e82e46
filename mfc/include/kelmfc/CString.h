// CString: MFC's wide string with its documented members. Formats have Microsoft's meaning in both tiers (%s wide, %S
// narrow, %ld 32 bits).
// Narrower than MFC: no narrow CStringA; narrow text is converted by the system's code page on Windows and read as
// UTF-8 elsewhere; a copy copies the characters (nothing is shared); a CString can't be passed through "..." uncast.
#pragma once

#include "CObject.h"

#include <cstdarg>
#include <string>

class AFXMFC_API CString {
  public:
    using XCHAR = TCHAR;
    using PCXSTR = LPCTSTR;
    using PXSTR = LPTSTR;

    CString() = default;
    CString(const CString&) = default;
    CString(CString&& other) noexcept;
    /// Null gives the empty string. On Windows a pointer made by MAKEINTRESOURCE loads that string resource.
    CString(LPCTSTR psz);
    CString(LPCSTR psz);
    CString(const unsigned char* psz);
    CString(LPCTSTR pch, int nLength);
    CString(LPCSTR pch, int nLength);
    explicit CString(TCHAR ch, int nRepeat = 1);
    ~CString() = default;

    CString& operator=(const CString&) = default;
    CString& operator=(CString&& other) noexcept;
    CString& operator=(LPCTSTR psz);
    CString& operator=(LPCSTR psz);
    CString& operator=(TCHAR ch);

    CString& operator+=(const CString& str);
    CString& operator+=(LPCTSTR psz);
    CString& operator+=(LPCSTR psz);
    CString& operator+=(TCHAR ch);

    operator LPCTSTR() const noexcept { return m_text.c_str(); }
    LPCTSTR GetString() const noexcept { return m_text.c_str(); }
    int GetLength() const noexcept { return static_cast<int>(m_text.size()); }
    int GetAllocLength() const noexcept { return static_cast<int>(m_text.capacity()); }
    BOOL IsEmpty() const noexcept { return m_text.empty() ? TRUE : FALSE; }
    void Empty() noexcept { m_text.clear(); }
    /// The index may be GetLength(), which answers the terminating null.
    TCHAR GetAt(int iChar) const;
    TCHAR operator[](int iChar) const { return GetAt(iChar); }
    void SetAt(int iChar, TCHAR ch);
    void SetString(LPCTSTR psz);
    void SetString(LPCTSTR pch, int nLength);
    void Append(LPCTSTR psz);
    void Append(LPCTSTR pch, int nLength);
    void Append(const CString& str);
    void AppendChar(TCHAR ch);
    void Truncate(int nNewLength);
    void Preallocate(int nLength);
    void FreeExtra();

    /// Room for at least `nMinBufferLength` characters and the null, to be written to until ReleaseBuffer.
    LPTSTR GetBuffer(int nMinBufferLength = 0);
    LPTSTR GetBufferSetLength(int nLength);
    /// -1 takes the length up to the first null.
    void ReleaseBuffer(int nNewLength = -1);
    void ReleaseBufferSetLength(int nNewLength) { ReleaseBuffer(nNewLength); }

    // Case is folded by the C library's current locale, as in MFC.
    int Compare(LPCTSTR psz) const;
    int CompareNoCase(LPCTSTR psz) const;
    int Collate(LPCTSTR psz) const;
    int CollateNoCase(LPCTSTR psz) const;
    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();

    // Positions and counts outside the string are cut to it.
    CString Mid(int iFirst) const;
    CString Mid(int iFirst, int nCount) const;
    CString Left(int nCount) const;
    CString Right(int nCount) const;
    CString SpanIncluding(LPCTSTR pszCharSet) const;
    CString SpanExcluding(LPCTSTR pszCharSet) const;

    // Index of what was found, or -1.
    int Find(LPCTSTR pszSub, int iStart = 0) const;
    int Find(TCHAR ch, int iStart = 0) const;
    int ReverseFind(TCHAR ch) const;
    int FindOneOf(LPCTSTR pszCharSet) const;
    /// The next token from `iStart`, which moves past it; -1 in `iStart` when there is none left.
    CString Tokenize(LPCTSTR pszTokens, int& iStart) const;

    CString& Trim();
    CString& Trim(TCHAR ch);
    CString& Trim(LPCTSTR pszTargets);
    CString& TrimLeft();
    CString& TrimLeft(TCHAR ch);
    CString& TrimLeft(LPCTSTR pszTargets);
    CString& TrimRight();
    CString& TrimRight(TCHAR ch);
    CString& TrimRight(LPCTSTR pszTargets);

    // Replace and Remove answer the number of changes, Insert and Delete the new length.
    int Replace(TCHAR chOld, TCHAR chNew);
    int Replace(LPCTSTR pszOld, LPCTSTR pszNew);
    int Remove(TCHAR ch);
    int Insert(int iIndex, TCHAR ch);
    int Insert(int iIndex, LPCTSTR psz);
    int Delete(int iIndex, int nCount = 1);

    void Format(LPCTSTR pszFormat, ...);
    void FormatV(LPCTSTR pszFormat, va_list args);
    void AppendFormat(LPCTSTR pszFormat, ...);
    void AppendFormatV(LPCTSTR pszFormat, va_list args);

#ifdef _WIN32
    // The formats below come from string resources, which AfxFindResourceHandle finds.
    void Format(UINT nFormatID, ...);
    void AppendFormat(UINT nFormatID, ...);
    /// Inserts with the system's %1 to %99; nothing changes when the system refuses the format.
    void FormatMessage(LPCTSTR pszFormat, ...);
    void FormatMessage(UINT nFormatID, ...);
    void FormatMessageV(LPCTSTR pszFormat, va_list* pArgs);
    /// FALSE when there is no such string; the text stays as it was.
    BOOL LoadString(UINT nID);
    BOOL LoadString(HINSTANCE hInstance, UINT nID);
    BOOL LoadString(HINSTANCE hInstance, UINT nID, WORD wLanguageID);
#endif

    friend AFXMFC_API CString operator+(const CString& left, const CString& right);
    friend AFXMFC_API CString operator+(const CString& left, LPCTSTR right);
    friend AFXMFC_API CString operator+(LPCTSTR left, const CString& right);
    friend AFXMFC_API CString operator+(const CString& left, TCHAR right);
    friend AFXMFC_API CString operator+(TCHAR left, const CString& right);

  private:
    explicit CString(std::wstring text) noexcept;

    std::wstring m_text;
};

AFXMFC_API CString operator+(const CString& left, const CString& right);
AFXMFC_API CString operator+(const CString& left, LPCTSTR right);
AFXMFC_API CString operator+(LPCTSTR left, const CString& right);
AFXMFC_API CString operator+(const CString& left, TCHAR right);
AFXMFC_API CString operator+(TCHAR left, const CString& right);

#define KELMFC_STRING_COMPARISON(op)                                                                                   \
    inline bool operator op(const CString& left, const CString& right) {                                               \
        return left.Compare(right) op 0;                                                                               \
    }                                                                                                                  \
    inline bool operator op(const CString& left, LPCTSTR right) {                                                      \
        return left.Compare(right) op 0;                                                                               \
    }                                                                                                                  \
    inline bool operator op(LPCTSTR left, const CString& right) {                                                      \
        return 0 op right.Compare(left);                                                                               \
    }
KELMFC_STRING_COMPARISON(==)
KELMFC_STRING_COMPARISON(!=)
KELMFC_STRING_COMPARISON(<)
KELMFC_STRING_COMPARISON(<=)
KELMFC_STRING_COMPARISON(>)
KELMFC_STRING_COMPARISON(>=)
#undef KELMFC_STRING_COMPARISON

using CStringW = CString;

// CString: construction, access, comparison, searching and editing. Formatting is in CStringFormat.cpp.
#include "afx.h"

#include "WideFormat.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <cwctype>

namespace {

std::size_t Size(int count) {
    return static_cast<std::size_t>(std::max(count, 0));
}
int Found(std::size_t position) {
    return position == std::wstring::npos ? -1 : static_cast<int>(position);
}
LPCTSTR Safe(LPCTSTR text) {
    return text ? text : L"";
}
std::wstring Wide(LPCSTR text) {
    return text ? kelmfc::Widen(text, std::strlen(text)) : std::wstring();
}
TCHAR Upper(TCHAR ch) {
    return static_cast<TCHAR>(std::towupper(static_cast<std::wint_t>(ch)));
}
TCHAR Lower(TCHAR ch) {
    return static_cast<TCHAR>(std::towlower(static_cast<std::wint_t>(ch)));
}

std::wstring Folded(LPCTSTR text) {
    std::wstring folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), Lower);
    return folded;
}

std::wstring Whitespace(const std::wstring& text) {
    std::wstring found;
    for (const TCHAR ch : text)
        if (std::iswspace(static_cast<std::wint_t>(ch)))
            found += ch;
    return found;
}

} // namespace

CString::CString(std::wstring text) noexcept : m_text(std::move(text)) {}
CString::CString(CString&& other) noexcept : m_text(std::exchange(other.m_text, std::wstring())) {}
CString::CString(LPCSTR psz) : m_text(Wide(psz)) {}
CString::CString(const unsigned char* psz) : CString(reinterpret_cast<LPCSTR>(psz)) {}
CString::CString(LPCTSTR pch, int nLength) : m_text(Safe(pch), pch ? Size(nLength) : 0) {}
CString::CString(LPCSTR pch, int nLength) : m_text(pch ? kelmfc::Widen(pch, Size(nLength)) : std::wstring()) {}
CString::CString(TCHAR ch, int nRepeat) : m_text(Size(nRepeat), ch) {}

CString::CString(LPCTSTR psz) {
#ifdef _WIN32
    if (psz && IS_INTRESOURCE(psz)) {
        LoadString(static_cast<UINT>(reinterpret_cast<UINT_PTR>(psz)));
        return;
    }
#endif
    m_text = Safe(psz);
}

CString& CString::operator=(CString&& other) noexcept {
    if (this != &other)
        m_text = std::exchange(other.m_text, std::wstring());
    return *this;
}

CString& CString::operator=(LPCTSTR psz) {
    SetString(psz);
    return *this;
}

CString& CString::operator=(LPCSTR psz) {
    m_text = Wide(psz);
    return *this;
}

CString& CString::operator=(TCHAR ch) {
    m_text.assign(1, ch);
    return *this;
}

CString& CString::operator+=(const CString& str) {
    m_text += str.m_text;
    return *this;
}

CString& CString::operator+=(LPCTSTR psz) {
    m_text += Safe(psz);
    return *this;
}

CString& CString::operator+=(LPCSTR psz) {
    m_text += Wide(psz);
    return *this;
}

CString& CString::operator+=(TCHAR ch) {
    m_text += ch;
    return *this;
}

CString operator+(const CString& left, const CString& right) {
    return CString(left.m_text + right.m_text);
}
CString operator+(const CString& left, LPCTSTR right) {
    return CString(left.m_text + Safe(right));
}
CString operator+(LPCTSTR left, const CString& right) {
    return CString(Safe(left) + right.m_text);
}
CString operator+(const CString& left, TCHAR right) {
    return CString(left.m_text + right);
}
CString operator+(TCHAR left, const CString& right) {
    return CString(left + right.m_text);
}

TCHAR CString::GetAt(int iChar) const {
    ASSERT(iChar >= 0 && iChar <= GetLength());
    return m_text[Size(iChar)];
}

void CString::SetAt(int iChar, TCHAR ch) {
    ASSERT(iChar >= 0 && iChar < GetLength());
    m_text[Size(iChar)] = ch;
}

void CString::SetString(LPCTSTR psz) {
    m_text = Safe(psz);
}
void CString::SetString(LPCTSTR pch, int nLength) {
    m_text.assign(Safe(pch), pch ? Size(nLength) : 0);
}
void CString::Append(LPCTSTR psz) {
    m_text += Safe(psz);
}
void CString::Append(LPCTSTR pch, int nLength) {
    m_text.append(Safe(pch), pch ? Size(nLength) : 0);
}
void CString::Append(const CString& str) {
    m_text += str.m_text;
}
void CString::AppendChar(TCHAR ch) {
    m_text += ch;
}
void CString::Truncate(int nNewLength) {
    m_text.resize(std::min(Size(nNewLength), m_text.size()));
}
void CString::Preallocate(int nLength) {
    m_text.reserve(Size(nLength));
}
void CString::FreeExtra() {
    m_text.shrink_to_fit();
}

LPTSTR CString::GetBuffer(int nMinBufferLength) {
    if (Size(nMinBufferLength) > m_text.size())
        m_text.resize(Size(nMinBufferLength));
    return m_text.data();
}

LPTSTR CString::GetBufferSetLength(int nLength) {
    m_text.resize(Size(nLength));
    return m_text.data();
}

void CString::ReleaseBuffer(int nNewLength) {
    m_text.resize(nNewLength < 0 ? std::wcslen(m_text.c_str()) : Size(nNewLength));
}

int CString::Compare(LPCTSTR psz) const {
    return std::wcscmp(m_text.c_str(), Safe(psz));
}
int CString::CompareNoCase(LPCTSTR psz) const {
    LPCTSTR left = m_text.c_str();
    for (LPCTSTR right = Safe(psz);; ++left, ++right) {
        const TCHAR ours = Lower(*left), theirs = Lower(*right);
        if (ours != theirs)
            return ours < theirs ? -1 : 1;
        if (!ours)
            return 0;
    }
}
int CString::Collate(LPCTSTR psz) const {
    return std::wcscoll(m_text.c_str(), Safe(psz));
}
int CString::CollateNoCase(LPCTSTR psz) const {
    return std::wcscoll(Folded(m_text.c_str()).c_str(), Folded(Safe(psz)).c_str());
}

CString& CString::MakeUpper() {
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), Upper);
    return *this;
}

CString& CString::MakeLower() {
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), Lower);
    return *this;
}

CString& CString::MakeReverse() {
    std::reverse(m_text.begin(), m_text.end());
    return *this;
}

CString CString::Mid(int iFirst) const {
    return Mid(iFirst, GetLength());
}

CString CString::Mid(int iFirst, int nCount) const {
    const std::size_t first = std::min(Size(iFirst), m_text.size());
    return CString(m_text.substr(first, Size(nCount)));
}

CString CString::Left(int nCount) const {
    return CString(m_text.substr(0, Size(nCount)));
}

CString CString::Right(int nCount) const {
    const std::size_t count = std::min(Size(nCount), m_text.size());
    return CString(m_text.substr(m_text.size() - count));
}

CString CString::SpanIncluding(LPCTSTR pszCharSet) const {
    return CString(m_text.substr(0, m_text.find_first_not_of(Safe(pszCharSet))));
}

CString CString::SpanExcluding(LPCTSTR pszCharSet) const {
    return CString(m_text.substr(0, m_text.find_first_of(Safe(pszCharSet))));
}

int CString::Find(LPCTSTR pszSub, int iStart) const {
    if (!pszSub || iStart < 0 || iStart > GetLength())
        return -1;
    return Found(m_text.find(pszSub, Size(iStart)));
}

int CString::Find(TCHAR ch, int iStart) const {
    return iStart < 0 ? -1 : Found(m_text.find(ch, Size(iStart)));
}
int CString::ReverseFind(TCHAR ch) const {
    return Found(m_text.rfind(ch));
}
int CString::FindOneOf(LPCTSTR pszCharSet) const {
    return Found(m_text.find_first_of(Safe(pszCharSet)));
}

CString CString::Tokenize(LPCTSTR pszTokens, int& iStart) const {
    ASSERT(iStart >= 0);
    const LPCTSTR tokens = Safe(pszTokens);
    const std::size_t first = iStart < 0 ? std::wstring::npos : m_text.find_first_not_of(tokens, Size(iStart));
    if (first == std::wstring::npos) {
        iStart = -1;
        return CString();
    }
    const std::size_t end = std::min(m_text.find_first_of(tokens, first), m_text.size());
    iStart = static_cast<int>(end) + 1;
    return CString(m_text.substr(first, end - first));
}

CString& CString::Trim() {
    return TrimRight().TrimLeft();
}
CString& CString::Trim(TCHAR ch) {
    return TrimRight(ch).TrimLeft(ch);
}
CString& CString::Trim(LPCTSTR pszTargets) {
    return TrimRight(pszTargets).TrimLeft(pszTargets);
}
CString& CString::TrimLeft() {
    return TrimLeft(Whitespace(m_text).c_str());
}
CString& CString::TrimRight() {
    return TrimRight(Whitespace(m_text).c_str());
}

CString& CString::TrimLeft(TCHAR ch) {
    m_text.erase(0, std::min(m_text.find_first_not_of(ch), m_text.size()));
    return *this;
}

CString& CString::TrimLeft(LPCTSTR pszTargets) {
    m_text.erase(0, std::min(m_text.find_first_not_of(Safe(pszTargets)), m_text.size()));
    return *this;
}

CString& CString::TrimRight(TCHAR ch) {
    m_text.erase(m_text.find_last_not_of(ch) + 1);
    return *this;
}

CString& CString::TrimRight(LPCTSTR pszTargets) {
    m_text.erase(m_text.find_last_not_of(Safe(pszTargets)) + 1);
    return *this;
}

int CString::Replace(TCHAR chOld, TCHAR chNew) {
    const auto count = chOld == chNew ? 0 : std::count(m_text.begin(), m_text.end(), chOld);
    std::replace(m_text.begin(), m_text.end(), chOld, chNew);
    return static_cast<int>(count);
}

int CString::Replace(LPCTSTR pszOld, LPCTSTR pszNew) {
    // Copies, because either text may be part of this string.
    const std::wstring from = Safe(pszOld);
    const std::wstring to = Safe(pszNew);
    int count = 0;
    if (from.empty())
        return 0;
    for (auto at = m_text.find(from); at != std::wstring::npos; at = m_text.find(from, at + to.size())) {
        m_text.replace(at, from.size(), to);
        ++count;
    }
    return count;
}

int CString::Remove(TCHAR ch) {
    return static_cast<int>(std::erase(m_text, ch));
}

int CString::Insert(int iIndex, TCHAR ch) {
    m_text.insert(std::min(Size(iIndex), m_text.size()), 1, ch);
    return GetLength();
}

int CString::Insert(int iIndex, LPCTSTR psz) {
    m_text.insert(std::min(Size(iIndex), m_text.size()), std::wstring(Safe(psz)));
    return GetLength();
}

int CString::Delete(int iIndex, int nCount) {
    const std::size_t first = std::min(Size(iIndex), m_text.size());
    m_text.erase(first, Size(nCount));
    return GetLength();
}

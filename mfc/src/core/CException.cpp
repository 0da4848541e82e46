#include "afx.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CResourceException, CSimpleException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CUserException, CSimpleException)

void CException::Delete() {
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) const {
    if (pnHelpContext)
        *pnHelpContext = 0;
    if (lpszError && nMaxError > 0)
        *lpszError = 0;
    return FALSE;
}

CSimpleException::CSimpleException(const CString& text, BOOL bAutoDelete) : CException(bAutoDelete), m_text(text) {}

BOOL CSimpleException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) const {
    CException::GetErrorMessage(lpszError, nMaxError, pnHelpContext);
    if (m_text.IsEmpty() || !lpszError || nMaxError == 0)
        return FALSE;
    const UINT count = std::min(static_cast<UINT>(m_text.GetLength()), nMaxError - 1);
    std::copy_n(m_text.GetString(), count, lpszError);
    lpszError[count] = 0;
    return TRUE;
}

CMemoryException::CMemoryException() : CSimpleException(L"Out of memory.") {}
CNotSupportedException::CNotSupportedException() : CSimpleException(L"An unsupported operation was attempted.") {}
CResourceException::CResourceException() : CSimpleException(L"A required resource was unavailable.") {}
CInvalidArgException::CInvalidArgException() : CSimpleException(L"An invalid argument was encountered.") {}
CUserException::CUserException() = default;

void AfxThrowMemoryException() {
    throw new CMemoryException;
}
void AfxThrowNotSupportedException() {
    throw new CNotSupportedException;
}
void AfxThrowResourceException() {
    throw new CResourceException;
}
void AfxThrowInvalidArgException() {
    throw new CInvalidArgException;
}
void AfxThrowUserException() {
    throw new CUserException;
}

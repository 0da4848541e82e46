// The exception classes. As in MFC they are thrown as pointers, and whoever catches one calls Delete() on it.
// Narrower than MFC: only the classes below; no TRY and CATCH macros.
#pragma once

#include "CString.h"

class AFXMFC_API CException : public CObject {
    DECLARE_DYNAMIC(CException)
  public:
    /// Says whether Delete() frees the object.
    explicit CException(BOOL bAutoDelete = TRUE) : m_bAutoDelete(bAutoDelete) {}
    void Delete();
    /// The text for people, cut to `nMaxError` characters with the null; FALSE when there is none.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const;
#ifdef _WIN32
    /// Shows the text in a message box, or the string resource `nMessageID` when there is no text.
    virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);
#endif

  private:
    BOOL m_bAutoDelete;
};

/// An exception whose text is known when it is made.
class AFXMFC_API CSimpleException : public CException {
    DECLARE_DYNAMIC(CSimpleException)
  public:
    explicit CSimpleException(const CString& text = CString(), BOOL bAutoDelete = TRUE);
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;

  private:
    CString m_text;
};

class AFXMFC_API CMemoryException : public CSimpleException {
    DECLARE_DYNAMIC(CMemoryException)
  public:
    CMemoryException();
};

class AFXMFC_API CNotSupportedException : public CSimpleException {
    DECLARE_DYNAMIC(CNotSupportedException)
  public:
    CNotSupportedException();
};

class AFXMFC_API CResourceException : public CSimpleException {
    DECLARE_DYNAMIC(CResourceException)
  public:
    CResourceException();
};

class AFXMFC_API CInvalidArgException : public CSimpleException {
    DECLARE_DYNAMIC(CInvalidArgException)
  public:
    CInvalidArgException();
};

/// Ends an operation of the user's after the user has been told why.
class AFXMFC_API CUserException : public CSimpleException {
    DECLARE_DYNAMIC(CUserException)
  public:
    CUserException();
};

[[noreturn]] AFXMFC_API void AfxThrowMemoryException();
[[noreturn]] AFXMFC_API void AfxThrowNotSupportedException();
[[noreturn]] AFXMFC_API void AfxThrowResourceException();
[[noreturn]] AFXMFC_API void AfxThrowInvalidArgException();
[[noreturn]] AFXMFC_API void AfxThrowUserException();

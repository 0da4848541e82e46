// Dialog data exchange: CDataExchange and the DDX_ functions that DoDataExchange calls, one for each control.
// Narrower than MFC: the functions below; DDV_MaxChars and DDV_MinMaxInt are the only checks.
#pragma once

#include "CWnd.h"

class AFXMFC_API CDataExchange {
  public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

    BOOL m_bSaveAndValidate; // TRUE: from the controls to the members
    CWnd* m_pDlgWnd;
    int m_idLastControl = 0;
    BOOL m_bEditLastControl = FALSE;

    /// The control; throws CNotSupportedException when the dialog has none of that id.
    HWND PrepareCtrl(int nIDC);
    /// The same for a control whose text is selected if its value is refused.
    HWND PrepareEditCtrl(int nIDC);
    /// Puts the focus on the last control and ends the exchange by CUserException.
    [[noreturn]] void Fail();
};

/// Subclasses the control the first time.
AFXMFC_API void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
AFXMFC_API void DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
// A text that is no number of the type is refused: the user is told, and the exchange fails.
AFXMFC_API void DDX_Text(CDataExchange* pDX, int nIDC, int& value);
AFXMFC_API void DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
AFXMFC_API void DDX_Text(CDataExchange* pDX, int nIDC, long& value);
AFXMFC_API void DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value);
AFXMFC_API void DDX_Text(CDataExchange* pDX, int nIDC, double& value);
AFXMFC_API void DDX_Check(CDataExchange* pDX, int nIDC, int& value);
/// `nIDC` is the first of the group; the value counts from 0, -1 is none.
AFXMFC_API void DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
AFXMFC_API void DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);
AFXMFC_API void DDX_CBString(CDataExchange* pDX, int nIDC, CString& value);
AFXMFC_API void DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index);
AFXMFC_API void DDX_LBString(CDataExchange* pDX, int nIDC, CString& value);
AFXMFC_API void DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars);
AFXMFC_API void DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);

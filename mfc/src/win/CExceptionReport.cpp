// How an exception is told to the user: the part of CException that needs Windows.
#include <afxwin.h>

int CException::ReportError(UINT nType, UINT nMessageID) {
    TCHAR text[512];
    if (GetErrorMessage(text, 512))
        return AfxMessageBox(text, nType);
    return AfxMessageBox(nMessageID ? nMessageID : AFX_IDP_NO_ERROR_AVAILABLE, nType);
}

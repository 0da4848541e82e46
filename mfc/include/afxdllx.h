// For the source file of an extension DLL that has the record and DllMain; see kelmfc/CDynLinkLibrary.h.
// Narrower than MFC: defines no entry point, the DLL writes DllMain itself.
#pragma once

#include "afxwin.h"

// Extension DLLs: DLLs that share this library's state with the program and put their resources into its search.
//   DllMain, DLL_PROCESS_ATTACH:  AfxInitExtensionModule(theRecord, hInstance); new CDynLinkLibrary(theRecord);
//   DllMain, DLL_PROCESS_DETACH:  AfxTermExtensionModule(theRecord);
// Narrower than MFC: no class factories or document templates in the record.
#pragma once

#include "CCmdTarget.h"

struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
};

/// An extension DLL in the search for resources. Made with `new` and left to AfxTermExtensionModule.
class AFXMFC_API CDynLinkLibrary : public CCmdTarget {
    DECLARE_DYNAMIC(CDynLinkLibrary)
  public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
    BOOL m_bSystem; // searched after those that aren't
};

/// Notes the module in the record, the first time.
AFXMFC_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
/// Deletes the CDynLinkLibrary objects of the module. There is one application state, so `bAll` changes nothing.
AFXMFC_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

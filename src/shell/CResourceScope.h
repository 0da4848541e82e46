// The guard that makes the module's texts and templates found: they are in the resource module, and the framework looks
// them up in the one module whose resource handle is current.
#pragma once

#include <afxwin.h>

/// Makes the resource module current for the guard's life, and puts back the one that was current before, also when an
/// exception passes. Every load of a string by id and every modal run of a dialog needs one around it.
class CResourceScope {
  public:
    CResourceScope();
    ~CResourceScope();
    CResourceScope(const CResourceScope&) = delete;
    CResourceScope& operator=(const CResourceScope&) = delete;

  private:
    HINSTANCE m_resourceModule;
    HINSTANCE m_previous;
};

/// The text of a resource string, loaded under a scope of its own; empty when there is no such string.
CString loadResourceString(UINT id);

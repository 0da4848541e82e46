// The guard without which none of the module's texts and templates are found: they lie in the resource module, and the
// framework looks them up in the one module that is current.
#pragma once

#include <afxwin.h>

/// Makes the resource module current for the guard's life, and puts back the one that was current before, also when an
/// exception passes. Every load of a string by id and every modal run of a dialog stands inside one.
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

#include "CResourceScope.h"

#include "ModuleHandles.h"

CResourceScope::CResourceScope() : m_resourceModule(g_resourceModule), m_previous(AfxGetResourceHandle()) {
    AfxSetResourceHandle(m_resourceModule);
}

CResourceScope::~CResourceScope() {
    AfxSetResourceHandle(m_previous);
}

CString loadResourceString(UINT id) {
    CResourceScope scope;
    CString text;
    static_cast<void>(text.LoadString(id)); // a missing string reads empty
    return text;
}

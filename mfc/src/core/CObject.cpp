// CObject and its run-time class information; the assertions' and traces' output.
#include "afx.h"

#include <cstdio>
#include <cstdlib>

const CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr, nullptr};

CObject::CObject() = default;
CObject::~CObject() = default;

CRuntimeClass* CObject::GetThisClass() {
    return const_cast<CRuntimeClass*>(&classCObject);
}
CRuntimeClass* CObject::GetRuntimeClass() const {
    return GetThisClass();
}
BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const {
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

CObject* CRuntimeClass::CreateObject() const {
    return m_pfnCreateObject ? m_pfnCreateObject() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const {
    for (const CRuntimeClass* at = this; at; at = at->m_pfnGetBaseClass ? at->m_pfnGetBaseClass() : nullptr)
        if (at == pBaseClass)
            return TRUE;
    return FALSE;
}

CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject) {
    return pObject && pObject->IsKindOf(pClass) ? pObject : nullptr;
}

const CObject* AfxDynamicDownCast(CRuntimeClass* pClass, const CObject* pObject) {
    return pObject && pObject->IsKindOf(pClass) ? pObject : nullptr;
}

void AfxAssertFailedLine(LPCSTR lpszFileName, int nLine) {
    std::fprintf(stderr, "%s:%d: assertion failed\n", lpszFileName, nLine);
    std::abort();
}

void AfxTrace(LPCTSTR lpszFormat, ...) {
    va_list args;
    va_start(args, lpszFormat);
    CString text;
    text.FormatV(lpszFormat, args);
    va_end(args);
#ifdef _WIN32
    OutputDebugString(text);
#else
    std::fprintf(stderr, "%ls", text.GetString());
#endif
}

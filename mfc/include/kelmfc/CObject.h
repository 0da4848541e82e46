// CObject and the run-time class information: DECLARE_DYNAMIC, DECLARE_DYNCREATE, IMPLEMENT_..., RUNTIME_CLASS.
// Base classes are named through functions, never through addresses of data, so that the information works across DLLs.
// Narrower than MFC: no serialization, no Dump and AssertValid, no CRuntimeClass::FromName.
#pragma once

#include "diagnostics.h"

#include <cstddef>
#include <new>

class CObject;

/// What DECLARE_DYNAMIC and DECLARE_DYNCREATE add to a class: its name, its base and, for the latter, how to make one.
struct AFXMFC_API CRuntimeClass {
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
    CObject* (*m_pfnCreateObject)();
    CRuntimeClass* (*m_pfnGetBaseClass)();

    /// A new object, which the caller deletes; null when the class wasn't declared with DECLARE_DYNCREATE.
    CObject* CreateObject() const;
    /// Whether the class is `pBaseClass` or derives from it.
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
};

/// The root of the hierarchy. Objects aren't copied unless a class says how.
class AFXMFC_API CObject {
  public:
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject();

    // As in MFC these hide the other forms: `new (std::nothrow)` of a derived class doesn't compile.
    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void* operator new(std::size_t, void* place) { return place; }
    static void operator delete(void* memory) { ::operator delete(memory); }
    static void operator delete(void*, void*) {}

    virtual CRuntimeClass* GetRuntimeClass() const;
    BOOL IsKindOf(const CRuntimeClass* pClass) const;
    static CRuntimeClass* GetThisClass();
    static const CRuntimeClass classCObject;

  protected:
    CObject();
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                                                                                    \
  public:                                                                                                              \
    static const CRuntimeClass class##class_name;                                                                      \
    static CRuntimeClass* GetThisClass();                                                                              \
    CRuntimeClass* GetRuntimeClass() const override;                                                                   \
                                                                                                                       \
  protected:                                                                                                           \
    static CRuntimeClass* _GetBaseClass();

#define DECLARE_DYNCREATE(class_name)                                                                                  \
    DECLARE_DYNAMIC(class_name)                                                                                        \
  public:                                                                                                              \
    static CObject* CreateObject();                                                                                    \
                                                                                                                       \
  protected:

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, pfnNew)                                           \
    CRuntimeClass* class_name::_GetBaseClass() {                                                                       \
        return RUNTIME_CLASS(base_class_name);                                                                         \
    }                                                                                                                  \
    const CRuntimeClass class_name::class##class_name = {#class_name, static_cast<int>(sizeof(class_name)), wSchema,   \
                                                         pfnNew, &class_name::_GetBaseClass};                          \
    CRuntimeClass* class_name::GetThisClass() {                                                                        \
        return const_cast<CRuntimeClass*>(&class_name::class##class_name);                                             \
    }                                                                                                                  \
    CRuntimeClass* class_name::GetRuntimeClass() const {                                                               \
        return class_name::GetThisClass();                                                                             \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                                 \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                               \
    CObject* class_name::CreateObject() {                                                                              \
        return new class_name;                                                                                         \
    }                                                                                                                  \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, class_name::CreateObject)

/// `pObject` when it is of the class, null otherwise.
AFXMFC_API CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject);
AFXMFC_API const CObject* AfxDynamicDownCast(CRuntimeClass* pClass, const CObject* pObject);

#define DYNAMIC_DOWNCAST(class_name, object)                                                                           \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)))
#define STATIC_DOWNCAST(class_name, object) (static_cast<class_name*>(object))

// The ready-made collections: CStringArray, CObArray, CPtrArray, CUIntArray, CDWordArray, CWordArray; CStringList,
// CObList, CPtrList. A list or array of pointers doesn't own what it points to. Wider than MFC: they derive from the
// templates of afxtempl.h.
#pragma once

#include "afxtempl.h"
#include "kelmfc/CString.h"

#define KELMFC_COLLECTION(name, base)                                                                                  \
    class AFXMFC_API name : public base {                                                                              \
        DECLARE_DYNCREATE(name)                                                                                        \
      public:                                                                                                          \
        using base::base;                                                                                              \
        name();                                                                                                        \
        ~name() override;                                                                                              \
    };

using CStringArrayBase = CArray<CString, const CString&>;
using CObArrayBase = CArray<CObject*, CObject*>;
using CPtrArrayBase = CArray<void*, void*>;
using CUIntArrayBase = CArray<UINT, UINT>;
using CDWordArrayBase = CArray<DWORD, DWORD>;
using CWordArrayBase = CArray<WORD, WORD>;
using CStringListBase = CList<CString, const CString&>;
using CObListBase = CList<CObject*, CObject*>;
using CPtrListBase = CList<void*, void*>;

KELMFC_COLLECTION(CStringArray, CStringArrayBase)
KELMFC_COLLECTION(CObArray, CObArrayBase)
KELMFC_COLLECTION(CPtrArray, CPtrArrayBase)
KELMFC_COLLECTION(CUIntArray, CUIntArrayBase)
KELMFC_COLLECTION(CDWordArray, CDWordArrayBase)
KELMFC_COLLECTION(CWordArray, CWordArrayBase)
KELMFC_COLLECTION(CStringList, CStringListBase)
KELMFC_COLLECTION(CPtrList, CPtrListBase)
#undef KELMFC_COLLECTION

/// Objects by pointer. Read through const it answers pointers to const, as in MFC.
class AFXMFC_API CObList : public CObListBase {
    DECLARE_DYNCREATE(CObList)
  public:
    using CObListBase::CObListBase;
    CObList();
    ~CObList() override;

    CObject*& GetHead() { return CObListBase::GetHead(); }
    const CObject* GetHead() const { return CObListBase::GetHead(); }
    CObject*& GetTail() { return CObListBase::GetTail(); }
    const CObject* GetTail() const { return CObListBase::GetTail(); }
    CObject*& GetNext(POSITION& rPosition) { return CObListBase::GetNext(rPosition); }
    const CObject* GetNext(POSITION& rPosition) const { return CObListBase::GetNext(rPosition); }
    CObject*& GetPrev(POSITION& rPosition) { return CObListBase::GetPrev(rPosition); }
    const CObject* GetPrev(POSITION& rPosition) const { return CObListBase::GetPrev(rPosition); }
    CObject*& GetAt(POSITION position) { return CObListBase::GetAt(position); }
    const CObject* GetAt(POSITION position) const { return CObListBase::GetAt(position); }
};

// Where the ready-made collections' run-time classes and virtual functions live, once for all DLLs.
#include "afx.h"

#define KELMFC_COLLECTION(name)                                                                                        \
    IMPLEMENT_DYNCREATE(name, CObject)                                                                                 \
    name::name() = default;                                                                                            \
    name::~name() = default;

KELMFC_COLLECTION(CStringArray)
KELMFC_COLLECTION(CObArray)
KELMFC_COLLECTION(CPtrArray)
KELMFC_COLLECTION(CUIntArray)
KELMFC_COLLECTION(CDWordArray)
KELMFC_COLLECTION(CWordArray)
KELMFC_COLLECTION(CStringList)
KELMFC_COLLECTION(CObList)
KELMFC_COLLECTION(CPtrList)

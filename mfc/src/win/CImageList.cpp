// Image lists and the map of their handles.
#include <afxcmn.h>

#include "HandleMap.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)

namespace {

using ImageListMap = kelmfc::HandleMap<CImageList, HIMAGELIST, &CImageList::m_hImageList>;

ImageListMap& theMap() {
    static ImageListMap& map = *new ImageListMap;
    return map;
}

} // namespace

CImageList* CImageList::FromHandle(HIMAGELIST hImageList) {
    if (!hImageList)
        return nullptr;
    if (CImageList* const list = theMap().permanent(hImageList))
        return list;
    if (CImageList* const list = theMap().temporary(hImageList))
        return list;
    return theMap().addTemporary(hImageList, new CImageList);
}

CImageList* CImageList::FromHandlePermanent(HIMAGELIST hImageList) {
    return theMap().permanent(hImageList);
}

void CImageList::DeleteTempMap() {
    theMap().deleteTemporary();
}

BOOL CImageList::Attach(HIMAGELIST hImageList) {
    ASSERT(!m_hImageList);
    if (!hImageList)
        return FALSE;
    theMap().attach(hImageList, this);
    return TRUE;
}

HIMAGELIST CImageList::Detach() {
    return m_hImageList ? theMap().detach(this) : nullptr;
}

BOOL CImageList::DeleteImageList() {
    return m_hImageList ? ::ImageList_Destroy(Detach()) : FALSE;
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask) {
    const HINSTANCE module = AfxFindResourceHandle(lpszBitmapID, RT_BITMAP);
    return Attach(ImageList_LoadBitmap(module, lpszBitmapID, cx, nGrow, crMask));
}

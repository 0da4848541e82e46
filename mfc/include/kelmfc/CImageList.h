// CImageList: owns its handle unless it was detached. A list view without LVS_SHAREIMAGELISTS deletes the list it was
// given, so detach from the CImageList first in that case.
#pragma once

#include "CDC.h"

#include <commctrl.h>

class AFXMFC_API CImageList : public CObject {
    DECLARE_DYNCREATE(CImageList)
  public:
    CImageList() = default;
    ~CImageList() override { DeleteImageList(); }

    HIMAGELIST m_hImageList = nullptr;

    operator HIMAGELIST() const { return m_hImageList; }
    HIMAGELIST GetSafeHandle() const { return m_hImageList; }
    static CImageList* FromHandle(HIMAGELIST hImageList);
    static CImageList* FromHandlePermanent(HIMAGELIST hImageList);
    static void DeleteTempMap();
    BOOL Attach(HIMAGELIST hImageList);
    HIMAGELIST Detach();
    BOOL DeleteImageList();

    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow) {
        return Attach(::ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
    }
    /// From a bitmap resource of images `cx` wide, found by AfxFindResourceHandle.
    BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask) {
        return Create(MAKEINTRESOURCE(nBitmapID), cx, nGrow, crMask);
    }
    BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
    int GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }
    int Add(CBitmap* pbmImage, CBitmap* pbmMask) {
        return ::ImageList_Add(m_hImageList, *pbmImage, pbmMask ? static_cast<HBITMAP>(*pbmMask) : nullptr);
    }
    int Add(CBitmap* pbmImage, COLORREF crMask) { return ::ImageList_AddMasked(m_hImageList, *pbmImage, crMask); }
    int Add(HICON hIcon) { return ::ImageList_ReplaceIcon(m_hImageList, -1, hIcon); }
    int Replace(int nImage, HICON hIcon) { return ::ImageList_ReplaceIcon(m_hImageList, nImage, hIcon); }
    BOOL Remove(int nImage) { return ::ImageList_Remove(m_hImageList, nImage); }
    HICON ExtractIcon(int nImage) { return ::ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL); }
    BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const {
        return ::ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
    }
    COLORREF SetBkColor(COLORREF cr) { return ::ImageList_SetBkColor(m_hImageList, cr); }
    COLORREF GetBkColor() const { return ::ImageList_GetBkColor(m_hImageList); }
    BOOL SetOverlayImage(int nImage, int nOverlay) {
        return ::ImageList_SetOverlayImage(m_hImageList, nImage, nOverlay);
    }
    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle) {
        return ::ImageList_Draw(m_hImageList, nImage, pDC->m_hDC, pt.x, pt.y, nStyle);
    }
    BOOL DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg, UINT nStyle) {
        return ::ImageList_DrawEx(m_hImageList, nImage, pDC->m_hDC, pt.x, pt.y, sz.cx, sz.cy, clrBk, clrFg, nStyle);
    }
};

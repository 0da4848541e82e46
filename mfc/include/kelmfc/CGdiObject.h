// The GDI objects. An object owns its handle: the destructor deletes it, Detach gives it away. FromHandle's answer is
// temporary (gone at the next idle) and owns nothing. An object that is still selected can't be deleted by GDI; see
// CDC. Narrower than MFC: no palettes, no elliptic or polygon regions beyond those below.
#pragma once

#include "CString.h"
#include "../atltypes.h"

class CBitmap;

class AFXMFC_API CGdiObject : public CObject {
    DECLARE_DYNCREATE(CGdiObject)
  public:
    CGdiObject() = default;
    ~CGdiObject() override;

    HGDIOBJ m_hObject = nullptr;

    operator HGDIOBJ() const { return m_hObject; }
    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    /// The object of that handle; a temporary one is made of the class that the handle's kind asks for.
    static CGdiObject* FromHandle(HGDIOBJ hObject);
    static void DeleteTempMap();
    BOOL Attach(HGDIOBJ hObject);
    HGDIOBJ Detach();
    BOOL DeleteObject();
    int GetObject(int nCount, LPVOID lpObject) const { return ::GetObject(m_hObject, nCount, lpObject); }
    UINT GetObjectType() const { return ::GetObjectType(m_hObject); }
    BOOL CreateStockObject(int nIndex) { return Attach(::GetStockObject(nIndex)); }
};

class AFXMFC_API CPen : public CGdiObject {
    DECLARE_DYNAMIC(CPen)
  public:
    CPen() = default;
    /// Throws CResourceException when GDI refuses.
    CPen(int nPenStyle, int nWidth, COLORREF crColor);
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
    static CPen* FromHandle(HPEN hPen) { return static_cast<CPen*>(CGdiObject::FromHandle(hPen)); }
    BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor) {
        return Attach(::CreatePen(nPenStyle, nWidth, crColor));
    }
    BOOL CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount, const DWORD* lpStyle) {
        return Attach(::ExtCreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle));
    }
    BOOL CreatePenIndirect(const LOGPEN* lpLogPen) { return Attach(::CreatePenIndirect(lpLogPen)); }
    int GetLogPen(LOGPEN* pLogPen) const { return GetObject(sizeof(LOGPEN), pLogPen); }
};

class AFXMFC_API CBrush : public CGdiObject {
    DECLARE_DYNAMIC(CBrush)
  public:
    CBrush() = default;
    // These throw CResourceException when GDI refuses.
    explicit CBrush(COLORREF crColor);
    CBrush(int nIndex, COLORREF crColor);
    explicit CBrush(CBitmap* pBitmap);
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    static CBrush* FromHandle(HBRUSH hBrush) { return static_cast<CBrush*>(CGdiObject::FromHandle(hBrush)); }
    BOOL CreateSolidBrush(COLORREF crColor) { return Attach(::CreateSolidBrush(crColor)); }
    BOOL CreateHatchBrush(int nIndex, COLORREF crColor) { return Attach(::CreateHatchBrush(nIndex, crColor)); }
    BOOL CreateBrushIndirect(const LOGBRUSH* lpLogBrush) { return Attach(::CreateBrushIndirect(lpLogBrush)); }
    BOOL CreatePatternBrush(CBitmap* pBitmap);
    BOOL CreateSysColorBrush(int nIndex) { return Attach(::GetSysColorBrush(nIndex)); }
    int GetLogBrush(LOGBRUSH* pLogBrush) const { return GetObject(sizeof(LOGBRUSH), pLogBrush); }
};

class AFXMFC_API CFont : public CGdiObject {
    DECLARE_DYNAMIC(CFont)
  public:
    CFont() = default;
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
    static CFont* FromHandle(HFONT hFont) { return static_cast<CFont*>(CGdiObject::FromHandle(hFont)); }
    BOOL CreateFontIndirect(const LOGFONT* lpLogFont) { return Attach(::CreateFontIndirect(lpLogFont)); }
    BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                    BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                    BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename);
    /// The size is in tenths of a point.
    BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName);
    int GetLogFont(LOGFONT* pLogFont) const { return GetObject(sizeof(LOGFONT), pLogFont); }
};

class AFXMFC_API CBitmap : public CGdiObject {
    DECLARE_DYNAMIC(CBitmap)
  public:
    CBitmap() = default;
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
    static CBitmap* FromHandle(HBITMAP hBitmap) { return static_cast<CBitmap*>(CGdiObject::FromHandle(hBitmap)); }
    // Found by AfxFindResourceHandle.
    BOOL LoadBitmap(LPCTSTR lpszResourceName);
    BOOL LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCE(nIDResource)); }
    BOOL LoadOEMBitmap(UINT nIDBitmap) { return Attach(::LoadBitmap(nullptr, MAKEINTRESOURCE(nIDBitmap))); }
    BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits) {
        return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
    }
    BOOL CreateBitmapIndirect(BITMAP* lpBitmap) { return Attach(::CreateBitmapIndirect(lpBitmap)); }
    BOOL CreateCompatibleBitmap(class CDC* pDC, int nWidth, int nHeight);
    int GetBitmap(BITMAP* pBitMap) const { return GetObject(sizeof(BITMAP), pBitMap); }
    DWORD GetBitmapBits(DWORD dwCount, LPVOID lpBits) const {
        return static_cast<DWORD>(::GetBitmapBits(*this, static_cast<LONG>(dwCount), lpBits));
    }
    DWORD SetBitmapBits(DWORD dwCount, const void* lpBits) {
        return static_cast<DWORD>(::SetBitmapBits(*this, dwCount, lpBits));
    }
};

class AFXMFC_API CRgn : public CGdiObject {
    DECLARE_DYNAMIC(CRgn)
  public:
    CRgn() = default;
    operator HRGN() const { return static_cast<HRGN>(m_hObject); }
    static CRgn* FromHandle(HRGN hRgn) { return static_cast<CRgn*>(CGdiObject::FromHandle(hRgn)); }
    BOOL CreateRectRgn(int x1, int y1, int x2, int y2) { return Attach(::CreateRectRgn(x1, y1, x2, y2)); }
    BOOL CreateRectRgnIndirect(LPCRECT lpRect) { return Attach(::CreateRectRgnIndirect(lpRect)); }
    BOOL CreateEllipticRgn(int x1, int y1, int x2, int y2) { return Attach(::CreateEllipticRgn(x1, y1, x2, y2)); }
    BOOL CreatePolygonRgn(const POINT* lpPoints, int nCount, int nMode) {
        return Attach(::CreatePolygonRgn(lpPoints, nCount, nMode));
    }
    int CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode) {
        return ::CombineRgn(*this, *pRgn1, pRgn2 ? static_cast<HRGN>(*pRgn2) : nullptr, nCombineMode);
    }
    int OffsetRgn(int x, int y) { return ::OffsetRgn(*this, x, y); }
    int GetRgnBox(LPRECT lpRect) const { return ::GetRgnBox(*this, lpRect); }
    BOOL PtInRegion(int x, int y) const { return ::PtInRegion(*this, x, y); }
    BOOL PtInRegion(POINT point) const { return PtInRegion(point.x, point.y); }
    BOOL RectInRegion(LPCRECT lpRect) const { return ::RectInRegion(*this, lpRect); }
};

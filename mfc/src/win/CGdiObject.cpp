// The GDI objects and the map of their handles.
#include <afxwin.h>

#include "HandleMap.h"

#include <cstdlib>

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

namespace {

using GdiMap = kelmfc::HandleMap<CGdiObject, HGDIOBJ, &CGdiObject::m_hObject>;

GdiMap& theMap() {
    static GdiMap& map = *new GdiMap;
    return map;
}

CRuntimeClass* classOf(HGDIOBJ handle) {
    switch (::GetObjectType(handle)) {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return RUNTIME_CLASS(CPen);
    case OBJ_BRUSH:
        return RUNTIME_CLASS(CBrush);
    case OBJ_FONT:
        return RUNTIME_CLASS(CFont);
    case OBJ_BITMAP:
        return RUNTIME_CLASS(CBitmap);
    case OBJ_REGION:
        return RUNTIME_CLASS(CRgn);
    default:
        return RUNTIME_CLASS(CGdiObject);
    }
}

CGdiObject* make(const CRuntimeClass* kind) {
    if (kind == RUNTIME_CLASS(CPen))
        return new CPen;
    if (kind == RUNTIME_CLASS(CBrush))
        return new CBrush;
    if (kind == RUNTIME_CLASS(CFont))
        return new CFont;
    if (kind == RUNTIME_CLASS(CBitmap))
        return new CBitmap;
    if (kind == RUNTIME_CLASS(CRgn))
        return new CRgn;
    return new CGdiObject;
}

void require(BOOL created) {
    if (!created)
        AfxThrowResourceException();
}

} // namespace

CGdiObject::~CGdiObject() {
    DeleteObject();
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ hObject) {
    if (!hObject)
        return nullptr;
    if (CGdiObject* const object = theMap().permanent(hObject))
        return object;
    // GDI reuses handles: before the next idle, a deleted object's may name a new object, perhaps of another kind.
    const CRuntimeClass* const kind = classOf(hObject);
    CGdiObject* const known = theMap().temporary(hObject);
    if (known && known->GetRuntimeClass() == kind)
        return known;
    return theMap().addTemporary(hObject, make(kind));
}

void CGdiObject::DeleteTempMap() {
    theMap().deleteTemporary();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject) {
    ASSERT(!m_hObject);
    if (!hObject)
        return FALSE;
    theMap().attach(hObject, this);
    return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
    return m_hObject ? theMap().detach(this) : nullptr;
}

BOOL CGdiObject::DeleteObject() {
    return m_hObject ? ::DeleteObject(Detach()) : FALSE;
}

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor) {
    require(CreatePen(nPenStyle, nWidth, crColor));
}

CBrush::CBrush(COLORREF crColor) {
    require(CreateSolidBrush(crColor));
}

CBrush::CBrush(int nIndex, COLORREF crColor) {
    require(CreateHatchBrush(nIndex, crColor));
}

CBrush::CBrush(CBitmap* pBitmap) {
    require(CreatePatternBrush(pBitmap));
}

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap) {
    return Attach(::CreatePatternBrush(*pBitmap));
}

BOOL CFont::CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                       BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                       BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename) {
    return Attach(::CreateFont(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic, bUnderline, cStrikeOut,
                               nCharSet, nOutPrecision, nClipPrecision, nQuality, nPitchAndFamily, lpszFacename));
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName) {
    CClientDC screen(nullptr);
    LOGFONT font = {};
    font.lfCharSet = DEFAULT_CHARSET;
    // A point is the 72nd part of an inch; a negative height is that of the characters without the leading.
    font.lfHeight = -::MulDiv(std::abs(nPointSize), screen.GetDeviceCaps(LOGPIXELSY), 720);
    lstrcpyn(font.lfFaceName, lpszFaceName, LF_FACESIZE);
    return CreateFontIndirect(&font);
}

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName) {
    return Attach(::LoadBitmap(AfxFindResourceHandle(lpszResourceName, RT_BITMAP), lpszResourceName));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight) {
    return Attach(::CreateCompatibleBitmap(pDC->m_hDC, nWidth, nHeight));
}

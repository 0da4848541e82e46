// Device contexts, the map of their handles, and the contexts that are borrowed from a window.
#include <afxwin.h>

#include "HandleMap.h"

IMPLEMENT_DYNCREATE(CDC, CObject)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

namespace {

using DcMap = kelmfc::HandleMap<CDC, HDC, &CDC::m_hDC>;

DcMap& theMap() {
    static DcMap& map = *new DcMap;
    return map;
}

HWND handleOf(const CWnd* window) {
    return window ? window->m_hWnd : nullptr;
}

void require(BOOL attached) {
    if (!attached)
        AfxThrowResourceException();
}

} // namespace

CDC::~CDC() {
    DeleteDC();
}

CDC* CDC::FromHandle(HDC hDC) {
    if (!hDC)
        return nullptr;
    if (CDC* const context = theMap().permanent(hDC))
        return context;
    if (CDC* const context = theMap().temporary(hDC))
        return context;
    CDC* const context = theMap().addTemporary(hDC, new CDC);
    context->m_hAttribDC = hDC;
    return context;
}

void CDC::DeleteTempMap() {
    theMap().deleteTemporary();
}

BOOL CDC::Attach(HDC hDC) {
    ASSERT(!m_hDC);
    if (!hDC)
        return FALSE;
    theMap().attach(hDC, this);
    m_hAttribDC = hDC;
    return TRUE;
}

HDC CDC::Detach() {
    m_hAttribDC = nullptr;
    return m_hDC ? theMap().detach(this) : nullptr;
}

BOOL CDC::DeleteDC() {
    return m_hDC ? ::DeleteDC(Detach()) : FALSE;
}

CWnd* CDC::GetWindow() const {
    return CWnd::FromHandle(::WindowFromDC(m_hDC));
}

CPoint CDC::SetBrushOrg(int x, int y) {
    CPoint before;
    ::SetBrushOrgEx(m_hDC, x, y, &before);
    return before;
}

CPoint CDC::SetViewportOrg(int x, int y) {
    CPoint before;
    ::SetViewportOrgEx(m_hDC, x, y, &before);
    return before;
}

CPoint CDC::GetViewportOrg() const {
    CPoint origin;
    ::GetViewportOrgEx(m_hDC, &origin);
    return origin;
}

CPoint CDC::OffsetViewportOrg(int nWidth, int nHeight) {
    CPoint before;
    ::OffsetViewportOrgEx(m_hDC, nWidth, nHeight, &before);
    return before;
}

CPoint CDC::SetWindowOrg(int x, int y) {
    CPoint before;
    ::SetWindowOrgEx(m_hDC, x, y, &before);
    return before;
}

CPoint CDC::GetWindowOrg() const {
    CPoint origin;
    ::GetWindowOrgEx(m_hDC, &origin);
    return origin;
}

CPoint CDC::GetCurrentPosition() const {
    CPoint position;
    ::GetCurrentPositionEx(m_hDC, &position);
    return position;
}

CPoint CDC::MoveTo(int x, int y) {
    CPoint before;
    ::MoveToEx(m_hDC, x, y, &before);
    return before;
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr) {
    ::SetBkColor(m_hDC, clr);
    ::ExtTextOut(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr) {
    FillSolidRect(CRect(CPoint(x, y), CSize(cx, cy)), clr);
}

void CDC::Draw3dRect(LPCRECT r, COLORREF clrTopLeft, COLORREF clrBottomRight) {
    Draw3dRect(r->left, r->top, r->right - r->left, r->bottom - r->top, clrTopLeft, clrBottomRight);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight) {
    FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
    FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
    FillSolidRect(x + cx, y, -1, cy, clrBottomRight);
    FillSolidRect(x, y + cy, cx, -1, clrBottomRight);
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const {
    CSize size;
    ::GetTextExtentPoint32(m_hDC, lpszString, nCount, &size);
    return size;
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(handleOf(pWnd)) {
    require(Attach(::GetDC(m_hWnd)));
}

CClientDC::~CClientDC() {
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(handleOf(pWnd)) {
    require(Attach(::GetWindowDC(m_hWnd)));
}

CWindowDC::~CWindowDC() {
    ::ReleaseDC(m_hWnd, Detach());
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_ps{}, m_hWnd(pWnd->m_hWnd) {
    require(Attach(::BeginPaint(m_hWnd, &m_ps)));
}

CPaintDC::~CPaintDC() {
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
}

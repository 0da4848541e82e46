// Device contexts. CDC deletes the context it created or was given by Attach; CClientDC, CWindowDC and CPaintDC give
// theirs back to the window. Select the former objects back (or RestoreDC) before the selected ones are deleted.
// Narrower than MFC: one handle serves for output and attributes; no metafiles, printing, palettes or paths.
#pragma once

#include "CGdiObject.h"

class CWnd;

class AFXMFC_API CDC : public CObject {
    DECLARE_DYNCREATE(CDC)
  public:
    CDC() = default;
    ~CDC() override;

    HDC m_hDC = nullptr;
    HDC m_hAttribDC = nullptr;

    operator HDC() const { return m_hDC; }
    HDC GetSafeHdc() const { return m_hDC; }
    /// Temporary, gone at the next idle; owns nothing.
    static CDC* FromHandle(HDC hDC);
    static void DeleteTempMap();
    BOOL Attach(HDC hDC);
    HDC Detach();
    BOOL CreateCompatibleDC(CDC* pDC) { return Attach(::CreateCompatibleDC(pDC ? pDC->m_hDC : nullptr)); }
    BOOL CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const DEVMODE* lpInitData) {
        return Attach(::CreateDC(lpszDriverName, lpszDeviceName, lpszOutput, lpInitData));
    }
    BOOL DeleteDC();
    CWnd* GetWindow() const;

    // The answer is the object selected before (temporary unless it is one of yours), null on failure.
    CPen* SelectObject(CPen* pPen) { return CPen::FromHandle(static_cast<HPEN>(Select(pPen))); }
    CBrush* SelectObject(CBrush* pBrush) { return CBrush::FromHandle(static_cast<HBRUSH>(Select(pBrush))); }
    CFont* SelectObject(CFont* pFont) { return CFont::FromHandle(static_cast<HFONT>(Select(pFont))); }
    CBitmap* SelectObject(CBitmap* pBitmap) { return CBitmap::FromHandle(static_cast<HBITMAP>(Select(pBitmap))); }
    /// The region's complexity.
    int SelectObject(CRgn* pRgn) { return static_cast<int>(reinterpret_cast<INT_PTR>(Select(pRgn))); }
    CGdiObject* SelectObject(CGdiObject* pObject) { return CGdiObject::FromHandle(Select(pObject)); }
    CGdiObject* SelectStockObject(int nIndex) {
        return CGdiObject::FromHandle(::SelectObject(m_hDC, ::GetStockObject(nIndex)));
    }
    CPen* GetCurrentPen() const { return CPen::FromHandle(static_cast<HPEN>(::GetCurrentObject(m_hDC, OBJ_PEN))); }
    CBrush* GetCurrentBrush() const {
        return CBrush::FromHandle(static_cast<HBRUSH>(::GetCurrentObject(m_hDC, OBJ_BRUSH)));
    }
    CFont* GetCurrentFont() const { return CFont::FromHandle(static_cast<HFONT>(::GetCurrentObject(m_hDC, OBJ_FONT))); }
    CBitmap* GetCurrentBitmap() const {
        return CBitmap::FromHandle(static_cast<HBITMAP>(::GetCurrentObject(m_hDC, OBJ_BITMAP)));
    }

    virtual int SaveDC() { return ::SaveDC(m_hDC); }
    virtual BOOL RestoreDC(int nSavedDC) { return ::RestoreDC(m_hDC, nSavedDC); }
    int GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hDC, nIndex); }

    // --- colours and modes: a setter answers the former value ---
    virtual COLORREF SetTextColor(COLORREF crColor) { return ::SetTextColor(m_hDC, crColor); }
    virtual COLORREF SetBkColor(COLORREF crColor) { return ::SetBkColor(m_hDC, crColor); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    int SetBkMode(int nBkMode) { return ::SetBkMode(m_hDC, nBkMode); }
    int GetBkMode() const { return ::GetBkMode(m_hDC); }
    int SetROP2(int nDrawMode) { return ::SetROP2(m_hDC, nDrawMode); }
    int GetROP2() const { return ::GetROP2(m_hDC); }
    int SetStretchBltMode(int nStretchMode) { return ::SetStretchBltMode(m_hDC, nStretchMode); }
    int SetPolyFillMode(int nPolyFillMode) { return ::SetPolyFillMode(m_hDC, nPolyFillMode); }
    UINT SetTextAlign(UINT nFlags) { return ::SetTextAlign(m_hDC, nFlags); }
    COLORREF SetDCBrushColor(COLORREF crColor) { return ::SetDCBrushColor(m_hDC, crColor); }
    COLORREF SetDCPenColor(COLORREF crColor) { return ::SetDCPenColor(m_hDC, crColor); }
    CPoint SetBrushOrg(int x, int y);
    CPoint SetBrushOrg(POINT point) { return SetBrushOrg(point.x, point.y); }

    // --- mapping ---
    virtual int SetMapMode(int nMapMode) { return ::SetMapMode(m_hDC, nMapMode); }
    int GetMapMode() const { return ::GetMapMode(m_hDC); }
    virtual CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
    CPoint GetViewportOrg() const;
    CPoint OffsetViewportOrg(int nWidth, int nHeight);
    CPoint SetWindowOrg(int x, int y);
    CPoint SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }
    CPoint GetWindowOrg() const;
    void DPtoLP(LPPOINT lpPoints, int nCount = 1) const { ::DPtoLP(m_hDC, lpPoints, nCount); }
    void DPtoLP(LPRECT lpRect) const { ::DPtoLP(m_hDC, reinterpret_cast<LPPOINT>(lpRect), 2); }
    void LPtoDP(LPPOINT lpPoints, int nCount = 1) const { ::LPtoDP(m_hDC, lpPoints, nCount); }
    void LPtoDP(LPRECT lpRect) const { ::LPtoDP(m_hDC, reinterpret_cast<LPPOINT>(lpRect), 2); }

    // --- clipping ---
    virtual int GetClipBox(LPRECT lpRect) const { return ::GetClipBox(m_hDC, lpRect); }
    int SelectClipRgn(CRgn* pRgn) { return ::SelectClipRgn(m_hDC, pRgn ? static_cast<HRGN>(*pRgn) : nullptr); }
    int IntersectClipRect(int x1, int y1, int x2, int y2) { return ::IntersectClipRect(m_hDC, x1, y1, x2, y2); }
    int IntersectClipRect(LPCRECT r) { return IntersectClipRect(r->left, r->top, r->right, r->bottom); }
    int ExcludeClipRect(int x1, int y1, int x2, int y2) { return ::ExcludeClipRect(m_hDC, x1, y1, x2, y2); }
    int ExcludeClipRect(LPCRECT r) { return ExcludeClipRect(r->left, r->top, r->right, r->bottom); }
    virtual BOOL RectVisible(LPCRECT lpRect) const { return ::RectVisible(m_hDC, lpRect); }

    // --- lines and shapes ---
    CPoint GetCurrentPosition() const;
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    BOOL Polyline(const POINT* lpPoints, int nCount) { return ::Polyline(m_hDC, lpPoints, nCount); }
    BOOL Polygon(const POINT* lpPoints, int nCount) { return ::Polygon(m_hDC, lpPoints, nCount); }
    BOOL Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }
    BOOL Rectangle(LPCRECT r) { return Rectangle(r->left, r->top, r->right, r->bottom); }
    BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3) {
        return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
    }
    BOOL Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }
    BOOL Ellipse(LPCRECT r) { return Ellipse(r->left, r->top, r->right, r->bottom); }
    BOOL Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4) {
        return ::Arc(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
    }
    void FillRect(LPCRECT lpRect, CBrush* pBrush) { ::FillRect(m_hDC, lpRect, *pBrush); }
    void FrameRect(LPCRECT lpRect, CBrush* pBrush) { ::FrameRect(m_hDC, lpRect, *pBrush); }
    void InvertRect(LPCRECT lpRect) { ::InvertRect(m_hDC, lpRect); }
    /// Leaves the background colour as `clr`, as MFC does.
    void FillSolidRect(LPCRECT lpRect, COLORREF clr);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
    void Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight);
    void Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight);
    BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) { return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags); }
    BOOL DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState) {
        return ::DrawFrameControl(m_hDC, lpRect, nType, nState);
    }
    void DrawFocusRect(LPCRECT lpRect) { ::DrawFocusRect(m_hDC, lpRect); }
    BOOL DrawIcon(int x, int y, HICON hIcon) { return ::DrawIcon(m_hDC, x, y, hIcon); }
    BOOL DrawIcon(POINT point, HICON hIcon) { return DrawIcon(point.x, point.y, hIcon); }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    COLORREF GetPixel(POINT point) const { return GetPixel(point.x, point.y); }
    COLORREF SetPixel(int x, int y, COLORREF crColor) { return ::SetPixel(m_hDC, x, y, crColor); }
    COLORREF SetPixel(POINT point, COLORREF crColor) { return SetPixel(point.x, point.y, crColor); }
    BOOL SetPixelV(int x, int y, COLORREF crColor) { return ::SetPixelV(m_hDC, x, y, crColor); }

    // --- bitmaps ---
    BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop) {
        return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
    }
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop) {
        return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC ? pSrcDC->m_hDC : nullptr, xSrc, ySrc, dwRop);
    }
    BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                    int nSrcHeight, DWORD dwRop) {
        return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC ? pSrcDC->m_hDC : nullptr, xSrc, ySrc, nSrcWidth,
                            nSrcHeight, dwRop);
    }

    // --- text ---
    virtual BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount) {
        return ::TextOut(m_hDC, x, y, lpszString, nCount);
    }
    BOOL TextOut(int x, int y, const CString& str) { return TextOut(x, y, str, str.GetLength()); }
    virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount,
                            LPINT lpDxWidths) {
        return ::ExtTextOut(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
    }
    BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str, LPINT lpDxWidths) {
        return ExtTextOut(x, y, nOptions, lpRect, str, static_cast<UINT>(str.GetLength()), lpDxWidths);
    }
    virtual int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat) {
        return ::DrawText(m_hDC, lpszString, nCount, lpRect, nFormat);
    }
    int DrawText(const CString& str, LPRECT lpRect, UINT nFormat) {
        return DrawText(str, str.GetLength(), lpRect, nFormat);
    }
    CSize GetTextExtent(LPCTSTR lpszString, int nCount) const;
    CSize GetTextExtent(const CString& str) const { return GetTextExtent(str, str.GetLength()); }
    BOOL GetTextMetrics(TEXTMETRIC* lpMetrics) const { return ::GetTextMetrics(m_hDC, lpMetrics); }

  private:
    HGDIOBJ Select(const CGdiObject* object) { return ::SelectObject(m_hDC, object ? object->m_hObject : nullptr); }
};

/// The client area of a window (null: the screen) while the object lives. Throws CResourceException without a context.
class AFXMFC_API CClientDC : public CDC {
    DECLARE_DYNAMIC(CClientDC)
  public:
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

  protected:
    HWND m_hWnd;
};

/// The whole of a window (null: the screen), frame included, while the object lives.
class AFXMFC_API CWindowDC : public CDC {
    DECLARE_DYNAMIC(CWindowDC)
  public:
    explicit CWindowDC(CWnd* pWnd);
    ~CWindowDC() override;

  protected:
    HWND m_hWnd;
};

/// BeginPaint to EndPaint; for WM_PAINT only.
class AFXMFC_API CPaintDC : public CDC {
    DECLARE_DYNAMIC(CPaintDC)
  public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

  protected:
    HWND m_hWnd;
};

// CSize, CPoint and CRect: Win32's SIZE, POINT and RECT with operators. Coordinates are whatever the caller measures
// in.
#pragma once

#include "kelmfc/platform.h"

class CPoint;
class CRect;

class CSize : public tagSIZE {
  public:
    CSize() : tagSIZE{0, 0} {}
    CSize(int initCX, int initCY) : tagSIZE{initCX, initCY} {}
    CSize(SIZE initSize) : tagSIZE(initSize) {}
    explicit CSize(POINT initPt) : tagSIZE{initPt.x, initPt.y} {}
    explicit CSize(DWORD dwSize) : tagSIZE{static_cast<short>(LOWORD(dwSize)), static_cast<short>(HIWORD(dwSize))} {}

    bool operator==(SIZE size) const { return cx == size.cx && cy == size.cy; }
    bool operator!=(SIZE size) const { return !(*this == size); }
    void SetSize(int initCX, int initCY) { *this = CSize(initCX, initCY); }
    void operator+=(SIZE size) { *this = *this + size; }
    void operator-=(SIZE size) { *this = *this - size; }
    CSize operator+(SIZE size) const { return CSize(cx + size.cx, cy + size.cy); }
    CSize operator-(SIZE size) const { return CSize(cx - size.cx, cy - size.cy); }
    CSize operator-() const { return CSize(-cx, -cy); }
};

class CPoint : public tagPOINT {
  public:
    CPoint() : tagPOINT{0, 0} {}
    CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
    CPoint(POINT initPt) : tagPOINT(initPt) {}
    explicit CPoint(SIZE initSize) : tagPOINT{initSize.cx, initSize.cy} {}
    /// Both halves are signed, as in the LPARAM of a mouse message.
    explicit CPoint(LPARAM dwPoint)
        : tagPOINT{static_cast<short>(LOWORD(dwPoint)), static_cast<short>(HIWORD(dwPoint))} {}

    void Offset(int xOffset, int yOffset) { *this = CPoint(x + xOffset, y + yOffset); }
    void Offset(POINT point) { Offset(point.x, point.y); }
    void SetPoint(int X, int Y) { *this = CPoint(X, Y); }
    bool operator==(POINT point) const { return x == point.x && y == point.y; }
    bool operator!=(POINT point) const { return !(*this == point); }
    void operator+=(SIZE size) { Offset(size.cx, size.cy); }
    void operator-=(SIZE size) { Offset(-size.cx, -size.cy); }
    void operator+=(POINT point) { Offset(point.x, point.y); }
    void operator-=(POINT point) { Offset(-point.x, -point.y); }
    CPoint operator+(SIZE size) const { return CPoint(x + size.cx, y + size.cy); }
    CPoint operator-(SIZE size) const { return CPoint(x - size.cx, y - size.cy); }
    CPoint operator+(POINT point) const { return CPoint(x + point.x, y + point.y); }
    CSize operator-(POINT point) const { return CSize(x - point.x, y - point.y); }
    CPoint operator-() const { return CPoint(-x, -y); }
};

class CRect : public tagRECT {
  public:
    CRect() : tagRECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
    CRect(const RECT& srcRect) : tagRECT(srcRect) {}
    CRect(LPCRECT lpSrcRect) : tagRECT(*lpSrcRect) {}
    CRect(POINT point, SIZE size) : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy} {}
    CRect(POINT topLeft, POINT bottomRight) : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return CSize(Width(), Height()); }
    CPoint TopLeft() const { return CPoint(left, top); }
    CPoint BottomRight() const { return CPoint(right, bottom); }
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }
    BOOL IsRectEmpty() const { return ::IsRectEmpty(this); }
    BOOL IsRectNull() const { return left == 0 && right == 0 && top == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const { return ::PtInRect(this, point); }
    BOOL EqualRect(LPCRECT lpRect) const { return ::EqualRect(this, lpRect); }

    void SetRect(int x1, int y1, int x2, int y2) { *this = CRect(x1, y1, x2, y2); }
    void SetRectEmpty() { *this = CRect(); }
    void CopyRect(LPCRECT lpSrcRect) { *this = CRect(lpSrcRect); }
    void InflateRect(int x, int y) { ::InflateRect(this, x, y); }
    void InflateRect(SIZE size) { InflateRect(size.cx, size.cy); }
    void InflateRect(int l, int t, int r, int b) { *this = CRect(left - l, top - t, right + r, bottom + b); }
    void DeflateRect(int x, int y) { InflateRect(-x, -y); }
    void DeflateRect(SIZE size) { InflateRect(-size.cx, -size.cy); }
    void DeflateRect(int l, int t, int r, int b) { InflateRect(-l, -t, -r, -b); }
    void OffsetRect(int x, int y) { ::OffsetRect(this, x, y); }
    void OffsetRect(POINT point) { OffsetRect(point.x, point.y); }
    void OffsetRect(SIZE size) { OffsetRect(size.cx, size.cy); }
    void MoveToX(int x) { OffsetRect(x - left, 0); }
    void MoveToY(int y) { OffsetRect(0, y - top); }
    void MoveToXY(int x, int y) { OffsetRect(x - left, y - top); }
    void MoveToXY(POINT point) { MoveToXY(point.x, point.y); }
    /// Exchanges the sides that are the wrong way round.
    void NormalizeRect() {
        *this = CRect(left < right ? left : right, top < bottom ? top : bottom, left < right ? right : left,
                      top < bottom ? bottom : top);
    }
    BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) { return ::IntersectRect(this, lpRect1, lpRect2); }
    BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) { return ::UnionRect(this, lpRect1, lpRect2); }
    BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) { return ::SubtractRect(this, lpRectSrc1, lpRectSrc2); }

    bool operator==(const RECT& rect) const { return EqualRect(&rect) != FALSE; }
    bool operator!=(const RECT& rect) const { return !EqualRect(&rect); }
    void operator+=(POINT point) { OffsetRect(point); }
    void operator-=(POINT point) { OffsetRect(-point.x, -point.y); }
    void operator&=(const RECT& rect) { IntersectRect(CRect(*this), &rect); }
    void operator|=(const RECT& rect) { UnionRect(CRect(*this), &rect); }
    CRect operator+(POINT point) const {
        return CRect(left + point.x, top + point.y, right + point.x, bottom + point.y);
    }
    CRect operator-(POINT point) const { return *this + POINT{-point.x, -point.y}; }
    CRect operator&(const RECT& rect) const {
        CRect result;
        result.IntersectRect(this, &rect);
        return result;
    }
    CRect operator|(const RECT& rect) const {
        CRect result;
        result.UnionRect(this, &rect);
        return result;
    }
};

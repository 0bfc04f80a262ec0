// CSize, CPoint and CRect: the system's structures with operations.
#pragma once

#include "afxver_.h"

class CPoint;
class CRect;

class CSize : public tagSIZE {
 public:
  CSize() : tagSIZE{0, 0} {}
  CSize(int initCX, int initCY) : tagSIZE{initCX, initCY} {}
  CSize(SIZE initSize) : tagSIZE(initSize) {}
  CSize(POINT initPt) : tagSIZE{initPt.x, initPt.y} {}
  // The low word is the width, the high word the height; both are signed.
  CSize(DWORD dwSize)
      : tagSIZE{static_cast<short>(LOWORD(dwSize)), static_cast<short>(HIWORD(dwSize))} {}

  void SetSize(int CX, int CY) { cx = CX, cy = CY; }

  bool operator==(SIZE size) const { return cx == size.cx && cy == size.cy; }
  bool operator!=(SIZE size) const { return !(*this == size); }
  void operator+=(SIZE size) { cx += size.cx, cy += size.cy; }
  void operator-=(SIZE size) { cx -= size.cx, cy -= size.cy; }

  CSize operator+(SIZE size) const { return {int(cx + size.cx), int(cy + size.cy)}; }
  CSize operator-(SIZE size) const { return {int(cx - size.cx), int(cy - size.cy)}; }
  CSize operator-() const { return {int(-cx), int(-cy)}; }
  inline CPoint operator+(POINT point) const;
  inline CPoint operator-(POINT point) const;
  inline CRect operator+(const RECT* lpRect) const;
  inline CRect operator-(const RECT* lpRect) const;
};

class CPoint : public tagPOINT {
 public:
  CPoint() : tagPOINT{0, 0} {}
  CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
  CPoint(POINT initPt) : tagPOINT(initPt) {}
  CPoint(SIZE initSize) : tagPOINT{initSize.cx, initSize.cy} {}
  // A mouse message's parameter: the low word is x, the high word y; both are signed.
  CPoint(LPARAM dwPoint)
      : tagPOINT{static_cast<short>(LOWORD(dwPoint)), static_cast<short>(HIWORD(dwPoint))} {}

  void Offset(int xOffset, int yOffset) { x += xOffset, y += yOffset; }
  void Offset(POINT point) { Offset(point.x, point.y); }
  void Offset(SIZE size) { Offset(size.cx, size.cy); }
  void SetPoint(int X, int Y) { x = X, y = Y; }

  bool operator==(POINT point) const { return x == point.x && y == point.y; }
  bool operator!=(POINT point) const { return !(*this == point); }
  void operator+=(SIZE size) { Offset(size); }
  void operator-=(SIZE size) { Offset(-size.cx, -size.cy); }
  void operator+=(POINT point) { Offset(point); }
  void operator-=(POINT point) { Offset(-point.x, -point.y); }

  CPoint operator+(SIZE size) const { return {int(x + size.cx), int(y + size.cy)}; }
  CPoint operator-(SIZE size) const { return {int(x - size.cx), int(y - size.cy)}; }
  CPoint operator-() const { return {int(-x), int(-y)}; }
  CPoint operator+(POINT point) const { return {int(x + point.x), int(y + point.y)}; }
  CSize operator-(POINT point) const { return {int(x - point.x), int(y - point.y)}; }
  inline CRect operator+(const RECT* lpRect) const;
  inline CRect operator-(const RECT* lpRect) const;
};

// The right and bottom edges are the first outside. Only a normalized rectangle, whose left is not
// right of its right and whose top is not below its bottom, gives a meaningful IntersectRect,
// UnionRect or PtInRect.
class CRect : public tagRECT {
 public:
  CRect() : tagRECT{0, 0, 0, 0} {}
  CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
  CRect(const RECT& srcRect) : tagRECT(srcRect) {}
  CRect(LPCRECT lpSrcRect) : tagRECT(*lpSrcRect) {}
  CRect(POINT point, SIZE size) : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy} {}
  CRect(POINT topLeft, POINT bottomRight)
      : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  CSize Size() const { return {Width(), Height()}; }
  // The corners can be written to.
  CPoint& TopLeft() { return reinterpret_cast<CPoint&>(left); }
  CPoint& BottomRight() { return reinterpret_cast<CPoint&>(right); }
  const CPoint& TopLeft() const { return reinterpret_cast<const CPoint&>(left); }
  const CPoint& BottomRight() const { return reinterpret_cast<const CPoint&>(right); }
  CPoint CenterPoint() const { return {int((left + right) / 2), int((top + bottom) / 2)}; }
  // Exchanges left and right.
  void SwapLeftRight();

  operator LPRECT() { return this; }
  operator LPCRECT() const { return this; }

  BOOL IsRectEmpty() const { return ::IsRectEmpty(this); }
  BOOL IsRectNull() const { return left == 0 && right == 0 && top == 0 && bottom == 0; }
  BOOL PtInRect(POINT point) const { return ::PtInRect(this, point); }
  BOOL EqualRect(LPCRECT lpRect) const { return ::EqualRect(this, lpRect); }

  void SetRect(int x1, int y1, int x2, int y2) { ::SetRect(this, x1, y1, x2, y2); }
  void SetRect(POINT topLeft, POINT bottomRight) { *this = CRect(topLeft, bottomRight); }
  void SetRectEmpty() { ::SetRectEmpty(this); }
  void CopyRect(LPCRECT lpSrcRect) { ::CopyRect(this, lpSrcRect); }

  void InflateRect(int x, int y) { ::InflateRect(this, x, y); }
  void InflateRect(SIZE size) { InflateRect(size.cx, size.cy); }
  // Each edge by the like edge of lpRect, outwards.
  void InflateRect(LPCRECT lpRect);
  void InflateRect(int l, int t, int r, int b) { InflateRect(CRect(l, t, r, b)); }
  void DeflateRect(int x, int y) { InflateRect(-x, -y); }
  void DeflateRect(SIZE size) { DeflateRect(size.cx, size.cy); }
  void DeflateRect(LPCRECT lpRect);
  void DeflateRect(int l, int t, int r, int b) { DeflateRect(CRect(l, t, r, b)); }

  void OffsetRect(int x, int y) { ::OffsetRect(this, x, y); }
  void OffsetRect(SIZE size) { OffsetRect(size.cx, size.cy); }
  void OffsetRect(POINT point) { OffsetRect(point.x, point.y); }
  void MoveToX(int x) { OffsetRect(x - left, 0); }
  void MoveToY(int y) { OffsetRect(0, y - top); }
  void MoveToXY(int x, int y) { OffsetRect(x - left, y - top); }
  void MoveToXY(POINT point) { MoveToXY(point.x, point.y); }
  void NormalizeRect();

  // Make this the common part of two rectangles, the smallest one that holds both, or the part of
  // the first that the second leaves. FALSE: the result is empty.
  BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) {
    return ::IntersectRect(this, lpRect1, lpRect2);
  }
  BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) { return ::UnionRect(this, lpRect1, lpRect2); }
  BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) {
    return ::SubtractRect(this, lpRectSrc1, lpRectSrc2);
  }

  void operator=(const RECT& srcRect) { tagRECT::operator=(srcRect); }
  bool operator==(const RECT& rect) const { return ::EqualRect(this, &rect); }
  bool operator!=(const RECT& rect) const { return !::EqualRect(this, &rect); }
  void operator+=(POINT point) { OffsetRect(point); }
  void operator+=(SIZE size) { OffsetRect(size); }
  void operator+=(LPCRECT lpRect) { InflateRect(lpRect); }
  void operator-=(POINT point) { OffsetRect(-point.x, -point.y); }
  void operator-=(SIZE size) { OffsetRect(-size.cx, -size.cy); }
  void operator-=(LPCRECT lpRect) { DeflateRect(lpRect); }
  void operator&=(const RECT& rect) { ::IntersectRect(this, this, &rect); }
  void operator|=(const RECT& rect) { ::UnionRect(this, this, &rect); }

  CRect operator+(POINT point) const {
    return Changed([&](CRect& r) { r += point; });
  }
  CRect operator+(SIZE size) const {
    return Changed([&](CRect& r) { r += size; });
  }
  CRect operator+(LPCRECT lpRect) const {
    return Changed([&](CRect& r) { r += lpRect; });
  }
  CRect operator-(POINT point) const {
    return Changed([&](CRect& r) { r -= point; });
  }
  CRect operator-(SIZE size) const {
    return Changed([&](CRect& r) { r -= size; });
  }
  CRect operator-(LPCRECT lpRect) const {
    return Changed([&](CRect& r) { r -= lpRect; });
  }
  CRect operator&(const RECT& rect) const {
    return Changed([&](CRect& r) { r &= rect; });
  }
  CRect operator|(const RECT& rect) const {
    return Changed([&](CRect& r) { r |= rect; });
  }

  CRect MulDiv(int nMultiplier, int nDivisor) const;

 private:
  template <class Change>
  CRect Changed(Change change) const {
    CRect result(*this);
    change(result);
    return result;
  }
};

inline CPoint CSize::operator+(POINT point) const { return CPoint(point) + *this; }
inline CPoint CSize::operator-(POINT point) const { return {int(cx - point.x), int(cy - point.y)}; }
inline CRect CSize::operator+(const RECT* lpRect) const { return CRect(lpRect) + *this; }
inline CRect CSize::operator-(const RECT* lpRect) const { return CRect(lpRect) - *this; }
inline CRect CPoint::operator+(const RECT* lpRect) const { return CRect(lpRect) + *this; }
inline CRect CPoint::operator-(const RECT* lpRect) const { return CRect(lpRect) - *this; }

inline void CRect::SwapLeftRight() {
  const LONG oldLeft = left;
  left = right;
  right = oldLeft;
}

inline void CRect::InflateRect(LPCRECT lpRect) {
  left -= lpRect->left;
  top -= lpRect->top;
  right += lpRect->right;
  bottom += lpRect->bottom;
}

inline void CRect::DeflateRect(LPCRECT lpRect) {
  left += lpRect->left;
  top += lpRect->top;
  right -= lpRect->right;
  bottom -= lpRect->bottom;
}

inline void CRect::NormalizeRect() {
  if (left > right) SwapLeftRight();
  if (top > bottom) {
    const LONG oldTop = top;
    top = bottom;
    bottom = oldTop;
  }
}

inline CRect CRect::MulDiv(int nMultiplier, int nDivisor) const {
  return {::MulDiv(left, nMultiplier, nDivisor), ::MulDiv(top, nMultiplier, nDivisor),
          ::MulDiv(right, nMultiplier, nDivisor), ::MulDiv(bottom, nMultiplier, nDivisor)};
}

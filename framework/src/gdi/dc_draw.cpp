// Drawing that takes more than one call of the system.

#include <afxwin.h>

BOOL CDC::Moved(BOOL bDrawn) {
  if (m_hAttribDC == nullptr || m_hAttribDC == m_hDC) return bDrawn;
  CPoint position;
  return ::GetCurrentPositionEx(m_hDC, &position) &&
         ::MoveToEx(m_hAttribDC, position.x, position.y, nullptr) && bDrawn;
}

BOOL CDC::LineTo(int x, int y) { return Moved(::LineTo(m_hDC, x, y)); }

BOOL CDC::ArcTo(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4) {
  return Moved(::ArcTo(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4));
}

BOOL CDC::AngleArc(int x, int y, int nRadius, float fStartAngle, float fSweepAngle) {
  return Moved(::AngleArc(m_hDC, x, y, nRadius, fStartAngle, fSweepAngle));
}

BOOL CDC::PolylineTo(const POINT* lpPoints, int nCount) {
  return Moved(::PolylineTo(m_hDC, lpPoints, nCount));
}

BOOL CDC::PolyBezierTo(const POINT* lpPoints, int nCount) {
  return Moved(::PolyBezierTo(m_hDC, lpPoints, nCount));
}

BOOL CDC::PolyDraw(const POINT* lpPoints, const BYTE* lpTypes, int nCount) {
  return Moved(::PolyDraw(m_hDC, lpPoints, lpTypes, nCount));
}

// An opaque text without characters: quicker than a brush made for once.
void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr) {
  const COLORREF before = ::SetBkColor(m_hDC, clr);
  ::ExtTextOut(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
  ::SetBkColor(m_hDC, before);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr) {
  const CRect rect(x, y, x + cx, y + cy);
  FillSolidRect(&rect, clr);
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

BOOL CDC::TransparentBlt(int xDest, int yDest, int nDestWidth, int nDestHeight, CDC* pSrcDC,
                         int xSrc, int ySrc, int nSrcWidth, int nSrcHeight, UINT clrTransparent) {
  return ::GdiTransparentBlt(m_hDC, xDest, yDest, nDestWidth, nDestHeight, *pSrcDC, xSrc, ySrc,
                             nSrcWidth, nSrcHeight, clrTransparent);
}

BOOL CDC::AlphaBlend(int xDest, int yDest, int nDestWidth, int nDestHeight, CDC* pSrcDC, int xSrc,
                     int ySrc, int nSrcWidth, int nSrcHeight, BLENDFUNCTION blend) {
  return ::GdiAlphaBlend(m_hDC, xDest, yDest, nDestWidth, nDestHeight, *pSrcDC, xSrc, ySrc,
                         nSrcWidth, nSrcHeight, blend);
}

BOOL CDC::GradientFill(TRIVERTEX* pVertices, ULONG nVertices, void* pMesh, ULONG nMeshElements,
                       DWORD dwMode) {
  return ::GdiGradientFill(m_hDC, pVertices, nVertices, pMesh, nMeshElements, dwMode);
}

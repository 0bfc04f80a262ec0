// Device contexts.
#pragma once

#include "afxgdi_.h"
#include "afxstr_.h"

class CWnd;

// Holds the handle of a device context, and a second one for questions about its attributes, which
// is the same unless the program says otherwise: what draws goes to m_hDC, what asks goes to
// m_hAttribDC, what sets goes to both. The functions are the system's of the same names.
//
// A context that was created or attached is found again by FromHandle in its thread, and is deleted
// with the object. The ones that FromHandle makes are temporary, as those of CGdiObject.
class AFX_CORE_DATA CDC : public CObject {
  DECLARE_DYNCREATE(CDC)
 public:
  CDC() : m_hDC(nullptr), m_hAttribDC(nullptr) {}
  ~CDC() override;

  HDC m_hDC;
  HDC m_hAttribDC;
  operator HDC() const { return m_hDC; }
  HDC GetSafeHdc() const { return m_hDC; }
  // The window that the context is for, a temporary object; null: none.
  CWnd* GetWindow() const;

  static CDC* PASCAL FromHandle(HDC hDC);
  static void PASCAL DeleteTempMap();
  BOOL Attach(HDC hDC);
  HDC Detach();
  virtual void SetAttribDC(HDC hDC) { m_hAttribDC = hDC; }
  // Only for an object that has none; not found by FromHandle.
  virtual void SetOutputDC(HDC hDC) { m_hDC = hDC; }
  virtual void ReleaseAttribDC() { m_hAttribDC = nullptr; }
  virtual void ReleaseOutputDC() { m_hDC = nullptr; }

  BOOL CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput,
                const void* lpInitData) {
    return Attach(::CreateDC(lpszDriverName, lpszDeviceName, lpszOutput,
                             static_cast<const DEVMODE*>(lpInitData)));
  }
  BOOL CreateIC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput,
                const void* lpInitData) {
    return Attach(::CreateIC(lpszDriverName, lpszDeviceName, lpszOutput,
                             static_cast<const DEVMODE*>(lpInitData)));
  }
  // A context in memory for bitmaps like the other one's; null: like the screen's.
  BOOL CreateCompatibleDC(CDC* pDC) {
    return Attach(::CreateCompatibleDC(pDC != nullptr ? pDC->m_hDC : nullptr));
  }
  BOOL DeleteDC();

  // The state of the device and of the context. RestoreDC takes what SaveDC returned, or -1 for the
  // latest.
  virtual int SaveDC();
  virtual BOOL RestoreDC(int nSavedDC);
  int GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hAttribDC, nIndex); }
  BOOL ResetDC(const DEVMODE* lpDevMode);
  CPoint GetBrushOrg() const {
    CPoint point;
    ::GetBrushOrgEx(m_hDC, &point);
    return point;
  }
  CPoint SetBrushOrg(int x, int y) {
    CPoint point;
    ::SetBrushOrgEx(m_hDC, x, y, &point);
    return point;
  }
  CPoint SetBrushOrg(POINT point) { return SetBrushOrg(point.x, point.y); }
  int EnumObjects(int nObjectType, int(CALLBACK* lpfn)(LPVOID, LPARAM), LPARAM lpData) {
    return ::EnumObjects(m_hAttribDC, nObjectType, lpfn, lpData);
  }
  UINT SetBoundsRect(LPCRECT lpRectBounds, UINT flags) {
    return ::SetBoundsRect(m_hDC, lpRectBounds, flags);
  }
  UINT GetBoundsRect(LPRECT lpRectBounds, UINT flags) {
    return ::GetBoundsRect(m_hAttribDC, lpRectBounds, flags);
  }
  DWORD GetLayout() const { return ::GetLayout(m_hDC); }
  DWORD SetLayout(DWORD dwLayout) { return ::SetLayout(m_hDC, dwLayout); }

  // What is selected; a temporary object unless it is one of the program's.
  CPen* GetCurrentPen() const { return static_cast<CPen*>(Current(OBJ_PEN)); }
  CBrush* GetCurrentBrush() const { return static_cast<CBrush*>(Current(OBJ_BRUSH)); }
  CPalette* GetCurrentPalette() const { return static_cast<CPalette*>(Current(OBJ_PAL)); }
  CFont* GetCurrentFont() const { return static_cast<CFont*>(Current(OBJ_FONT)); }
  CBitmap* GetCurrentBitmap() const { return static_cast<CBitmap*>(Current(OBJ_BITMAP)); }

  // Return what was selected before, to be selected again at the end; null: failed. For a region
  // the result is its kind, and the caller's region is copied.
  virtual CGdiObject* SelectStockObject(int nIndex) { return Select(::GetStockObject(nIndex)); }
  CPen* SelectObject(CPen* pPen) { return static_cast<CPen*>(Select(_AfxHandle(pPen))); }
  virtual CFont* SelectObject(CFont* pFont) {
    return static_cast<CFont*>(Select(_AfxHandle(pFont)));
  }
  CBrush* SelectObject(CBrush* pBrush) { return static_cast<CBrush*>(Select(_AfxHandle(pBrush))); }
  CBitmap* SelectObject(CBitmap* pBitmap) {
    return static_cast<CBitmap*>(
        CGdiObject::FromHandle(::SelectObject(m_hDC, _AfxHandle(pBitmap))));
  }
  int SelectObject(CRgn* pRgn) { return SelectClipRgn(pRgn); }
  CGdiObject* SelectObject(CGdiObject* pObject) { return Select(_AfxHandle(pObject)); }
  CPalette* SelectPalette(CPalette* pPalette, BOOL bForceBackground) {
    return CPalette::FromHandle(::SelectPalette(m_hDC, _AfxHandle(pPalette), bForceBackground));
  }
  UINT RealizePalette() { return ::RealizePalette(m_hDC); }
  void UpdateColors() { ::UpdateColors(m_hDC); }

  // Colours and modes. Setting one returns the one before.
  COLORREF GetNearestColor(COLORREF crColor) const {
    return ::GetNearestColor(m_hAttribDC, crColor);
  }
  COLORREF GetBkColor() const { return ::GetBkColor(m_hAttribDC); }
  int GetBkMode() const { return ::GetBkMode(m_hAttribDC); }
  int GetPolyFillMode() const { return ::GetPolyFillMode(m_hAttribDC); }
  int GetROP2() const { return ::GetROP2(m_hAttribDC); }
  int GetStretchBltMode() const { return ::GetStretchBltMode(m_hAttribDC); }
  COLORREF GetTextColor() const { return ::GetTextColor(m_hAttribDC); }
  int GetGraphicsMode() const { return ::GetGraphicsMode(m_hDC); }
  virtual COLORREF SetBkColor(COLORREF crColor) { return ForBoth(::SetBkColor, crColor); }
  virtual COLORREF SetTextColor(COLORREF crColor) { return ForBoth(::SetTextColor, crColor); }
  int SetBkMode(int nBkMode) { return ForBoth(::SetBkMode, nBkMode); }
  int SetPolyFillMode(int nMode) { return ForBoth(::SetPolyFillMode, nMode); }
  int SetROP2(int nDrawMode) { return ForBoth(::SetROP2, nDrawMode); }
  int SetStretchBltMode(int nMode) { return ForBoth(::SetStretchBltMode, nMode); }
  int SetGraphicsMode(int nMode) { return ForBoth(::SetGraphicsMode, nMode); }

  // Coordinates. Setting an origin or an extent returns the one before.
  int GetMapMode() const { return ::GetMapMode(m_hAttribDC); }
  virtual int SetMapMode(int nMapMode) { return ForBoth(::SetMapMode, nMapMode); }
  CPoint GetViewportOrg() const { return Point(::GetViewportOrgEx); }
  CPoint GetWindowOrg() const { return Point(::GetWindowOrgEx); }
  CSize GetViewportExt() const { return Size(::GetViewportExtEx); }
  CSize GetWindowExt() const { return Size(::GetWindowExtEx); }
  virtual CPoint SetViewportOrg(int x, int y) { return Move(::SetViewportOrgEx, x, y); }
  CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
  virtual CPoint OffsetViewportOrg(int nWidth, int nHeight) {
    return Move(::OffsetViewportOrgEx, nWidth, nHeight);
  }
  CPoint SetWindowOrg(int x, int y) { return Move(::SetWindowOrgEx, x, y); }
  CPoint SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }
  CPoint OffsetWindowOrg(int nWidth, int nHeight) {
    return Move(::OffsetWindowOrgEx, nWidth, nHeight);
  }
  virtual CSize SetViewportExt(int cx, int cy) { return Resize(::SetViewportExtEx, cx, cy); }
  CSize SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }
  CSize SetWindowExt(int cx, int cy) { return Resize(::SetWindowExtEx, cx, cy); }
  CSize SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }
  virtual CSize ScaleViewportExt(int xNum, int xDenom, int yNum, int yDenom);
  CSize ScaleWindowExt(int xNum, int xDenom, int yNum, int yDenom);
  BOOL SetWorldTransform(const XFORM* pXform) { return ForBoth(::SetWorldTransform, pXform); }
  BOOL ModifyWorldTransform(const XFORM* pXform, DWORD iMode) {
    return ForBoth(::ModifyWorldTransform, pXform, iMode);
  }
  BOOL GetWorldTransform(XFORM* pXform) const { return ::GetWorldTransform(m_hAttribDC, pXform); }

  // Between device and logical units. A size becomes one without a sign.
  void DPtoLP(LPPOINT lpPoints, int nCount = 1) const { ::DPtoLP(m_hAttribDC, lpPoints, nCount); }
  void DPtoLP(LPRECT lpRect) const { DPtoLP(reinterpret_cast<LPPOINT>(lpRect), 2); }
  void DPtoLP(LPSIZE lpSize) const;
  void LPtoDP(LPPOINT lpPoints, int nCount = 1) const { ::LPtoDP(m_hAttribDC, lpPoints, nCount); }
  void LPtoDP(LPRECT lpRect) const { LPtoDP(reinterpret_cast<LPPOINT>(lpRect), 2); }
  void LPtoDP(LPSIZE lpSize) const;
  // Between device or logical units and hundredths of a millimetre. From and to device units in
  // the context's own mapping mode, or, when that is one of pixels, by the device's resolution.
  void DPtoHIMETRIC(LPSIZE lpSize) const;
  void HIMETRICtoDP(LPSIZE lpSize) const;
  void LPtoHIMETRIC(LPSIZE lpSize) const;
  void HIMETRICtoLP(LPSIZE lpSize) const;

  // Regions and clipping. The results are kinds of region.
  BOOL FillRgn(CRgn* pRgn, CBrush* pBrush) { return ::FillRgn(m_hDC, *pRgn, *pBrush); }
  BOOL FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight) {
    return ::FrameRgn(m_hDC, *pRgn, *pBrush, nWidth, nHeight);
  }
  BOOL InvertRgn(CRgn* pRgn) { return ::InvertRgn(m_hDC, *pRgn); }
  BOOL PaintRgn(CRgn* pRgn) { return ::PaintRgn(m_hDC, *pRgn); }
  virtual int GetClipBox(LPRECT lpRect) const { return ::GetClipBox(m_hDC, lpRect); }
  virtual BOOL PtVisible(int x, int y) const { return ::PtVisible(m_hDC, x, y); }
  BOOL PtVisible(POINT point) const { return PtVisible(point.x, point.y); }
  virtual BOOL RectVisible(LPCRECT lpRect) const { return ::RectVisible(m_hDC, lpRect); }
  int SelectClipRgn(CRgn* pRgn) { return ForBoth(::SelectClipRgn, _AfxHandle(pRgn)); }
  int SelectClipRgn(CRgn* pRgn, int nMode) {
    return ForBoth(::ExtSelectClipRgn, _AfxHandle(pRgn), nMode);
  }
  int ExcludeClipRect(int x1, int y1, int x2, int y2) {
    return ForBoth(::ExcludeClipRect, x1, y1, x2, y2);
  }
  int ExcludeClipRect(LPCRECT r) { return ExcludeClipRect(r->left, r->top, r->right, r->bottom); }
  int ExcludeUpdateRgn(CWnd* pWnd);
  int IntersectClipRect(int x1, int y1, int x2, int y2) {
    return ForBoth(::IntersectClipRect, x1, y1, x2, y2);
  }
  int IntersectClipRect(LPCRECT r) {
    return IntersectClipRect(r->left, r->top, r->right, r->bottom);
  }
  int OffsetClipRgn(int x, int y) { return ForBoth(::OffsetClipRgn, x, y); }
  int OffsetClipRgn(SIZE size) { return OffsetClipRgn(size.cx, size.cy); }

  // Lines.
  CPoint GetCurrentPosition() const { return Point(::GetCurrentPositionEx); }
  CPoint MoveTo(int x, int y) { return Move(::MoveToEx, x, y); }
  CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
  BOOL LineTo(int x, int y);
  BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
  BOOL Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4) {
    return ::Arc(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
  }
  BOOL Arc(LPCRECT r, POINT ptStart, POINT ptEnd) {
    return Arc(r->left, r->top, r->right, r->bottom, ptStart.x, ptStart.y, ptEnd.x, ptEnd.y);
  }
  BOOL ArcTo(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
  BOOL ArcTo(LPCRECT r, POINT ptStart, POINT ptEnd) {
    return ArcTo(r->left, r->top, r->right, r->bottom, ptStart.x, ptStart.y, ptEnd.x, ptEnd.y);
  }
  BOOL AngleArc(int x, int y, int nRadius, float fStartAngle, float fSweepAngle);
  int GetArcDirection() const { return ::GetArcDirection(m_hAttribDC); }
  int SetArcDirection(int nArcDirection) { return ForBoth(::SetArcDirection, nArcDirection); }
  BOOL Polyline(const POINT* lpPoints, int nCount) { return ::Polyline(m_hDC, lpPoints, nCount); }
  BOOL PolylineTo(const POINT* lpPoints, int nCount);
  BOOL PolyPolyline(const POINT* lpPoints, const DWORD* lpPolyPoints, int nCount) {
    return ::PolyPolyline(m_hDC, lpPoints, lpPolyPoints, nCount);
  }
  BOOL PolyBezier(const POINT* lpPoints, int nCount) {
    return ::PolyBezier(m_hDC, lpPoints, nCount);
  }
  BOOL PolyBezierTo(const POINT* lpPoints, int nCount);
  BOOL PolyDraw(const POINT* lpPoints, const BYTE* lpTypes, int nCount);

  // Filled shapes. The right and bottom edges of rectangles are outside of the shape.
  void FillRect(LPCRECT lpRect, CBrush* pBrush) { ::FillRect(m_hDC, lpRect, *pBrush); }
  void FrameRect(LPCRECT lpRect, CBrush* pBrush) { ::FrameRect(m_hDC, lpRect, *pBrush); }
  void InvertRect(LPCRECT lpRect) { ::InvertRect(m_hDC, lpRect); }
  // In one colour, without a brush; the background colour stays.
  void FillSolidRect(LPCRECT lpRect, COLORREF clr);
  void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
  // A frame one pixel wide, inside of the rectangle.
  void Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight);
  void Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight);
  BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) {
    return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags);
  }
  BOOL DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState) {
    return ::DrawFrameControl(m_hDC, lpRect, nType, nState);
  }
  void DrawFocusRect(LPCRECT lpRect) { ::DrawFocusRect(m_hDC, lpRect); }
  BOOL Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }
  BOOL Rectangle(LPCRECT r) { return Rectangle(r->left, r->top, r->right, r->bottom); }
  BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3) {
    return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
  }
  BOOL RoundRect(LPCRECT r, POINT point) {
    return RoundRect(r->left, r->top, r->right, r->bottom, point.x, point.y);
  }
  BOOL Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }
  BOOL Ellipse(LPCRECT r) { return Ellipse(r->left, r->top, r->right, r->bottom); }
  BOOL Chord(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4) {
    return ::Chord(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
  }
  BOOL Chord(LPCRECT r, POINT ptStart, POINT ptEnd) {
    return Chord(r->left, r->top, r->right, r->bottom, ptStart.x, ptStart.y, ptEnd.x, ptEnd.y);
  }
  BOOL Pie(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4) {
    return ::Pie(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
  }
  BOOL Pie(LPCRECT r, POINT ptStart, POINT ptEnd) {
    return Pie(r->left, r->top, r->right, r->bottom, ptStart.x, ptStart.y, ptEnd.x, ptEnd.y);
  }
  BOOL Polygon(LPPOINT lpPoints, int nCount) { return ::Polygon(m_hDC, lpPoints, nCount); }
  BOOL PolyPolygon(LPPOINT lpPoints, LPINT lpPolyCounts, int nCount) {
    return ::PolyPolygon(m_hDC, lpPoints, lpPolyCounts, nCount);
  }

  // Icons, and pictures or texts in a state (DSS_DISABLED ...).
  BOOL DrawIcon(int x, int y, HICON hIcon) { return ::DrawIcon(m_hDC, x, y, hIcon); }
  BOOL DrawIcon(POINT point, HICON hIcon) { return DrawIcon(point.x, point.y, hIcon); }
  BOOL DrawState(CPoint pt, CSize size, HBITMAP hBitmap, UINT nFlags, HBRUSH hBrush = nullptr) {
    return State(pt, size, hBrush, nullptr, reinterpret_cast<LPARAM>(hBitmap), 0,
                 nFlags | DST_BITMAP);
  }
  BOOL DrawState(CPoint pt, CSize size, CBitmap* pBitmap, UINT nFlags, CBrush* pBrush = nullptr) {
    return DrawState(pt, size, _AfxHandle(pBitmap), nFlags, _AfxHandle(pBrush));
  }
  BOOL DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, HBRUSH hBrush = nullptr) {
    return State(pt, size, hBrush, nullptr, reinterpret_cast<LPARAM>(hIcon), 0, nFlags | DST_ICON);
  }
  BOOL DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, CBrush* pBrush) {
    return DrawState(pt, size, hIcon, nFlags, _AfxHandle(pBrush));
  }
  // nTextLen 0: up to the null. bPrefixText: "&" marks the underlined letter.
  BOOL DrawState(CPoint pt, CSize size, LPCTSTR lpszText, UINT nFlags, BOOL bPrefixText = TRUE,
                 int nTextLen = 0, HBRUSH hBrush = nullptr) {
    return State(pt, size, hBrush, nullptr, reinterpret_cast<LPARAM>(lpszText), nTextLen,
                 nFlags | (bPrefixText ? DST_PREFIXTEXT : DST_TEXT));
  }
  BOOL DrawState(CPoint pt, CSize size, LPCTSTR lpszText, UINT nFlags, BOOL bPrefixText,
                 int nTextLen, CBrush* pBrush) {
    return DrawState(pt, size, lpszText, nFlags, bPrefixText, nTextLen, _AfxHandle(pBrush));
  }
  BOOL DrawState(CPoint pt, CSize size, DRAWSTATEPROC lpDrawProc, LPARAM lData, UINT nFlags,
                 HBRUSH hBrush = nullptr) {
    return State(pt, size, hBrush, lpDrawProc, lData, 0, nFlags | DST_COMPLEX);
  }
  BOOL DrawState(CPoint pt, CSize size, DRAWSTATEPROC lpDrawProc, LPARAM lData, UINT nFlags,
                 CBrush* pBrush) {
    return DrawState(pt, size, lpDrawProc, lData, nFlags, _AfxHandle(pBrush));
  }

  // Pixels and blocks of them.
  BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop) {
    return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
  }
  BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop) {
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, Of(pSrcDC), xSrc, ySrc, dwRop);
  }
  BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc,
                  int nSrcWidth, int nSrcHeight, DWORD dwRop) {
    return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, Of(pSrcDC), xSrc, ySrc, nSrcWidth, nSrcHeight,
                        dwRop);
  }
  BOOL MaskBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc,
               CBitmap& maskBitmap, int xMask, int yMask, DWORD dwRop) {
    return ::MaskBlt(m_hDC, x, y, nWidth, nHeight, Of(pSrcDC), xSrc, ySrc, maskBitmap, xMask, yMask,
                     dwRop);
  }
  BOOL PlgBlt(LPPOINT lpPoint, CDC* pSrcDC, int xSrc, int ySrc, int nWidth, int nHeight,
              CBitmap& maskBitmap, int xMask, int yMask) {
    return ::PlgBlt(m_hDC, lpPoint, Of(pSrcDC), xSrc, ySrc, nWidth, nHeight, maskBitmap, xMask,
                    yMask);
  }
  BOOL TransparentBlt(int xDest, int yDest, int nDestWidth, int nDestHeight, CDC* pSrcDC, int xSrc,
                      int ySrc, int nSrcWidth, int nSrcHeight, UINT clrTransparent);
  BOOL AlphaBlend(int xDest, int yDest, int nDestWidth, int nDestHeight, CDC* pSrcDC, int xSrc,
                  int ySrc, int nSrcWidth, int nSrcHeight, BLENDFUNCTION blend);
  BOOL GradientFill(TRIVERTEX* pVertices, ULONG nVertices, void* pMesh, ULONG nMeshElements,
                    DWORD dwMode);
  COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
  COLORREF GetPixel(POINT point) const { return GetPixel(point.x, point.y); }
  COLORREF SetPixel(int x, int y, COLORREF crColor) { return ::SetPixel(m_hDC, x, y, crColor); }
  COLORREF SetPixel(POINT point, COLORREF crColor) { return SetPixel(point.x, point.y, crColor); }
  BOOL SetPixelV(int x, int y, COLORREF crColor) { return ::SetPixelV(m_hDC, x, y, crColor); }
  BOOL SetPixelV(POINT point, COLORREF crColor) { return SetPixelV(point.x, point.y, crColor); }
  BOOL FloodFill(int x, int y, COLORREF crColor) { return ::FloodFill(m_hDC, x, y, crColor); }
  BOOL ExtFloodFill(int x, int y, COLORREF crColor, UINT nFillType) {
    return ::ExtFloodFill(m_hDC, x, y, crColor, nFillType);
  }
  BOOL ScrollDC(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, CRgn* pRgnUpdate,
                LPRECT lpRectUpdate) {
    return ::ScrollDC(m_hDC, dx, dy, lpRectScroll, lpRectClip, _AfxHandle(pRgnUpdate),
                      lpRectUpdate);
  }

  // Texts. A count of characters excludes a null.
  virtual BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount) {
    return ::TextOut(m_hDC, x, y, lpszString, nCount);
  }
  BOOL TextOut(int x, int y, const CString& str) { return TextOut(x, y, str, str.GetLength()); }
  virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString,
                          UINT nCount, LPINT lpDxWidths) {
    return ::ExtTextOut(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
  }
  BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str,
                  LPINT lpDxWidths) {
    return ExtTextOut(x, y, nOptions, lpRect, str, str.GetLength(), lpDxWidths);
  }
  virtual CSize TabbedTextOut(int x, int y, LPCTSTR lpszString, int nCount, int nTabPositions,
                              LPINT lpnTabStopPositions, int nTabOrigin) {
    return Packed(::TabbedTextOut(m_hDC, x, y, lpszString, nCount, nTabPositions,
                                  lpnTabStopPositions, nTabOrigin));
  }
  CSize TabbedTextOut(int x, int y, const CString& str, int nTabPositions,
                      LPINT lpnTabStopPositions, int nTabOrigin) {
    return TabbedTextOut(x, y, str, str.GetLength(), nTabPositions, lpnTabStopPositions,
                         nTabOrigin);
  }
  // The height of the text. nCount -1: up to the null. The string form cannot change its string:
  // DT_MODIFYSTRING is ignored.
  virtual int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat) {
    return ::DrawText(m_hDC, lpszString, nCount, lpRect, nFormat);
  }
  int DrawText(const CString& str, LPRECT lpRect, UINT nFormat) {
    return DrawText(str, str.GetLength(), lpRect, nFormat & ~DT_MODIFYSTRING);
  }
  virtual int DrawTextEx(LPTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat,
                         LPDRAWTEXTPARAMS lpDTParams) {
    return ::DrawTextEx(m_hDC, lpszString, nCount, lpRect, nFormat, lpDTParams);
  }
  virtual BOOL GrayString(CBrush* pBrush, BOOL(CALLBACK* lpfnOutput)(HDC, LPARAM, int),
                          LPARAM lpData, int nCount, int x, int y, int nWidth, int nHeight) {
    return ::GrayString(m_hDC, _AfxHandle(pBrush), lpfnOutput, lpData, nCount, x, y, nWidth,
                        nHeight);
  }
  // In logical units, with the font of the attributes or of the output.
  CSize GetTextExtent(LPCTSTR lpszString, int nCount) const {
    return Extent(m_hAttribDC, lpszString, nCount);
  }
  CSize GetTextExtent(const CString& str) const { return GetTextExtent(str, str.GetLength()); }
  CSize GetOutputTextExtent(LPCTSTR lpszString, int nCount) const {
    return Extent(m_hDC, lpszString, nCount);
  }
  CSize GetOutputTextExtent(const CString& str) const {
    return GetOutputTextExtent(str, str.GetLength());
  }
  CSize GetTabbedTextExtent(LPCTSTR lpszString, int nCount, int nTabPositions,
                            LPINT lpnTabStopPositions) const {
    return Packed(
        ::GetTabbedTextExtent(m_hAttribDC, lpszString, nCount, nTabPositions, lpnTabStopPositions));
  }
  CSize GetTabbedTextExtent(const CString& str, int nTabPositions,
                            LPINT lpnTabStopPositions) const {
    return GetTabbedTextExtent(str, str.GetLength(), nTabPositions, lpnTabStopPositions);
  }
  UINT GetTextAlign() const { return ::GetTextAlign(m_hAttribDC); }
  UINT SetTextAlign(UINT nFlags) { return ForBoth(::SetTextAlign, nFlags); }
  int GetTextFace(int nCount, LPTSTR lpszFacename) const {
    return ::GetTextFace(m_hAttribDC, nCount, lpszFacename);
  }
  int GetTextFace(CString& rString) const;
  BOOL GetTextMetrics(LPTEXTMETRIC lpMetrics) const {
    return ::GetTextMetrics(m_hAttribDC, lpMetrics);
  }
  BOOL GetOutputTextMetrics(LPTEXTMETRIC lpMetrics) const {
    return ::GetTextMetrics(m_hDC, lpMetrics);
  }
  int SetTextJustification(int nBreakExtra, int nBreakCount) {
    return ForBoth(::SetTextJustification, nBreakExtra, nBreakCount);
  }
  int GetTextCharacterExtra() const { return ::GetTextCharacterExtra(m_hAttribDC); }
  int SetTextCharacterExtra(int nCharExtra) { return ForBoth(::SetTextCharacterExtra, nCharExtra); }
  BOOL GetCharWidth(UINT nFirstChar, UINT nLastChar, LPINT lpBuffer) const {
    return ::GetCharWidth32(m_hAttribDC, nFirstChar, nLastChar, lpBuffer);
  }
  BOOL GetOutputCharWidth(UINT nFirstChar, UINT nLastChar, LPINT lpBuffer) const {
    return ::GetCharWidth32(m_hDC, nFirstChar, nLastChar, lpBuffer);
  }
  BOOL GetCharABCWidths(UINT nFirstChar, UINT nLastChar, LPABC lpabc) const {
    return ::GetCharABCWidths(m_hAttribDC, nFirstChar, nLastChar, lpabc);
  }
  UINT GetOutlineTextMetrics(UINT cbData, LPOUTLINETEXTMETRIC lpotm) const {
    return ::GetOutlineTextMetrics(m_hAttribDC, cbData, lpotm);
  }

  // Paths.
  BOOL BeginPath() { return ForBoth(::BeginPath); }
  BOOL EndPath() { return ForBoth(::EndPath); }
  BOOL AbortPath() { return ForBoth(::AbortPath); }
  BOOL CloseFigure() { return ForBoth(::CloseFigure); }
  BOOL FlattenPath() { return ForBoth(::FlattenPath); }
  BOOL WidenPath() { return ForBoth(::WidenPath); }
  BOOL FillPath() { return ::FillPath(m_hDC); }
  BOOL StrokePath() { return ::StrokePath(m_hDC); }
  BOOL StrokeAndFillPath() { return ::StrokeAndFillPath(m_hDC); }
  int GetPath(LPPOINT lpPoints, LPBYTE lpTypes, int nCount) const {
    return ::GetPath(m_hAttribDC, lpPoints, lpTypes, nCount);
  }
  BOOL SelectClipPath(int nMode);

 private:
  static HDC Of(const CDC* pDC) { return pDC != nullptr ? pDC->m_hDC : nullptr; }
  static CSize Packed(DWORD dwSize) { return CSize(LOWORD(dwSize), HIWORD(dwSize)); }
  static CSize Extent(HDC hDC, LPCTSTR lpszString, int nCount) {
    CSize size(0, 0);
    ::GetTextExtentPoint32(hDC, lpszString, nCount, &size);
    return size;
  }

  // The result is that of the context for attributes, when there is one.
  template <class Function, class... Arguments>
  auto ForBoth(Function function, Arguments... arguments) const
      -> decltype(function(m_hDC, arguments...)) {
    auto result = function(m_hDC, arguments...);
    if (m_hAttribDC != nullptr && m_hAttribDC != m_hDC)
      result = function(m_hAttribDC, arguments...);
    return result;
  }
  CPoint Point(BOOL(WINAPI* get)(HDC, LPPOINT)) const {
    CPoint point(0, 0);
    get(m_hAttribDC, &point);
    return point;
  }
  CSize Size(BOOL(WINAPI* get)(HDC, LPSIZE)) const {
    CSize size(0, 0);
    get(m_hAttribDC, &size);
    return size;
  }
  CPoint Move(BOOL(WINAPI* set)(HDC, int, int, LPPOINT), int x, int y) {
    CPoint before(0, 0);
    ForBoth(set, x, y, &before);
    return before;
  }
  CSize Resize(BOOL(WINAPI* set)(HDC, int, int, LPSIZE), int cx, int cy) {
    CSize before(0, 0);
    ForBoth(set, cx, cy, &before);
    return before;
  }
  CGdiObject* Current(UINT nType) const {
    return CGdiObject::FromHandle(::GetCurrentObject(m_hAttribDC, nType));
  }
  CGdiObject* Select(HGDIOBJ hObject);
  BOOL State(CPoint pt, CSize size, HBRUSH hBrush, DRAWSTATEPROC lpDrawProc, LPARAM lData,
             int nLength, UINT nFlags) {
    return ::DrawState(m_hDC, hBrush, lpDrawProc, lData, nLength, pt.x, pt.y, size.cx, size.cy,
                       nFlags);
  }
  // A function that draws from the current position has moved it in the output context.
  BOOL Moved(BOOL bDrawn);
};

// For a window's client area (null: the screen). Throws CResourceException when there is none.
class AFX_CORE_DATA CClientDC : public CDC {
  DECLARE_DYNAMIC(CClientDC)
 public:
  explicit CClientDC(CWnd* pWnd);
  ~CClientDC() override;

 protected:
  HWND m_hWnd;
};

// For a whole window, frame and caption included (null: the screen).
class AFX_CORE_DATA CWindowDC : public CDC {
  DECLARE_DYNAMIC(CWindowDC)
 public:
  explicit CWindowDC(CWnd* pWnd);
  ~CWindowDC() override;

 protected:
  HWND m_hWnd;
};

// For the answer to WM_PAINT, between BeginPaint and EndPaint.
class AFX_CORE_DATA CPaintDC : public CDC {
  DECLARE_DYNAMIC(CPaintDC)
 public:
  explicit CPaintDC(CWnd* pWnd);
  ~CPaintDC() override;

  PAINTSTRUCT m_ps;

 protected:
  HWND m_hWnd;
};

inline HDC _AfxHandle(const CDC* p) { return p != nullptr ? p->m_hDC : nullptr; }

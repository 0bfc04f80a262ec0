// Objects of the graphics device interface: pens, brushes, fonts, bitmaps, palettes and regions.
// The functions are the system's of the same names, called for the object's handle.
#pragma once

#include "afxgeo_.h"
#include "afxobj_.h"
#include "afxexc_.h"

#include <commctrl.h>

class CDC;

// Holds a handle. An object that was created or attached is found again by FromHandle in its thread
// and deletes its handle at its end; the ones that FromHandle makes for other handles are
// temporary: they own nothing and are gone when the thread is idle.
//
// The CreateXxx functions are for an object without a handle. They answer FALSE when the system
// does not make one; constructors that create throw CResourceException.
class AFX_CORE_DATA CGdiObject : public CObject {
  DECLARE_DYNCREATE(CGdiObject)
 public:
  CGdiObject() : m_hObject(nullptr) {}
  ~CGdiObject() override { DeleteObject(); }

  HGDIOBJ m_hObject;  // null: no handle
  operator HGDIOBJ() const { return m_hObject; }
  HGDIOBJ GetSafeHandle() const { return m_hObject; }
  BOOL operator==(const CGdiObject& obj) const { return m_hObject == obj.m_hObject; }
  BOOL operator!=(const CGdiObject& obj) const { return m_hObject != obj.m_hObject; }

  // An object of the class that fits the kind of handle; null for a null handle.
  static CGdiObject* PASCAL FromHandle(HGDIOBJ hObject);
  static void PASCAL DeleteTempMap();
  // Takes over a handle that no object has. FALSE: it is null.
  BOOL Attach(HGDIOBJ hObject);
  // Gives the handle up to the caller.
  HGDIOBJ Detach();
  BOOL DeleteObject();

  // The bytes copied, or needed when lpObject is null; 0: failed.
  int GetObject(int nCount, LPVOID lpObject) const {
    return ::GetObject(m_hObject, nCount, lpObject);
  }
  UINT GetObjectType() const { return ::GetObjectType(m_hObject); }
  // Stock objects may be deleted, which does nothing to them.
  BOOL CreateStockObject(int nIndex) { return Attach(::GetStockObject(nIndex)); }
  BOOL UnrealizeObject() { return ::UnrealizeObject(m_hObject); }

 protected:
  // For constructors that create.
  void Require(BOOL bCreated) {
    if (!bCreated) AfxThrowResourceException();
  }
};

class AFX_CORE_DATA CPen : public CGdiObject {
  DECLARE_DYNCREATE(CPen)
 public:
  CPen() {}
  CPen(int nPenStyle, int nWidth, COLORREF crColor) {
    Require(CreatePen(nPenStyle, nWidth, crColor));
  }
  CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
       const DWORD* lpStyle = nullptr) {
    Require(CreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle));
  }
  operator HPEN() const { return static_cast<HPEN>(m_hObject); }
  static CPen* PASCAL FromHandle(HPEN hPen) {
    return static_cast<CPen*>(CGdiObject::FromHandle(hPen));
  }

  BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor) {
    return Attach(::CreatePen(nPenStyle, nWidth, crColor));
  }
  BOOL CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
                 const DWORD* lpStyle = nullptr) {
    return Attach(::ExtCreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle));
  }
  BOOL CreatePenIndirect(LPLOGPEN lpLogPen) { return Attach(::CreatePenIndirect(lpLogPen)); }
  int GetLogPen(LOGPEN* pLogPen) { return GetObject(sizeof(LOGPEN), pLogPen); }
  int GetExtLogPen(EXTLOGPEN* pLogPen) { return GetObject(sizeof(EXTLOGPEN), pLogPen); }
};

class CBitmap;

class AFX_CORE_DATA CBrush : public CGdiObject {
  DECLARE_DYNCREATE(CBrush)
 public:
  CBrush() {}
  CBrush(COLORREF crColor) { Require(CreateSolidBrush(crColor)); }
  CBrush(int nIndex, COLORREF crColor) { Require(CreateHatchBrush(nIndex, crColor)); }
  explicit CBrush(CBitmap* pBitmap) { Require(CreatePatternBrush(pBitmap)); }
  operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
  static CBrush* PASCAL FromHandle(HBRUSH hBrush) {
    return static_cast<CBrush*>(CGdiObject::FromHandle(hBrush));
  }

  BOOL CreateSolidBrush(COLORREF crColor) { return Attach(::CreateSolidBrush(crColor)); }
  BOOL CreateHatchBrush(int nIndex, COLORREF crColor) {
    return Attach(::CreateHatchBrush(nIndex, crColor));
  }
  BOOL CreateBrushIndirect(const LOGBRUSH* lpLogBrush) {
    return Attach(::CreateBrushIndirect(lpLogBrush));
  }
  BOOL CreatePatternBrush(CBitmap* pBitmap);
  // A packed DIB: in global memory, which is copied, or at an address.
  BOOL CreateDIBPatternBrush(HGLOBAL hPackedDIB, UINT nUsage);
  BOOL CreateDIBPatternBrush(const void* lpPackedDIB, UINT nUsage) {
    return Attach(::CreateDIBPatternBrushPt(lpPackedDIB, nUsage));
  }
  // The system's own brush, which it keeps.
  BOOL CreateSysColorBrush(int nIndex) { return Attach(::GetSysColorBrush(nIndex)); }
  int GetLogBrush(LOGBRUSH* pLogBrush) { return GetObject(sizeof(LOGBRUSH), pLogBrush); }
};

class AFX_CORE_DATA CFont : public CGdiObject {
  DECLARE_DYNCREATE(CFont)
 public:
  CFont() {}
  operator HFONT() const { return static_cast<HFONT>(m_hObject); }
  static CFont* PASCAL FromHandle(HFONT hFont) {
    return static_cast<CFont*>(CGdiObject::FromHandle(hFont));
  }

  BOOL CreateFontIndirect(const LOGFONT* lpLogFont) {
    return Attach(::CreateFontIndirect(lpLogFont));
  }
  BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight,
                  BYTE bItalic, BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision,
                  BYTE nClipPrecision, BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename) {
    return Attach(::CreateFont(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic,
                               bUnderline, cStrikeOut, nCharSet, nOutPrecision, nClipPrecision,
                               nQuality, nPitchAndFamily, lpszFacename));
  }
  // The height in tenths of a point, for the device of pDC (null: the screen); in the second form
  // it is the LOGFONT's lfHeight.
  BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = nullptr);
  BOOL CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC = nullptr);
  int GetLogFont(LOGFONT* pLogFont) { return GetObject(sizeof(LOGFONT), pLogFont); }
};

class AFX_CORE_DATA CBitmap : public CGdiObject {
  DECLARE_DYNCREATE(CBitmap)
 public:
  CBitmap() {}
  operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
  static CBitmap* PASCAL FromHandle(HBITMAP hBitmap) {
    return static_cast<CBitmap*>(CGdiObject::FromHandle(hBitmap));
  }

  // From the resources of the module that has it.
  BOOL LoadBitmap(LPCTSTR lpszResourceName);
  BOOL LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCE(nIDResource)); }
  BOOL LoadOEMBitmap(UINT nIDBitmap) {
    return Attach(::LoadBitmap(nullptr, MAKEINTRESOURCE(nIDBitmap)));
  }
  // With the colours of buttons put in the place of the standard greys, or as lpColorMap says.
  BOOL LoadMappedBitmap(UINT nIDBitmap, UINT nFlags = 0, LPCOLORMAP lpColorMap = nullptr,
                        int nMapSize = 0);
  BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits) {
    return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
  }
  BOOL CreateBitmapIndirect(LPBITMAP lpBitmap) { return Attach(::CreateBitmapIndirect(lpBitmap)); }
  BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
  BOOL CreateDiscardableBitmap(CDC* pDC, int nWidth, int nHeight);

  int GetBitmap(BITMAP* pBitMap) { return GetObject(sizeof(BITMAP), pBitMap); }
  DWORD GetBitmapBits(DWORD dwCount, LPVOID lpBits) const {
    return ::GetBitmapBits(*this, dwCount, lpBits);
  }
  DWORD SetBitmapBits(DWORD dwCount, const void* lpBits) {
    return ::SetBitmapBits(*this, dwCount, lpBits);
  }
  // In tenths of a millimetre.
  CSize GetBitmapDimension() const;
  CSize SetBitmapDimension(int nWidth, int nHeight);
};

class AFX_CORE_DATA CPalette : public CGdiObject {
  DECLARE_DYNCREATE(CPalette)
 public:
  CPalette() {}
  operator HPALETTE() const { return static_cast<HPALETTE>(m_hObject); }
  static CPalette* PASCAL FromHandle(HPALETTE hPalette) {
    return static_cast<CPalette*>(CGdiObject::FromHandle(hPalette));
  }

  BOOL CreatePalette(LPLOGPALETTE lpLogPalette) { return Attach(::CreatePalette(lpLogPalette)); }
  BOOL CreateHalftonePalette(CDC* pDC);
  int GetEntryCount();
  UINT GetPaletteEntries(UINT nStartIndex, UINT nNumEntries, LPPALETTEENTRY lpColors) const {
    return ::GetPaletteEntries(*this, nStartIndex, nNumEntries, lpColors);
  }
  UINT SetPaletteEntries(UINT nStartIndex, UINT nNumEntries, LPPALETTEENTRY lpColors) {
    return ::SetPaletteEntries(*this, nStartIndex, nNumEntries, lpColors);
  }
  void AnimatePalette(UINT nStartIndex, UINT nNumEntries, LPPALETTEENTRY lpColors) {
    ::AnimatePalette(*this, nStartIndex, nNumEntries, lpColors);
  }
  UINT GetNearestPaletteIndex(COLORREF cr) const { return ::GetNearestPaletteIndex(*this, cr); }
  BOOL ResizePalette(UINT nNumEntries) { return ::ResizePalette(*this, nNumEntries); }
};

class AFX_CORE_DATA CRgn : public CGdiObject {
  DECLARE_DYNCREATE(CRgn)
 public:
  CRgn() {}
  operator HRGN() const { return static_cast<HRGN>(m_hObject); }
  static CRgn* PASCAL FromHandle(HRGN hRgn) {
    return static_cast<CRgn*>(CGdiObject::FromHandle(hRgn));
  }

  BOOL CreateRectRgn(int x1, int y1, int x2, int y2) {
    return Attach(::CreateRectRgn(x1, y1, x2, y2));
  }
  BOOL CreateRectRgnIndirect(LPCRECT lpRect) { return Attach(::CreateRectRgnIndirect(lpRect)); }
  BOOL CreateEllipticRgn(int x1, int y1, int x2, int y2) {
    return Attach(::CreateEllipticRgn(x1, y1, x2, y2));
  }
  BOOL CreateEllipticRgnIndirect(LPCRECT lpRect) {
    return Attach(::CreateEllipticRgnIndirect(lpRect));
  }
  BOOL CreatePolygonRgn(LPPOINT lpPoints, int nCount, int nMode) {
    return Attach(::CreatePolygonRgn(lpPoints, nCount, nMode));
  }
  BOOL CreatePolyPolygonRgn(LPPOINT lpPoints, LPINT lpPolyCounts, int nCount, int nPolyFillMode) {
    return Attach(::CreatePolyPolygonRgn(lpPoints, lpPolyCounts, nCount, nPolyFillMode));
  }
  BOOL CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3) {
    return Attach(::CreateRoundRectRgn(x1, y1, x2, y2, x3, y3));
  }
  BOOL CreateFromPath(CDC* pDC);
  BOOL CreateFromData(const XFORM* lpXForm, int nCount, const RGNDATA* pRgnData) {
    return Attach(::ExtCreateRegion(lpXForm, nCount, pRgnData));
  }

  // The kind of region that results (NULLREGION ...), or ERROR.
  int CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode);
  int CopyRgn(const CRgn* pRgnSrc) { return ::CombineRgn(*this, *pRgnSrc, nullptr, RGN_COPY); }
  int OffsetRgn(int x, int y) { return ::OffsetRgn(*this, x, y); }
  int OffsetRgn(POINT point) { return ::OffsetRgn(*this, point.x, point.y); }
  int GetRgnBox(LPRECT lpRect) const { return ::GetRgnBox(*this, lpRect); }
  int GetRegionData(LPRGNDATA lpRgnData, int nCount) const {
    return static_cast<int>(::GetRegionData(*this, nCount, lpRgnData));
  }
  void SetRectRgn(int x1, int y1, int x2, int y2) { ::SetRectRgn(*this, x1, y1, x2, y2); }
  void SetRectRgn(LPCRECT r) { ::SetRectRgn(*this, r->left, r->top, r->right, r->bottom); }
  BOOL EqualRgn(const CRgn* pRgn) const { return ::EqualRgn(*this, *pRgn); }
  BOOL PtInRegion(int x, int y) const { return ::PtInRegion(*this, x, y); }
  BOOL PtInRegion(POINT point) const { return ::PtInRegion(*this, point.x, point.y); }
  BOOL RectInRegion(LPCRECT lpRect) const { return ::RectInRegion(*this, lpRect); }
};

// The handle of an object that may be missing.
inline HGDIOBJ _AfxHandle(const CGdiObject* p) { return p != nullptr ? p->m_hObject : nullptr; }
inline HPEN _AfxHandle(const CPen* p) { return p != nullptr ? HPEN(*p) : nullptr; }
inline HBRUSH _AfxHandle(const CBrush* p) { return p != nullptr ? HBRUSH(*p) : nullptr; }
inline HFONT _AfxHandle(const CFont* p) { return p != nullptr ? HFONT(*p) : nullptr; }
inline HBITMAP _AfxHandle(const CBitmap* p) { return p != nullptr ? HBITMAP(*p) : nullptr; }
inline HPALETTE _AfxHandle(const CPalette* p) { return p != nullptr ? HPALETTE(*p) : nullptr; }
inline HRGN _AfxHandle(const CRgn* p) { return p != nullptr ? HRGN(*p) : nullptr; }

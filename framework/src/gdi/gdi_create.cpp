// Creating and asking objects that need more than one call of the system.

#include <afxwin.h>

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap) { return Attach(::CreatePatternBrush(*pBitmap)); }

BOOL CBrush::CreateDIBPatternBrush(HGLOBAL hPackedDIB, UINT nUsage) {
  const void* const bits = GlobalLock(hPackedDIB);
  if (bits == nullptr) return FALSE;
  const BOOL created = CreateDIBPatternBrush(bits, nUsage);
  GlobalUnlock(hPackedDIB);
  return created;
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC) {
  LOGFONT font = {};
  font.lfCharSet = DEFAULT_CHARSET;
  font.lfHeight = nPointSize;
  lstrcpyn(font.lfFaceName, lpszFaceName, LF_FACESIZE);
  return CreatePointFontIndirect(&font, pDC);
}

// Through device units, because the context may have a mapping mode of its own. A height below 0 is
// that of the characters, as points are, and not of the cells.
BOOL CFont::CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC) {
  CDC screen;
  if (pDC == nullptr) {
    if (!screen.CreateIC("DISPLAY", nullptr, nullptr, nullptr)) return FALSE;
    pDC = &screen;
  }
  CPoint height(0, MulDiv(pDC->GetDeviceCaps(LOGPIXELSY), lpLogFont->lfHeight, 720));
  CPoint origin(0, 0);
  pDC->DPtoLP(&height);
  pDC->DPtoLP(&origin);
  LOGFONT font = *lpLogFont;
  font.lfHeight = -abs(height.y - origin.y);
  return CreateFontIndirect(&font);
}

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName) {
  return Attach(::LoadBitmap(AfxFindResourceHandle(lpszResourceName, RT_BITMAP), lpszResourceName));
}

BOOL CBitmap::LoadMappedBitmap(UINT nIDBitmap, UINT nFlags, LPCOLORMAP lpColorMap, int nMapSize) {
  const HINSTANCE module = AfxFindResourceHandle(MAKEINTRESOURCE(nIDBitmap), RT_BITMAP);
  return Attach(::CreateMappedBitmap(module, nIDBitmap, nFlags, lpColorMap, nMapSize));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight) {
  return Attach(::CreateCompatibleBitmap(*pDC, nWidth, nHeight));
}

BOOL CBitmap::CreateDiscardableBitmap(CDC* pDC, int nWidth, int nHeight) {
  return Attach(::CreateDiscardableBitmap(*pDC, nWidth, nHeight));
}

CSize CBitmap::GetBitmapDimension() const {
  CSize size(0, 0);
  ::GetBitmapDimensionEx(*this, &size);
  return size;
}

CSize CBitmap::SetBitmapDimension(int nWidth, int nHeight) {
  CSize before(0, 0);
  ::SetBitmapDimensionEx(*this, nWidth, nHeight, &before);
  return before;
}

BOOL CPalette::CreateHalftonePalette(CDC* pDC) {
  return Attach(::CreateHalftonePalette(_AfxHandle(pDC)));
}

int CPalette::GetEntryCount() {
  WORD count = 0;
  GetObject(sizeof count, &count);
  return count;
}

BOOL CRgn::CreateFromPath(CDC* pDC) { return Attach(::PathToRegion(*pDC)); }

int CRgn::CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode) {
  return ::CombineRgn(*this, _AfxHandle(pRgn1), _AfxHandle(pRgn2), nCombineMode);
}

// Image lists: pictures of one size, drawn by their numbers from 0.
#pragma once

#include "afxdc_.h"

class CWnd;

// Holds a handle. A list that was created or attached is found again by FromHandle in its thread
// and deletes its handle at its end; the objects that FromHandle makes are temporary, as those of
// CGdiObject. The functions are the system's of the same names.
class AFX_CORE_DATA CImageList : public CObject {
  DECLARE_DYNCREATE(CImageList)
 public:
  CImageList() : m_hImageList(nullptr) {}
  ~CImageList() override { DeleteImageList(); }

  HIMAGELIST m_hImageList;
  operator HIMAGELIST() const { return m_hImageList; }
  HIMAGELIST GetSafeHandle() const { return m_hImageList; }
  static CImageList* PASCAL FromHandle(HIMAGELIST hImageList);
  static CImageList* PASCAL FromHandlePermanent(HIMAGELIST hImageList);
  static void PASCAL DeleteTempMap();
  BOOL Attach(HIMAGELIST hImageList);
  HIMAGELIST Detach();

  // Sizes in pixels; nFlags: ILC_COLOR32, ILC_MASK ... From a bitmap resource, cut into pictures cx
  // wide with the colour crMask transparent; from two pictures, the second moved by dx and dy; as a
  // copy.
  BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
  BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask) {
    return Create(MAKEINTRESOURCE(nBitmapID), cx, nGrow, crMask);
  }
  BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
  BOOL Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2, int dx,
              int dy);
  BOOL Create(CImageList* pImageList);
  BOOL DeleteImageList();

  int GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }
  BOOL SetImageCount(UINT uNewCount) { return ::ImageList_SetImageCount(m_hImageList, uNewCount); }
  // The bitmaps of pImageInfo stay the list's.
  BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const {
    return ::ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
  }
  COLORREF GetBkColor() const { return ::ImageList_GetBkColor(m_hImageList); }
  COLORREF SetBkColor(COLORREF cr) { return ::ImageList_SetBkColor(m_hImageList, cr); }
  BOOL SetOverlayImage(int nImage, int nOverlay) {
    return ::ImageList_SetOverlayImage(m_hImageList, nImage, nOverlay);
  }

  // The number of the first picture added, -1: failed. The list copies what it is given; the second
  // form changes the bitmap: its pixels of the mask's colour become black.
  int Add(CBitmap* pbmImage, CBitmap* pbmMask) {
    return ::ImageList_Add(m_hImageList, _AfxHandle(pbmImage), _AfxHandle(pbmMask));
  }
  int Add(CBitmap* pbmImage, COLORREF crMask) {
    return ::ImageList_AddMasked(m_hImageList, _AfxHandle(pbmImage), crMask);
  }
  int Add(HICON hIcon) { return ::ImageList_ReplaceIcon(m_hImageList, -1, hIcon); }
  BOOL Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask) {
    return ::ImageList_Replace(m_hImageList, nImage, _AfxHandle(pbmImage), _AfxHandle(pbmMask));
  }
  int Replace(int nImage, HICON hIcon) {
    return ::ImageList_ReplaceIcon(m_hImageList, nImage, hIcon);
  }
  BOOL Remove(int nImage) { return ::ImageList_Remove(m_hImageList, nImage); }
  BOOL Copy(int iDst, int iSrc, UINT uFlags = ILCF_MOVE) {
    return ::ImageList_Copy(m_hImageList, iDst, m_hImageList, iSrc, uFlags);
  }
  BOOL Copy(int iDst, CImageList* pSrc, int iSrc, UINT uFlags = ILCF_MOVE) {
    return ::ImageList_Copy(m_hImageList, iDst, *pSrc, iSrc, uFlags);
  }
  // The caller's, to be destroyed with DestroyIcon.
  HICON ExtractIcon(int nImage) { return ::ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL); }

  BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle) {
    return ::ImageList_Draw(m_hImageList, nImage, *pDC, pt.x, pt.y, nStyle);
  }
  BOOL DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg,
              UINT nStyle) {
    return ::ImageList_DrawEx(m_hImageList, nImage, *pDC, pt.x, pt.y, sz.cx, sz.cy, clrBk, clrFg,
                              nStyle);
  }
  // The list fills in which one it is.
  BOOL DrawIndirect(IMAGELISTDRAWPARAMS* pimldp);
  BOOL DrawIndirect(CDC* pDC, int nImage, POINT pt, SIZE sz, POINT ptOrigin,
                    UINT fStyle = ILD_NORMAL, DWORD dwRop = SRCCOPY, COLORREF rgbBack = CLR_DEFAULT,
                    COLORREF rgbFore = CLR_DEFAULT, DWORD fState = ILS_NORMAL, DWORD Frame = 0,
                    COLORREF crEffect = CLR_DEFAULT);

  // A picture that follows the mouse.
  BOOL BeginDrag(int nImage, CPoint ptHotSpot) {
    return ::ImageList_BeginDrag(m_hImageList, nImage, ptHotSpot.x, ptHotSpot.y);
  }
  static void PASCAL EndDrag() { ::ImageList_EndDrag(); }
  static BOOL PASCAL DragMove(CPoint pt) { return ::ImageList_DragMove(pt.x, pt.y); }
  BOOL SetDragCursorImage(int nDrag, CPoint ptHotSpot) {
    return ::ImageList_SetDragCursorImage(m_hImageList, nDrag, ptHotSpot.x, ptHotSpot.y);
  }
  static BOOL PASCAL DragShowNolock(BOOL bShow) { return ::ImageList_DragShowNolock(bShow); }
  static CImageList* PASCAL GetDragImage(LPPOINT lpPoint, LPPOINT lpPointHotSpot) {
    return FromHandle(::ImageList_GetDragImage(lpPoint, lpPointHotSpot));
  }
  static BOOL PASCAL DragEnter(CWnd* pWndLock, CPoint point);
  static BOOL PASCAL DragLeave(CWnd* pWndLock);
};

inline HIMAGELIST _AfxHandle(const CImageList* p) {
  return p != nullptr ? p->m_hImageList : nullptr;
}

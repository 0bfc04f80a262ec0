#include <afxcmn.h>

#include "controls/common_classes.h"
#include "threads/handle_map.h"
#include "gdi/temporary_handles.h"
#include "threads/thread_object.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)

namespace {

struct ImageListMap : HandleMap<CImageList, HIMAGELIST> {
  ImageListMap() : HandleMap([](CImageList& list) { list.m_hImageList = nullptr; }) {}
};

ImageListMap& imageListMap() {
  static ThreadObject<ImageListMap> maps;
  return maps.Get();
}

}  // namespace

CImageList* PASCAL CImageList::FromHandle(HIMAGELIST hImageList) {
  if (hImageList == nullptr) return nullptr;
  CImageList* const list = imageListMap().FromHandle(hImageList, [] { return new CImageList; });
  list->m_hImageList = hImageList;
  return list;
}

CImageList* PASCAL CImageList::FromHandlePermanent(HIMAGELIST hImageList) {
  return imageListMap().FindPermanent(hImageList);
}

void DeleteTemporaryImageLists(unsigned since) { imageListMap().DeleteTemporary(since); }

void PASCAL CImageList::DeleteTempMap() { DeleteTemporaryImageLists(0); }

BOOL CImageList::Attach(HIMAGELIST hImageList) {
  if (hImageList == nullptr) return FALSE;
  imageListMap().SetPermanent(hImageList, this);
  m_hImageList = hImageList;
  return TRUE;
}

HIMAGELIST CImageList::Detach() {
  const HIMAGELIST list = m_hImageList;
  if (list != nullptr) imageListMap().Remove(list, this);
  m_hImageList = nullptr;
  return list;
}

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow) {
  return Attach(::ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask) {
  const HINSTANCE module = AfxFindResourceHandle(lpszBitmapID, RT_BITMAP);
  return Attach(::ImageList_LoadBitmap(module, lpszBitmapID, cx, nGrow, crMask));
}

BOOL CImageList::Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2,
                        int dx, int dy) {
  return Attach(::ImageList_Merge(imagelist1, nImage1, imagelist2, nImage2, dx, dy));
}

BOOL CImageList::Create(CImageList* pImageList) {
  return Attach(::ImageList_Duplicate(*pImageList));
}

BOOL CImageList::DeleteImageList() {
  const HIMAGELIST list = Detach();
  return list != nullptr && ::ImageList_Destroy(list);
}

BOOL CImageList::DrawIndirect(IMAGELISTDRAWPARAMS* pimldp) {
  pimldp->cbSize = sizeof *pimldp;
  pimldp->himl = m_hImageList;
  return ::ImageList_DrawIndirect(pimldp);
}

BOOL CImageList::DrawIndirect(CDC* pDC, int nImage, POINT pt, SIZE sz, POINT ptOrigin, UINT fStyle,
                              DWORD dwRop, COLORREF rgbBack, COLORREF rgbFore, DWORD fState,
                              DWORD Frame, COLORREF crEffect) {
  IMAGELISTDRAWPARAMS drawing = {};
  drawing.i = nImage;
  drawing.hdcDst = *pDC;
  drawing.x = pt.x;
  drawing.y = pt.y;
  drawing.cx = sz.cx;
  drawing.cy = sz.cy;
  drawing.xBitmap = ptOrigin.x;
  drawing.yBitmap = ptOrigin.y;
  drawing.rgbBk = rgbBack;
  drawing.rgbFg = rgbFore;
  drawing.fStyle = fStyle;
  drawing.dwRop = dwRop;
  drawing.fState = fState;
  drawing.Frame = Frame;
  drawing.crEffect = crEffect;
  return DrawIndirect(&drawing);
}

BOOL PASCAL CImageList::DragEnter(CWnd* pWndLock, CPoint point) {
  return ::ImageList_DragEnter(pWndLock != nullptr ? pWndLock->m_hWnd : nullptr, point.x, point.y);
}

BOOL PASCAL CImageList::DragLeave(CWnd* pWndLock) {
  return ::ImageList_DragLeave(pWndLock != nullptr ? pWndLock->m_hWnd : nullptr);
}

#include <afxcmn.h>

#include "controls/common_classes.h"
#include "controls/item_text.h"

IMPLEMENT_DYNCREATE(CTabCtrl, CWnd)
IMPLEMENT_DYNCREATE(CProgressCtrl, CWnd)
IMPLEMENT_DYNCREATE(CSliderCtrl, CWnd)
IMPLEMENT_DYNCREATE(CSpinButtonCtrl, CWnd)
IMPLEMENT_DYNCREATE(CStatusBarCtrl, CWnd)

BOOL CTabCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(WC_TABCONTROL, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CProgressCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(PROGRESS_CLASS, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CSliderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(TRACKBAR_CLASS, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CSpinButtonCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(UPDOWN_CLASS, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CStatusBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(STATUSCLASSNAME, nullptr, dwStyle, rect, pParentWnd, nID);
}

LONG CTabCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, int nImage, LPARAM lParam) {
  TCITEM item = {};
  item.mask = nMask;
  item.pszText = const_cast<LPTSTR>(lpszItem);
  item.iImage = nImage;
  item.lParam = lParam;
  return InsertItem(nItem, &item);
}

DWORD CTabCtrl::GetItemState(int nItem, DWORD dwMask) const {
  TCITEM item = {};
  item.mask = TCIF_STATE;
  item.dwStateMask = dwMask;
  return GetItem(nItem, &item) ? item.dwState & dwMask : 0;
}

BOOL CTabCtrl::SetItemState(int nItem, DWORD dwMask, DWORD dwState) {
  TCITEM item = {};
  item.mask = TCIF_STATE;
  item.dwState = dwState;
  item.dwStateMask = dwMask;
  return SetItem(nItem, &item);
}

CToolTipCtrl* CTabCtrl::GetToolTips() const {
  return static_cast<CToolTipCtrl*>(CWnd::FromHandle(_AfxAsk<HWND>(this, TCM_GETTOOLTIPS)));
}

CSize CTabCtrl::SetItemSize(CSize size) {
  const DWORD before = _AfxSend(this, TCM_SETITEMSIZE, 0, MAKELPARAM(size.cx, size.cy));
  return CSize(LOWORD(before), HIWORD(before));
}

void CTabCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CTabCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

void CProgressCtrl::GetRange(int& nLower, int& nUpper) const {
  PBRANGE range = {};
  _AfxSend(this, PBM_GETRANGE, FALSE, &range);
  nLower = range.iLow;
  nUpper = range.iHigh;
}

int CStatusBarCtrl::GetTextLength(int nPane, int* pType) const {
  const DWORD lengthAndType = _AfxSend(this, SB_GETTEXTLENGTH, nPane);
  if (pType != nullptr) *pType = HIWORD(lengthAndType);
  return LOWORD(lengthAndType);
}

int CStatusBarCtrl::GetText(LPTSTR lpszText, int nPane, int* pType) const {
  const DWORD lengthAndType = _AfxSend(this, SB_GETTEXT, nPane, lpszText);
  if (pType != nullptr) *pType = HIWORD(lengthAndType);
  return LOWORD(lengthAndType);
}

CString CStatusBarCtrl::GetText(int nPane, int* pType) const {
  CString text;
  const LPTSTR buffer = text.GetBuffer(GetTextLength(nPane));
  text.ReleaseBuffer(GetText(buffer, nPane, pType));
  return text;
}

CString CStatusBarCtrl::GetTipText(int nPane) const {
  return WholeText([&](LPTSTR buffer, int size) {
    _AfxSend(this, SB_GETTIPTEXT, MAKEWPARAM(nPane, size), buffer);
    return lstrlen(buffer);
  });
}

BOOL CStatusBarCtrl::GetBorders(int& nHorz, int& nVert, int& nSpacing) const {
  int borders[3] = {};
  if (!GetBorders(borders)) return FALSE;
  nHorz = borders[0];
  nVert = borders[1];
  nSpacing = borders[2];
  return TRUE;
}

void CStatusBarCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CStatusBarCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

#include <afxcmn.h>

#include <stdint.h>
#include <string.h>

#include <algorithm>

#include "controls/common_classes.h"
#include "controls/item_text.h"
#include "controls/new_image_list.h"

IMPLEMENT_DYNCREATE(CHeaderCtrl, CWnd)
IMPLEMENT_DYNCREATE(CListCtrl, CWnd)

BEGIN_MESSAGE_MAP(CListCtrl, CWnd)
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

namespace {

CSize unpack(LRESULT size) { return CSize(LOWORD(size), HIWORD(size)); }

}  // namespace

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(WC_HEADER, nullptr, dwStyle, rect, pParentWnd, nID);
}

CImageList* CHeaderCtrl::CreateDragImage(int nIndex) {
  return NewImageList(_AfxAsk<HIMAGELIST>(this, HDM_CREATEDRAGIMAGE, nIndex));
}

void CHeaderCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CHeaderCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(WC_LISTVIEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

// The control deletes its image lists at its end; those that an object holds are taken back.
void CListCtrl::OnNcDestroy() {
  for (const int type : {LVSIL_NORMAL, LVSIL_SMALL, LVSIL_STATE}) {
    const HIMAGELIST list = _AfxAsk<HIMAGELIST>(this, LVM_GETIMAGELIST, type);
    if (CImageList::FromHandlePermanent(list) != nullptr) _AfxSend(this, LVM_SETIMAGELIST, type);
  }
  CWnd::OnNcDestroy();
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const {
  return static_cast<CHeaderCtrl*>(CWnd::FromHandle(_AfxAsk<HWND>(this, LVM_GETHEADER)));
}

CToolTipCtrl* CListCtrl::GetToolTips() const {
  return static_cast<CToolTipCtrl*>(CWnd::FromHandle(_AfxAsk<HWND>(this, LVM_GETTOOLTIPS)));
}

CToolTipCtrl* CListCtrl::SetToolTips(CToolTipCtrl* pWndTip) {
  const HWND tips = pWndTip != nullptr ? pWndTip->m_hWnd : nullptr;
  return static_cast<CToolTipCtrl*>(CWnd::FromHandle(_AfxAsk<HWND>(this, LVM_SETTOOLTIPS, tips)));
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth,
                            int nSubItem) {
  LVCOLUMN column = {};
  column.mask = LVCF_TEXT | LVCF_FMT;
  column.pszText = const_cast<LPTSTR>(lpszColumnHeading);
  column.fmt = nFormat;
  if (nWidth != -1) {
    column.mask |= LVCF_WIDTH;
    column.cx = nWidth;
  }
  if (nSubItem != -1) {
    column.mask |= LVCF_SUBITEM;
    column.iSubItem = nSubItem;
  }
  return InsertColumn(nCol, &column);
}

BOOL CListCtrl::GetColumnOrderArray(LPINT piArray, int iCount) const {
  if (iCount < 0) iCount = GetHeaderCtrl()->GetItemCount();
  return _AfxSend(this, LVM_GETCOLUMNORDERARRAY, iCount, piArray);
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage,
                        UINT nState, UINT nStateMask, LPARAM lParam) {
  return SetItem(nItem, nSubItem, nMask, lpszItem, nImage, nState, nStateMask, lParam, 0);
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage,
                        UINT nState, UINT nStateMask, LPARAM lParam, int nIndent) {
  LVITEM item = {};
  item.mask = nMask;
  item.iItem = nItem;
  item.iSubItem = nSubItem;
  item.pszText = const_cast<LPTSTR>(lpszItem);
  item.iImage = nImage;
  item.state = nState;
  item.stateMask = nStateMask;
  item.lParam = lParam;
  item.iIndent = nIndent;
  return SetItem(&item);
}

int CListCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask,
                          int nImage, LPARAM lParam) {
  LVITEM item = {};
  item.mask = nMask;
  item.iItem = nItem;
  item.pszText = const_cast<LPTSTR>(lpszItem);
  item.state = nState;
  item.stateMask = nStateMask;
  item.iImage = nImage;
  item.lParam = lParam;
  return InsertItem(&item);
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const {
  LVITEM item = {};
  item.iSubItem = nSubItem;
  item.pszText = lpszText;
  item.cchTextMax = nLen;
  const int length = _AfxSend(this, LVM_GETITEMTEXT, nItem, &item);
  if (length < nLen) return length;
  // Some versions of the control do not end a text that they cut.
  if (nLen > 0) lpszText[nLen - 1] = '\0';
  return std::max(nLen - 1, 0);
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const {
  return WholeText(
      [&](LPTSTR buffer, int size) { return GetItemText(nItem, nSubItem, buffer, size); });
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText) {
  return SetItem(nItem, nSubItem, LVIF_TEXT, lpszText, 0, 0, 0, 0);
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const {
  LVITEM item = {};
  item.mask = LVIF_PARAM;
  item.iItem = nItem;
  return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask) {
  LVITEM item = {};
  item.state = nState;
  item.stateMask = nMask;
  return SetItemState(nItem, &item);
}

// A position is an item's number plus 1, so that null means none.
POSITION CListCtrl::GetFirstSelectedItemPosition() const {
  return reinterpret_cast<POSITION>(static_cast<intptr_t>(GetNextItem(-1, LVNI_SELECTED) + 1));
}

int CListCtrl::GetNextSelectedItem(POSITION& pos) const {
  const int item = static_cast<int>(reinterpret_cast<intptr_t>(pos)) - 1;
  pos = reinterpret_cast<POSITION>(static_cast<intptr_t>(GetNextItem(item, LVNI_SELECTED) + 1));
  return item;
}

CEdit* CListCtrl::EditLabel(int nItem) {
  return static_cast<CEdit*>(CWnd::FromHandle(_AfxAsk<HWND>(this, LVM_EDITLABEL, nItem)));
}

CEdit* CListCtrl::GetEditControl() const {
  return static_cast<CEdit*>(CWnd::FromHandle(_AfxAsk<HWND>(this, LVM_GETEDITCONTROL)));
}

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const {
  lpRect->left = static_cast<LONG>(nCode);
  return _AfxSend(this, LVM_GETITEMRECT, nItem, lpRect);
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const {
  CRect rect(nArea, iSubItem, 0, 0);
  if (!_AfxSend(this, LVM_GETSUBITEMRECT, iItem, static_cast<LPRECT>(rect))) return FALSE;
  ref = rect;
  return TRUE;
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const {
  LVHITTESTINFO hit = {};
  hit.pt = pt;
  const int item = HitTest(&hit);
  if (pFlags != nullptr) *pFlags = hit.flags;
  return item;
}

BOOL CListCtrl::GetItemSpacing(BOOL fSmall, int* pnHorzSpacing, int* pnVertSpacing) const {
  const CSize spacing = unpack(_AfxSend(this, LVM_GETITEMSPACING, fSmall));
  *pnHorzSpacing = spacing.cx;
  *pnVertSpacing = spacing.cy;
  return TRUE;
}

CSize CListCtrl::SetIconSpacing(CSize size) {
  return unpack(_AfxSend(this, LVM_SETICONSPACING, 0, MAKELPARAM(size.cx, size.cy)));
}

CSize CListCtrl::ApproximateViewRect(CSize sz, int iCount) const {
  return unpack(_AfxSend(this, LVM_APPROXIMATEVIEWRECT, iCount, MAKELPARAM(sz.cx, sz.cy)));
}

CImageList* CListCtrl::CreateDragImage(int nItem, LPPOINT lpPoint) {
  return NewImageList(_AfxAsk<HIMAGELIST>(this, LVM_CREATEDRAGIMAGE, nItem, lpPoint));
}

void CListCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

#include <afxcmn.h>

#include <string.h>

#include "controls/common_classes.h"
#include "controls/item_text.h"
#include "controls/new_image_list.h"

IMPLEMENT_DYNCREATE(CTreeCtrl, CWnd)

BOOL CTreeCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(WC_TREEVIEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

CToolTipCtrl* CTreeCtrl::GetToolTips() const {
  return static_cast<CToolTipCtrl*>(CWnd::FromHandle(_AfxAsk<HWND>(this, TVM_GETTOOLTIPS)));
}

CToolTipCtrl* CTreeCtrl::SetToolTips(CToolTipCtrl* pWndTip) {
  const HWND tips = pWndTip != nullptr ? pWndTip->m_hWnd : nullptr;
  return static_cast<CToolTipCtrl*>(CWnd::FromHandle(_AfxAsk<HWND>(this, TVM_SETTOOLTIPS, tips)));
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM hItem) const {
  TVITEM item = {};
  item.mask = TVIF_CHILDREN;
  item.hItem = hItem;
  return GetItem(&item) && item.cChildren != 0;
}

HTREEITEM CTreeCtrl::InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage,
                                UINT nState, UINT nStateMask, LPARAM lParam, HTREEITEM hParent,
                                HTREEITEM hInsertAfter) {
  TVINSERTSTRUCT insert = {};
  insert.hParent = hParent;
  insert.hInsertAfter = hInsertAfter;
  insert.item.mask = nMask;
  insert.item.pszText = const_cast<LPTSTR>(lpszItem);
  insert.item.iImage = nImage;
  insert.item.iSelectedImage = nSelectedImage;
  insert.item.state = nState;
  insert.item.stateMask = nStateMask;
  insert.item.lParam = lParam;
  return InsertItem(&insert);
}

BOOL CTreeCtrl::SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage,
                        int nSelectedImage, UINT nState, UINT nStateMask, LPARAM lParam) {
  TVITEM item = {};
  item.mask = nMask;
  item.hItem = hItem;
  item.pszText = const_cast<LPTSTR>(lpszItem);
  item.iImage = nImage;
  item.iSelectedImage = nSelectedImage;
  item.state = nState;
  item.stateMask = nStateMask;
  item.lParam = lParam;
  return SetItem(&item);
}

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const {
  return WholeText([&](LPTSTR buffer, int size) {
    TVITEM item = {};
    item.mask = TVIF_TEXT;
    item.hItem = hItem;
    item.pszText = buffer;
    item.cchTextMax = size;
    return GetItem(&item) ? lstrlen(buffer) : 0;
  });
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const {
  TVITEM item = {};
  item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  item.hItem = hItem;
  if (!GetItem(&item)) return FALSE;
  nImage = item.iImage;
  nSelectedImage = item.iSelectedImage;
  return TRUE;
}

UINT CTreeCtrl::GetItemState(HTREEITEM hItem, UINT nStateMask) const {
  TVITEM item = {};
  item.mask = TVIF_STATE;
  item.hItem = hItem;
  item.stateMask = nStateMask;
  return GetItem(&item) ? item.state & nStateMask : 0;
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const {
  TVITEM item = {};
  item.mask = TVIF_PARAM;
  item.hItem = hItem;
  return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

// The control reads the item from where it writes the rectangle.
BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const {
  memcpy(lpRect, &hItem, sizeof hItem);
  return _AfxSend(this, TVM_GETITEMRECT, bTextOnly, lpRect);
}

HTREEITEM CTreeCtrl::HitTest(CPoint pt, UINT* pFlags) const {
  TVHITTESTINFO hit = {};
  hit.pt = pt;
  const HTREEITEM item = HitTest(&hit);
  if (pFlags != nullptr) *pFlags = hit.flags;
  return item;
}

CEdit* CTreeCtrl::EditLabel(HTREEITEM hItem) {
  return static_cast<CEdit*>(CWnd::FromHandle(_AfxAsk<HWND>(this, TVM_EDITLABEL, 0, hItem)));
}

CEdit* CTreeCtrl::GetEditControl() const {
  return static_cast<CEdit*>(CWnd::FromHandle(_AfxAsk<HWND>(this, TVM_GETEDITCONTROL)));
}

CImageList* CTreeCtrl::CreateDragImage(HTREEITEM hItem) {
  return NewImageList(_AfxAsk<HIMAGELIST>(this, TVM_CREATEDRAGIMAGE, 0, hItem));
}

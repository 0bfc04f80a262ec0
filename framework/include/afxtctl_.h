// The tree control.
#pragma once

#include "afxctl_.h"
#include "afximl_.h"

class CToolTipCtrl;

// Items are named by handles; null: there is none. TVI_ROOT stands for the invisible root.
class AFX_CORE_DATA CTreeCtrl : public CWnd {
  DECLARE_DYNCREATE(CTreeCtrl)
 public:
  CTreeCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // The whole tree.
  UINT GetCount() const { return _AfxSend(this, TVM_GETCOUNT); }
  UINT GetVisibleCount() const { return _AfxSend(this, TVM_GETVISIBLECOUNT); }
  BOOL DeleteAllItems() { return _AfxSend(this, TVM_DELETEITEM, 0, TVI_ROOT); }
  UINT GetIndent() const { return _AfxSend(this, TVM_GETINDENT); }
  void SetIndent(UINT nIndent) { _AfxSend(this, TVM_SETINDENT, nIndent); }
  SHORT GetItemHeight() const { return _AfxSend(this, TVM_GETITEMHEIGHT); }
  SHORT SetItemHeight(SHORT cyHeight) { return _AfxSend(this, TVM_SETITEMHEIGHT, cyHeight); }
  COLORREF GetBkColor() const { return _AfxSend(this, TVM_GETBKCOLOR); }
  COLORREF SetBkColor(COLORREF clr) { return _AfxSend(this, TVM_SETBKCOLOR, 0, clr); }
  COLORREF GetTextColor() const { return _AfxSend(this, TVM_GETTEXTCOLOR); }
  COLORREF SetTextColor(COLORREF clr) { return _AfxSend(this, TVM_SETTEXTCOLOR, 0, clr); }
  COLORREF GetInsertMarkColor() const { return _AfxSend(this, TVM_GETINSERTMARKCOLOR); }
  COLORREF SetInsertMarkColor(COLORREF clr) {
    return _AfxSend(this, TVM_SETINSERTMARKCOLOR, 0, clr);
  }
  BOOL SetInsertMark(HTREEITEM hItem, BOOL fAfter = TRUE) {
    return _AfxSend(this, TVM_SETINSERTMARK, fAfter, hItem);
  }
  UINT GetScrollTime() const { return _AfxSend(this, TVM_GETSCROLLTIME); }
  UINT SetScrollTime(UINT uScrollTime) { return _AfxSend(this, TVM_SETSCROLLTIME, uScrollTime); }
  // nImageList: TVSIL_NORMAL or TVSIL_STATE. The list stays the program's.
  CImageList* GetImageList(UINT nImageList) const {
    return CImageList::FromHandle(_AfxAsk<HIMAGELIST>(this, TVM_GETIMAGELIST, nImageList));
  }
  CImageList* SetImageList(CImageList* pImageList, int nImageListType) {
    return CImageList::FromHandle(
        _AfxAsk<HIMAGELIST>(this, TVM_SETIMAGELIST, nImageListType, _AfxHandle(pImageList)));
  }
  CToolTipCtrl* GetToolTips() const;
  CToolTipCtrl* SetToolTips(CToolTipCtrl* pWndTip);

  // Walking. nCode: TVGN_ values.
  HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const {
    return _AfxAsk<HTREEITEM>(this, TVM_GETNEXTITEM, nCode, hItem);
  }
  HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
  HTREEITEM GetChildItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_CHILD); }
  HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXT); }
  HTREEITEM GetPrevSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUS); }
  HTREEITEM GetParentItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PARENT); }
  HTREEITEM GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }
  HTREEITEM GetNextVisibleItem(HTREEITEM hItem) const {
    return GetNextItem(hItem, TVGN_NEXTVISIBLE);
  }
  HTREEITEM GetPrevVisibleItem(HTREEITEM hItem) const {
    return GetNextItem(hItem, TVGN_PREVIOUSVISIBLE);
  }
  HTREEITEM GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
  HTREEITEM GetDropHilightItem() const { return GetNextItem(nullptr, TVGN_DROPHILITE); }
  BOOL ItemHasChildren(HTREEITEM hItem) const;

  // Items. The new item's handle, null: failed.
  HTREEITEM InsertItem(LPTVINSERTSTRUCT lpInsertStruct) {
    return _AfxAsk<HTREEITEM>(this, TVM_INSERTITEM, 0, lpInsertStruct);
  }
  HTREEITEM InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                       UINT nStateMask, LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter);
  HTREEITEM InsertItem(LPCTSTR lpszItem, HTREEITEM hParent = TVI_ROOT,
                       HTREEITEM hInsertAfter = TVI_LAST) {
    return InsertItem(TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0, hParent, hInsertAfter);
  }
  HTREEITEM InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage,
                       HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST) {
    return InsertItem(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE, lpszItem, nImage, nSelectedImage,
                      0, 0, 0, hParent, hInsertAfter);
  }
  BOOL DeleteItem(HTREEITEM hItem) { return _AfxSend(this, TVM_DELETEITEM, 0, hItem); }
  BOOL GetItem(TVITEM* pItem) const { return _AfxSend(this, TVM_GETITEM, 0, pItem); }
  BOOL SetItem(TVITEM* pItem) { return _AfxSend(this, TVM_SETITEM, 0, pItem); }
  BOOL SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage,
               UINT nState, UINT nStateMask, LPARAM lParam);
  // A text of any length.
  CString GetItemText(HTREEITEM hItem) const;
  BOOL SetItemText(HTREEITEM hItem, LPCTSTR lpszItem) {
    return SetItem(hItem, TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0);
  }
  BOOL GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const;
  BOOL SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage) {
    return SetItem(hItem, TVIF_IMAGE | TVIF_SELECTEDIMAGE, nullptr, nImage, nSelectedImage, 0, 0,
                   0);
  }
  UINT GetItemState(HTREEITEM hItem, UINT nStateMask) const;
  BOOL SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask) {
    return SetItem(hItem, TVIF_STATE, nullptr, 0, 0, nState, nStateMask, 0);
  }
  DWORD_PTR GetItemData(HTREEITEM hItem) const;
  BOOL SetItemData(HTREEITEM hItem, DWORD_PTR dwData) {
    return SetItem(hItem, TVIF_PARAM, nullptr, 0, 0, 0, 0, static_cast<LPARAM>(dwData));
  }
  BOOL GetCheck(HTREEITEM hItem) const {
    return (GetItemState(hItem, TVIS_STATEIMAGEMASK) >> 12) == kChecked;
  }
  BOOL SetCheck(HTREEITEM hItem, BOOL fCheck = TRUE) {
    return SetItemState(hItem, INDEXTOSTATEIMAGEMASK(fCheck ? kChecked : kUnchecked),
                        TVIS_STATEIMAGEMASK);
  }

  // nCode: TVE_ and TVGN_ values.
  BOOL Expand(HTREEITEM hItem, UINT nCode) { return _AfxSend(this, TVM_EXPAND, nCode, hItem); }
  BOOL Select(HTREEITEM hItem, UINT nCode) { return _AfxSend(this, TVM_SELECTITEM, nCode, hItem); }
  BOOL SelectItem(HTREEITEM hItem) { return Select(hItem, TVGN_CARET); }
  BOOL SelectDropTarget(HTREEITEM hItem) { return Select(hItem, TVGN_DROPHILITE); }
  BOOL SelectSetFirstVisible(HTREEITEM hItem) { return Select(hItem, TVGN_FIRSTVISIBLE); }
  BOOL EnsureVisible(HTREEITEM hItem) { return _AfxSend(this, TVM_ENSUREVISIBLE, 0, hItem); }
  // The item's children, by their texts or by the program's comparison.
  BOOL SortChildren(HTREEITEM hItem) { return _AfxSend(this, TVM_SORTCHILDREN, 0, hItem); }
  BOOL SortChildrenCB(LPTVSORTCB pSort) { return _AfxSend(this, TVM_SORTCHILDRENCB, 0, pSort); }

  BOOL GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const;
  // The item under the point; with what of it is there in TVHT_ flags.
  HTREEITEM HitTest(TVHITTESTINFO* pHitTestInfo) const {
    return _AfxAsk<HTREEITEM>(this, TVM_HITTEST, 0, pHitTestInfo);
  }
  HTREEITEM HitTest(CPoint pt, UINT* pFlags = nullptr) const;

  // The edit control exists until the edit ends.
  CEdit* EditLabel(HTREEITEM hItem);
  CEdit* GetEditControl() const;
  BOOL EndEditLabelNow(BOOL bCancel) { return _AfxSend(this, TVM_ENDEDITLABELNOW, bCancel); }
  // The caller's, to be deleted.
  CImageList* CreateDragImage(HTREEITEM hItem);

 private:
  // State images of items with check boxes.
  enum { kUnchecked = 1, kChecked = 2 };
};

// The list control and its header.
#pragma once

#include "afxctl_.h"
#include "afximl_.h"
#include "afxelem_.h"

class CToolTipCtrl;

class AFX_CORE_DATA CHeaderCtrl : public CWnd {
  DECLARE_DYNCREATE(CHeaderCtrl)
 public:
  CHeaderCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetItemCount() const { return _AfxSend(this, HDM_GETITEMCOUNT); }
  BOOL GetItem(int nPos, HDITEM* pHeaderItem) const {
    return _AfxSend(this, HDM_GETITEM, nPos, pHeaderItem);
  }
  BOOL SetItem(int nPos, HDITEM* pHeaderItem) {
    return _AfxSend(this, HDM_SETITEM, nPos, pHeaderItem);
  }
  // The item's number, -1: failed.
  int InsertItem(int nPos, HDITEM* phdi) { return _AfxSend(this, HDM_INSERTITEM, nPos, phdi); }
  BOOL DeleteItem(int nPos) { return _AfxSend(this, HDM_DELETEITEM, nPos); }
  BOOL GetItemRect(int nIndex, LPRECT lpRect) const {
    return _AfxSend(this, HDM_GETITEMRECT, nIndex, lpRect);
  }
  int HitTest(LPHDHITTESTINFO phdhti) { return _AfxSend(this, HDM_HITTEST, 0, phdhti); }
  BOOL Layout(HDLAYOUT* pHeaderLayout) { return _AfxSend(this, HDM_LAYOUT, 0, pHeaderLayout); }
  // The order from left to right: the numbers of the items. iCount -1: all of them.
  BOOL GetOrderArray(LPINT piArray, int iCount = -1) const {
    return _AfxSend(this, HDM_GETORDERARRAY, iCount < 0 ? GetItemCount() : iCount, piArray);
  }
  BOOL SetOrderArray(int iCount, LPINT piArray) {
    return _AfxSend(this, HDM_SETORDERARRAY, iCount, piArray);
  }
  int OrderToIndex(int nOrder) const { return _AfxSend(this, HDM_ORDERTOINDEX, nOrder); }
  int SetHotDivider(CPoint pt) {
    return _AfxSend(this, HDM_SETHOTDIVIDER, TRUE, MAKELPARAM(pt.x, pt.y));
  }
  int SetHotDivider(int nIndex) { return _AfxSend(this, HDM_SETHOTDIVIDER, FALSE, nIndex); }
  int GetBitmapMargin() const { return _AfxSend(this, HDM_GETBITMAPMARGIN); }
  int SetBitmapMargin(int nWidth) { return _AfxSend(this, HDM_SETBITMAPMARGIN, nWidth); }
  CImageList* GetImageList() const {
    return CImageList::FromHandle(_AfxAsk<HIMAGELIST>(this, HDM_GETIMAGELIST));
  }
  CImageList* SetImageList(CImageList* pImageList) {
    return CImageList::FromHandle(
        _AfxAsk<HIMAGELIST>(this, HDM_SETIMAGELIST, 0, _AfxHandle(pImageList)));
  }
  // The caller's, to be deleted.
  CImageList* CreateDragImage(int nIndex);

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// Items are numbered from 0 in the order of the rows, columns in the order in which they were
// inserted: column 0 is the item itself, the others are its subitems. Functions that take an item
// answer FALSE or -1 when there is none.
class AFX_CORE_DATA CListCtrl : public CWnd {
  DECLARE_DYNCREATE(CListCtrl)
 public:
  CListCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // The whole list. SetExtendedStyle returns the style before; with a mask only the mask's bits
  // change.
  DWORD GetExtendedStyle() const { return _AfxSend(this, LVM_GETEXTENDEDLISTVIEWSTYLE); }
  DWORD SetExtendedStyle(DWORD dwNewStyle) {
    return _AfxSend(this, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, dwNewStyle);
  }
  DWORD SetExtendedStyle(DWORD dwExMask, DWORD dwExStyle) {
    return _AfxSend(this, LVM_SETEXTENDEDLISTVIEWSTYLE, dwExMask, dwExStyle);
  }
  int SetView(int iView) { return _AfxSend(this, LVM_SETVIEW, iView); }
  DWORD GetView() const { return _AfxSend(this, LVM_GETVIEW); }
  COLORREF GetBkColor() const { return _AfxSend(this, LVM_GETBKCOLOR); }
  BOOL SetBkColor(COLORREF cr) { return _AfxSend(this, LVM_SETBKCOLOR, 0, cr); }
  COLORREF GetTextColor() const { return _AfxSend(this, LVM_GETTEXTCOLOR); }
  BOOL SetTextColor(COLORREF cr) { return _AfxSend(this, LVM_SETTEXTCOLOR, 0, cr); }
  COLORREF GetTextBkColor() const { return _AfxSend(this, LVM_GETTEXTBKCOLOR); }
  BOOL SetTextBkColor(COLORREF cr) { return _AfxSend(this, LVM_SETTEXTBKCOLOR, 0, cr); }
  BOOL GetBkImage(LVBKIMAGE* plvbkImage) const {
    return _AfxSend(this, LVM_GETBKIMAGE, 0, plvbkImage);
  }
  BOOL SetBkImage(LVBKIMAGE* plvbkImage) { return _AfxSend(this, LVM_SETBKIMAGE, 0, plvbkImage); }
  UINT GetCallbackMask() const { return _AfxSend(this, LVM_GETCALLBACKMASK); }
  BOOL SetCallbackMask(UINT nMask) { return _AfxSend(this, LVM_SETCALLBACKMASK, nMask); }
  // nImageListType: LVSIL_ values. A list that an object of the program holds stays the object's
  // when the control ends, whatever the control's style.
  CImageList* GetImageList(int nImageListType) const {
    return CImageList::FromHandle(_AfxAsk<HIMAGELIST>(this, LVM_GETIMAGELIST, nImageListType));
  }
  CImageList* SetImageList(CImageList* pImageList, int nImageListType) {
    return CImageList::FromHandle(
        _AfxAsk<HIMAGELIST>(this, LVM_SETIMAGELIST, nImageListType, _AfxHandle(pImageList)));
  }
  CHeaderCtrl* GetHeaderCtrl() const;
  CToolTipCtrl* GetToolTips() const;
  CToolTipCtrl* SetToolTips(CToolTipCtrl* pWndTip);

  // Columns.
  BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const {
    return _AfxSend(this, LVM_GETCOLUMN, nCol, pColumn);
  }
  BOOL SetColumn(int nCol, const LVCOLUMN* pColumn) {
    return _AfxSend(this, LVM_SETCOLUMN, nCol, pColumn);
  }
  // The column's number, -1: failed. nFormat: LVCFMT_ values; nWidth -1: none is set.
  int InsertColumn(int nCol, const LVCOLUMN* pColumn) {
    return _AfxSend(this, LVM_INSERTCOLUMN, nCol, pColumn);
  }
  int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                   int nSubItem = -1);
  BOOL DeleteColumn(int nCol) { return _AfxSend(this, LVM_DELETECOLUMN, nCol); }
  int GetColumnWidth(int nCol) const { return _AfxSend(this, LVM_GETCOLUMNWIDTH, nCol); }
  // cx: pixels, LVSCW_AUTOSIZE or LVSCW_AUTOSIZE_USEHEADER.
  BOOL SetColumnWidth(int nCol, int cx) {
    return _AfxSend(this, LVM_SETCOLUMNWIDTH, nCol, MAKELPARAM(cx, 0));
  }
  // The order from left to right: the numbers of the columns. iCount -1: all of them.
  BOOL GetColumnOrderArray(LPINT piArray, int iCount = -1) const;
  BOOL SetColumnOrderArray(int iCount, LPINT piArray) {
    return _AfxSend(this, LVM_SETCOLUMNORDERARRAY, iCount, piArray);
  }

  // Items. InsertItem returns the item's number.
  int GetItemCount() const { return _AfxSend(this, LVM_GETITEMCOUNT); }
  // For a virtual list the count of its rows, else memory for so many. dwFlags: LVSICF_ values.
  void SetItemCount(int nItems) { _AfxSend(this, LVM_SETITEMCOUNT, nItems); }
  BOOL SetItemCountEx(int iCount, DWORD dwFlags = LVSICF_NOINVALIDATEALL) {
    return _AfxSend(this, LVM_SETITEMCOUNT, iCount, dwFlags);
  }
  BOOL GetItem(LVITEM* pItem) const { return _AfxSend(this, LVM_GETITEM, 0, pItem); }
  BOOL SetItem(const LVITEM* pItem) { return _AfxSend(this, LVM_SETITEM, 0, pItem); }
  BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
               UINT nStateMask, LPARAM lParam);
  BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
               UINT nStateMask, LPARAM lParam, int nIndent);
  int InsertItem(const LVITEM* pItem) { return _AfxSend(this, LVM_INSERTITEM, 0, pItem); }
  int InsertItem(int nItem, LPCTSTR lpszItem) {
    return InsertItem(LVIF_TEXT, nItem, lpszItem, 0, 0, 0, 0);
  }
  int InsertItem(int nItem, LPCTSTR lpszItem, int nImage) {
    return InsertItem(LVIF_TEXT | LVIF_IMAGE, nItem, lpszItem, 0, 0, nImage, 0);
  }
  int InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                 LPARAM lParam);
  BOOL DeleteItem(int nItem) { return _AfxSend(this, LVM_DELETEITEM, nItem); }
  BOOL DeleteAllItems() { return _AfxSend(this, LVM_DELETEALLITEMS); }
  // A text of any length. The second form returns the length, cut to the buffer.
  CString GetItemText(int nItem, int nSubItem) const;
  int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
  BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
  DWORD_PTR GetItemData(int nItem) const;
  BOOL SetItemData(int nItem, DWORD_PTR dwData) {
    return SetItem(nItem, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(dwData));
  }
  BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData) {
    return _AfxSend(this, LVM_SORTITEMS, dwData, pfnCompare);
  }
  // The comparison gets the items' numbers and not their data.
  BOOL SortItemsEx(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData) {
    return _AfxSend(this, LVM_SORTITEMSEX, dwData, pfnCompare);
  }

  // State and selection. nItem -1: all items.
  UINT GetItemState(int nItem, UINT nMask) const {
    return _AfxSend(this, LVM_GETITEMSTATE, nItem, nMask);
  }
  BOOL SetItemState(int nItem, LVITEM* pItem) {
    return _AfxSend(this, LVM_SETITEMSTATE, nItem, pItem);
  }
  BOOL SetItemState(int nItem, UINT nState, UINT nMask);
  BOOL GetCheck(int nItem) const {
    return (GetItemState(nItem, LVIS_STATEIMAGEMASK) >> 12) == kChecked;
  }
  BOOL SetCheck(int nItem, BOOL fCheck = TRUE) {
    return SetItemState(nItem, INDEXTOSTATEIMAGEMASK(fCheck ? kChecked : kUnchecked),
                        LVIS_STATEIMAGEMASK);
  }
  UINT GetSelectedCount() const { return _AfxSend(this, LVM_GETSELECTEDCOUNT); }
  // while (pos != NULL) nItem = GetNextSelectedItem(pos);
  POSITION GetFirstSelectedItemPosition() const;
  int GetNextSelectedItem(POSITION& pos) const;
  int GetSelectionMark() const { return _AfxSend(this, LVM_GETSELECTIONMARK); }
  int SetSelectionMark(int iIndex) { return _AfxSend(this, LVM_SETSELECTIONMARK, 0, iIndex); }
  // The next item after nItem (-1: the first) with the flags LVNI_, -1: none.
  int GetNextItem(int nItem, int nFlags) const {
    return _AfxSend(this, LVM_GETNEXTITEM, nItem, MAKELPARAM(nFlags, 0));
  }
  int FindItem(LVFINDINFO* pFindInfo, int nStart = -1) const {
    return _AfxSend(this, LVM_FINDITEM, nStart, pFindInfo);
  }
  int GetHotItem() const { return _AfxSend(this, LVM_GETHOTITEM); }
  int SetHotItem(int iIndex) { return _AfxSend(this, LVM_SETHOTITEM, iIndex); }
  HCURSOR GetHotCursor() const { return _AfxAsk<HCURSOR>(this, LVM_GETHOTCURSOR); }
  HCURSOR SetHotCursor(HCURSOR hc) { return _AfxAsk<HCURSOR>(this, LVM_SETHOTCURSOR, 0, hc); }
  DWORD GetHoverTime() const { return _AfxSend(this, LVM_GETHOVERTIME); }
  DWORD SetHoverTime(DWORD dwHoverTime = static_cast<DWORD>(-1)) {
    return _AfxSend(this, LVM_SETHOVERTIME, 0, dwHoverTime);
  }

  // Editing of labels: the edit control exists until the edit ends. CancelEditLabel drops the text.
  CEdit* EditLabel(int nItem);
  CEdit* GetEditControl() const;
  void CancelEditLabel() { _AfxSend(this, LVM_CANCELEDITLABEL); }

  // Places and sizes, in pixels. nCode, nArea: LVIR_ values.
  int GetTopIndex() const { return _AfxSend(this, LVM_GETTOPINDEX); }
  int GetCountPerPage() const { return _AfxSend(this, LVM_GETCOUNTPERPAGE); }
  BOOL EnsureVisible(int nItem, BOOL bPartialOK) {
    return _AfxSend(this, LVM_ENSUREVISIBLE, nItem, MAKELPARAM(bPartialOK, 0));
  }
  BOOL IsItemVisible(int nItem) const { return _AfxSend(this, LVM_ISITEMVISIBLE, nItem); }
  BOOL Scroll(CSize size) { return _AfxSend(this, LVM_SCROLL, size.cx, size.cy); }
  BOOL RedrawItems(int nFirst, int nLast) { return _AfxSend(this, LVM_REDRAWITEMS, nFirst, nLast); }
  BOOL Update(int nItem) { return _AfxSend(this, LVM_UPDATE, nItem); }
  BOOL Arrange(UINT nCode) { return _AfxSend(this, LVM_ARRANGE, nCode); }
  BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
  BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const;
  // The item under the point, -1: none; with what of it is there in LVHT_ flags.
  int HitTest(LVHITTESTINFO* pHitTestInfo) const {
    return _AfxSend(this, LVM_HITTEST, 0, pHitTestInfo);
  }
  int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
  int SubItemHitTest(LPLVHITTESTINFO pInfo) { return _AfxSend(this, LVM_SUBITEMHITTEST, 0, pInfo); }
  BOOL GetItemPosition(int nItem, LPPOINT lpPoint) const {
    return _AfxSend(this, LVM_GETITEMPOSITION, nItem, lpPoint);
  }
  BOOL SetItemPosition(int nItem, POINT pt) {
    return _AfxSend(this, LVM_SETITEMPOSITION32, nItem, &pt);
  }
  BOOL GetViewRect(LPRECT lpRect) const { return _AfxSend(this, LVM_GETVIEWRECT, 0, lpRect); }
  BOOL GetOrigin(LPPOINT lpPoint) const { return _AfxSend(this, LVM_GETORIGIN, 0, lpPoint); }
  int GetStringWidth(LPCTSTR lpsz) const { return _AfxSend(this, LVM_GETSTRINGWIDTH, 0, lpsz); }
  BOOL GetItemSpacing(BOOL fSmall, int* pnHorzSpacing, int* pnVertSpacing) const;
  CSize SetIconSpacing(int cx, int cy) { return SetIconSpacing(CSize(cx, cy)); }
  CSize SetIconSpacing(CSize size);
  CSize ApproximateViewRect(CSize sz = CSize(-1, -1), int iCount = -1) const;
  // The caller's, to be deleted. lpPoint: receives where the picture belongs.
  CImageList* CreateDragImage(int nItem, LPPOINT lpPoint);

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
  afx_msg void OnNcDestroy();
  DECLARE_MESSAGE_MAP()

 private:
  // State images of items with check boxes.
  enum { kUnchecked = 1, kChecked = 2 };
};

// The standard controls. Their functions send the system's messages of the same names; what the
// arguments and results mean is in the system's documentation.
//
// Owner-drawn controls answer for themselves: DrawItem and its like are called when the parent
// passes the question back to the control.
#pragma once

#include "afxdc_.h"
#include "afxmenu_.h"
#include "afxwnd_.h"

// Sends a message whose arguments are numbers or pointers.
template <class W = WPARAM, class L = LPARAM>
inline LRESULT _AfxSend(const CWnd* pWnd, UINT message, W wParam = W(), L lParam = L()) {
  return ::SendMessage(pWnd->m_hWnd, message, (WPARAM)wParam, (LPARAM)lParam);
}

// One whose result is a handle or a pointer.
template <class Result, class W = WPARAM, class L = LPARAM>
inline Result _AfxAsk(const CWnd* pWnd, UINT message, W wParam = W(), L lParam = L()) {
  return reinterpret_cast<Result>(_AfxSend(pWnd, message, wParam, lParam));
}

class AFX_CORE_DATA CStatic : public CWnd {
  DECLARE_DYNAMIC(CStatic)
 public:
  CStatic() {}
  BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
              UINT nID = 0xffff);

  // What is set stays the program's; the result is what was set before.
  HICON SetIcon(HICON hIcon) { return _AfxAsk<HICON>(this, STM_SETIMAGE, IMAGE_ICON, hIcon); }
  HICON GetIcon() const { return _AfxAsk<HICON>(this, STM_GETIMAGE, IMAGE_ICON); }
  HBITMAP SetBitmap(HBITMAP hBitmap) {
    return _AfxAsk<HBITMAP>(this, STM_SETIMAGE, IMAGE_BITMAP, hBitmap);
  }
  HBITMAP GetBitmap() const { return _AfxAsk<HBITMAP>(this, STM_GETIMAGE, IMAGE_BITMAP); }
  HCURSOR SetCursor(HCURSOR hCursor) {
    return _AfxAsk<HCURSOR>(this, STM_SETIMAGE, IMAGE_CURSOR, hCursor);
  }
  HCURSOR GetCursor() const { return _AfxAsk<HCURSOR>(this, STM_GETIMAGE, IMAGE_CURSOR); }
  HENHMETAFILE SetEnhMetaFile(HENHMETAFILE hMetaFile) {
    return _AfxAsk<HENHMETAFILE>(this, STM_SETIMAGE, IMAGE_ENHMETAFILE, hMetaFile);
  }
  HENHMETAFILE GetEnhMetaFile() const {
    return _AfxAsk<HENHMETAFILE>(this, STM_GETIMAGE, IMAGE_ENHMETAFILE);
  }

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_CORE_DATA CButton : public CWnd {
  DECLARE_DYNAMIC(CButton)
 public:
  CButton() {}
  BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  UINT GetState() const { return _AfxSend(this, BM_GETSTATE); }
  void SetState(BOOL bHighlight) { _AfxSend(this, BM_SETSTATE, bHighlight); }
  // 0 unchecked, 1 checked, 2 undetermined.
  int GetCheck() const { return _AfxSend(this, BM_GETCHECK); }
  void SetCheck(int nCheck) { _AfxSend(this, BM_SETCHECK, nCheck); }
  UINT GetButtonStyle() const { return ::GetWindowLong(m_hWnd, GWL_STYLE) & 0xff; }
  void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE) {
    _AfxSend(this, BM_SETSTYLE, nStyle, bRedraw);
  }
  HICON SetIcon(HICON hIcon) { return _AfxAsk<HICON>(this, BM_SETIMAGE, IMAGE_ICON, hIcon); }
  HICON GetIcon() const { return _AfxAsk<HICON>(this, BM_GETIMAGE, IMAGE_ICON); }
  HBITMAP SetBitmap(HBITMAP hBitmap) {
    return _AfxAsk<HBITMAP>(this, BM_SETIMAGE, IMAGE_BITMAP, hBitmap);
  }
  HBITMAP GetBitmap() const { return _AfxAsk<HBITMAP>(this, BM_GETIMAGE, IMAGE_BITMAP); }
  HCURSOR SetCursor(HCURSOR hCursor) {
    return _AfxAsk<HCURSOR>(this, BM_SETIMAGE, IMAGE_CURSOR, hCursor);
  }
  HCURSOR GetCursor() const { return _AfxAsk<HCURSOR>(this, BM_GETIMAGE, IMAGE_CURSOR); }

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_CORE_DATA CEdit : public CWnd {
  DECLARE_DYNAMIC(CEdit)
 public:
  CEdit() {}
  BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  BOOL CanUndo() const { return _AfxSend(this, EM_CANUNDO); }
  BOOL GetModify() const { return _AfxSend(this, EM_GETMODIFY); }
  void SetModify(BOOL bModified = TRUE) { _AfxSend(this, EM_SETMODIFY, bModified); }
  BOOL SetReadOnly(BOOL bReadOnly = TRUE) { return _AfxSend(this, EM_SETREADONLY, bReadOnly); }
  TCHAR GetPasswordChar() const { return _AfxSend(this, EM_GETPASSWORDCHAR); }
  void SetPasswordChar(TCHAR ch) { _AfxSend(this, EM_SETPASSWORDCHAR, ch); }
  // In characters; 0 stands for the largest that the system allows.
  UINT GetLimitText() const { return _AfxSend(this, EM_GETLIMITTEXT); }
  void SetLimitText(UINT nMax) { _AfxSend(this, EM_SETLIMITTEXT, nMax); }
  void LimitText(int nChars = 0) { _AfxSend(this, EM_LIMITTEXT, nChars); }

  // The start in the low word and the end in the high word, for texts of less than 65,536
  // characters.
  DWORD GetSel() const { return _AfxSend(this, EM_GETSEL); }
  void GetSel(int& nStartChar, int& nEndChar) const {
    _AfxSend(this, EM_GETSEL, &nStartChar, &nEndChar);
  }
  void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE) {
    SetSel(static_cast<short>(LOWORD(dwSelection)), static_cast<short>(HIWORD(dwSelection)),
           bNoScroll);
  }
  void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
  void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE) {
    _AfxSend(this, EM_REPLACESEL, bCanUndo, lpszNewText);
  }
  BOOL Undo() { return _AfxSend(this, EM_UNDO); }
  void EmptyUndoBuffer() { _AfxSend(this, EM_EMPTYUNDOBUFFER); }
  void Clear() { _AfxSend(this, WM_CLEAR); }
  void Copy() { _AfxSend(this, WM_COPY); }
  void Cut() { _AfxSend(this, WM_CUT); }
  void Paste() { _AfxSend(this, WM_PASTE); }

  // Lines, of edits with several. GetLine does not add a null; its first form takes the size of the
  // buffer from the buffer's first word. The result is the count of characters.
  int GetLineCount() const { return _AfxSend(this, EM_GETLINECOUNT); }
  int GetLine(int nIndex, LPTSTR lpszBuffer) const {
    return _AfxSend(this, EM_GETLINE, nIndex, lpszBuffer);
  }
  int GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const;
  int GetFirstVisibleLine() const { return _AfxSend(this, EM_GETFIRSTVISIBLELINE); }
  int LineFromChar(int nIndex = -1) const { return _AfxSend(this, EM_LINEFROMCHAR, nIndex); }
  int LineIndex(int nLine = -1) const { return _AfxSend(this, EM_LINEINDEX, nLine); }
  int LineLength(int nLine = -1) const { return _AfxSend(this, EM_LINELENGTH, nLine); }
  void LineScroll(int nLines, int nChars = 0) { _AfxSend(this, EM_LINESCROLL, nChars, nLines); }
  BOOL FmtLines(BOOL bAddEOL) { return _AfxSend(this, EM_FMTLINES, bAddEOL); }
  void SetTabStops() { _AfxSend(this, EM_SETTABSTOPS); }
  BOOL SetTabStops(const int& cxEachStop) { return _AfxSend(this, EM_SETTABSTOPS, 1, &cxEachStop); }
  BOOL SetTabStops(int nTabStops, LPINT rgTabStops) {
    return _AfxSend(this, EM_SETTABSTOPS, nTabStops, rgTabStops);
  }

  // Places.
  void GetRect(LPRECT lpRect) const { _AfxSend(this, EM_GETRECT, 0, lpRect); }
  void SetRect(LPCRECT lpRect) { _AfxSend(this, EM_SETRECT, 0, lpRect); }
  void SetRectNP(LPCRECT lpRect) { _AfxSend(this, EM_SETRECTNP, 0, lpRect); }
  DWORD GetMargins() const { return _AfxSend(this, EM_GETMARGINS); }
  void SetMargins(UINT nLeft, UINT nRight) {
    _AfxSend(this, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(nLeft, nRight));
  }
  // The character in the low word and its line in the high word.
  int CharFromPos(CPoint pt) const {
    return _AfxSend(this, EM_CHARFROMPOS, 0, MAKELPARAM(pt.x, pt.y));
  }
  CPoint PosFromChar(UINT nChar) const {
    const LRESULT position = _AfxSend(this, EM_POSFROMCHAR, nChar);
    return CPoint(static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position)));
  }
  HLOCAL GetHandle() const { return _AfxAsk<HLOCAL>(this, EM_GETHANDLE); }
  void SetHandle(HLOCAL hBuffer) { _AfxSend(this, EM_SETHANDLE, hBuffer); }
};

class AFX_CORE_DATA CListBox : public CWnd {
  DECLARE_DYNAMIC(CListBox)
 public:
  CListBox() {}
  BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // The whole list. LB_ERR and LB_ERRSPACE tell of errors.
  int GetCount() const { return _AfxSend(this, LB_GETCOUNT); }
  int InitStorage(int nItems, UINT nBytes) {
    return _AfxSend(this, LB_INITSTORAGE, nItems, nBytes);
  }
  void ResetContent() { _AfxSend(this, LB_RESETCONTENT); }
  int Dir(UINT attr, LPCTSTR lpszWildCard) { return _AfxSend(this, LB_DIR, attr, lpszWildCard); }
  LCID GetLocale() const { return _AfxSend(this, LB_GETLOCALE); }
  LCID SetLocale(LCID nNewLocale) { return _AfxSend(this, LB_SETLOCALE, nNewLocale); }

  // Items.
  int AddString(LPCTSTR lpszItem) { return _AfxSend(this, LB_ADDSTRING, 0, lpszItem); }
  int InsertString(int nIndex, LPCTSTR lpszItem) {
    return _AfxSend(this, LB_INSERTSTRING, nIndex, lpszItem);
  }
  int DeleteString(UINT nIndex) { return _AfxSend(this, LB_DELETESTRING, nIndex); }
  int GetText(int nIndex, LPTSTR lpszBuffer) const {
    return _AfxSend(this, LB_GETTEXT, nIndex, lpszBuffer);
  }
  void GetText(int nIndex, CString& rString) const;
  int GetTextLen(int nIndex) const { return _AfxSend(this, LB_GETTEXTLEN, nIndex); }
  DWORD_PTR GetItemData(int nIndex) const { return _AfxSend(this, LB_GETITEMDATA, nIndex); }
  int SetItemData(int nIndex, DWORD_PTR dwItemData) {
    return _AfxSend(this, LB_SETITEMDATA, nIndex, dwItemData);
  }
  void* GetItemDataPtr(int nIndex) const { return _AfxAsk<void*>(this, LB_GETITEMDATA, nIndex); }
  int SetItemDataPtr(int nIndex, void* pData) {
    return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData));
  }
  int FindString(int nStartAfter, LPCTSTR lpszItem) const {
    return _AfxSend(this, LB_FINDSTRING, nStartAfter, lpszItem);
  }
  int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const {
    return _AfxSend(this, LB_FINDSTRINGEXACT, nIndexStart, lpszFind);
  }

  // Selection, of lists with one and with several selected items.
  int GetCurSel() const { return _AfxSend(this, LB_GETCURSEL); }
  int SetCurSel(int nSelect) { return _AfxSend(this, LB_SETCURSEL, nSelect); }
  int SelectString(int nStartAfter, LPCTSTR lpszItem) {
    return _AfxSend(this, LB_SELECTSTRING, nStartAfter, lpszItem);
  }
  int GetSel(int nIndex) const { return _AfxSend(this, LB_GETSEL, nIndex); }
  int SetSel(int nIndex, BOOL bSelect = TRUE) { return _AfxSend(this, LB_SETSEL, bSelect, nIndex); }
  int GetSelCount() const { return _AfxSend(this, LB_GETSELCOUNT); }
  int GetSelItems(int nMaxItems, LPINT rgIndex) const {
    return _AfxSend(this, LB_GETSELITEMS, nMaxItems, rgIndex);
  }
  int SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem);
  int GetAnchorIndex() const { return _AfxSend(this, LB_GETANCHORINDEX); }
  void SetAnchorIndex(int nIndex) { _AfxSend(this, LB_SETANCHORINDEX, nIndex); }
  int GetCaretIndex() const { return _AfxSend(this, LB_GETCARETINDEX); }
  int SetCaretIndex(int nIndex, BOOL bScroll = TRUE) {
    return _AfxSend(this, LB_SETCARETINDEX, nIndex, !bScroll);
  }

  // Places and sizes, in pixels.
  int GetTopIndex() const { return _AfxSend(this, LB_GETTOPINDEX); }
  int SetTopIndex(int nIndex) { return _AfxSend(this, LB_SETTOPINDEX, nIndex); }
  int GetItemRect(int nIndex, LPRECT lpRect) const {
    return _AfxSend(this, LB_GETITEMRECT, nIndex, lpRect);
  }
  // The nearest item; bOutside: the point is not in the list's client area.
  UINT ItemFromPoint(CPoint pt, BOOL& bOutside) const {
    const DWORD found = _AfxSend(this, LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y));
    bOutside = HIWORD(found) != 0;
    return LOWORD(found);
  }
  int GetItemHeight(int nIndex) const { return _AfxSend(this, LB_GETITEMHEIGHT, nIndex); }
  int SetItemHeight(int nIndex, UINT cyItemHeight) {
    return _AfxSend(this, LB_SETITEMHEIGHT, nIndex, MAKELONG(cyItemHeight, 0));
  }
  void SetColumnWidth(int cxWidth) { _AfxSend(this, LB_SETCOLUMNWIDTH, cxWidth); }
  int GetHorizontalExtent() const { return _AfxSend(this, LB_GETHORIZONTALEXTENT); }
  void SetHorizontalExtent(int cxExtent) { _AfxSend(this, LB_SETHORIZONTALEXTENT, cxExtent); }
  void SetTabStops() { _AfxSend(this, LB_SETTABSTOPS); }
  BOOL SetTabStops(const int& cxEachStop) { return _AfxSend(this, LB_SETTABSTOPS, 1, &cxEachStop); }
  BOOL SetTabStops(int nTabStops, LPINT rgTabStops) {
    return _AfxSend(this, LB_SETTABSTOPS, nTabStops, rgTabStops);
  }

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
  virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);
  // For lists that want keyboard input: -1 the system acts, -2 nothing is left to do, else the item
  // to act on.
  virtual int VKeyToItem(UINT nKey, UINT nIndex);
  virtual int CharToItem(UINT nKey, UINT nIndex);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_CORE_DATA CComboBox : public CWnd {
  DECLARE_DYNAMIC(CComboBox)
 public:
  CComboBox() {}
  BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // The whole list. CB_ERR and CB_ERRSPACE tell of errors.
  int GetCount() const { return _AfxSend(this, CB_GETCOUNT); }
  int InitStorage(int nItems, UINT nBytes) {
    return _AfxSend(this, CB_INITSTORAGE, nItems, nBytes);
  }
  void ResetContent() { _AfxSend(this, CB_RESETCONTENT); }
  int Dir(UINT attr, LPCTSTR lpszWildCard) { return _AfxSend(this, CB_DIR, attr, lpszWildCard); }
  LCID GetLocale() const { return _AfxSend(this, CB_GETLOCALE); }
  LCID SetLocale(LCID nNewLocale) { return _AfxSend(this, CB_SETLOCALE, nNewLocale); }

  // Items.
  int AddString(LPCTSTR lpszString) { return _AfxSend(this, CB_ADDSTRING, 0, lpszString); }
  int InsertString(int nIndex, LPCTSTR lpszString) {
    return _AfxSend(this, CB_INSERTSTRING, nIndex, lpszString);
  }
  int DeleteString(UINT nIndex) { return _AfxSend(this, CB_DELETESTRING, nIndex); }
  int GetLBText(int nIndex, LPTSTR lpszText) const {
    return _AfxSend(this, CB_GETLBTEXT, nIndex, lpszText);
  }
  void GetLBText(int nIndex, CString& rString) const;
  int GetLBTextLen(int nIndex) const { return _AfxSend(this, CB_GETLBTEXTLEN, nIndex); }
  DWORD_PTR GetItemData(int nIndex) const { return _AfxSend(this, CB_GETITEMDATA, nIndex); }
  int SetItemData(int nIndex, DWORD_PTR dwItemData) {
    return _AfxSend(this, CB_SETITEMDATA, nIndex, dwItemData);
  }
  void* GetItemDataPtr(int nIndex) const { return _AfxAsk<void*>(this, CB_GETITEMDATA, nIndex); }
  int SetItemDataPtr(int nIndex, void* pData) {
    return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData));
  }
  int FindString(int nStartAfter, LPCTSTR lpszString) const {
    return _AfxSend(this, CB_FINDSTRING, nStartAfter, lpszString);
  }
  int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const {
    return _AfxSend(this, CB_FINDSTRINGEXACT, nIndexStart, lpszFind);
  }
  int GetCurSel() const { return _AfxSend(this, CB_GETCURSEL); }
  int SetCurSel(int nSelect) { return _AfxSend(this, CB_SETCURSEL, nSelect); }
  int SelectString(int nStartAfter, LPCTSTR lpszString) {
    return _AfxSend(this, CB_SELECTSTRING, nStartAfter, lpszString);
  }

  // The edit.
  DWORD GetEditSel() const { return _AfxSend(this, CB_GETEDITSEL); }
  BOOL SetEditSel(int nStartChar, int nEndChar) {
    return _AfxSend(this, CB_SETEDITSEL, 0, MAKELONG(nStartChar, nEndChar));
  }
  BOOL LimitText(int nMaxChars) { return _AfxSend(this, CB_LIMITTEXT, nMaxChars); }
  void Clear() { _AfxSend(this, WM_CLEAR); }
  void Copy() { _AfxSend(this, WM_COPY); }
  void Cut() { _AfxSend(this, WM_CUT); }
  void Paste() { _AfxSend(this, WM_PASTE); }

  // The dropped list. Places and sizes in pixels.
  void ShowDropDown(BOOL bShowIt = TRUE) { _AfxSend(this, CB_SHOWDROPDOWN, bShowIt); }
  BOOL GetDroppedState() const { return _AfxSend(this, CB_GETDROPPEDSTATE); }
  void GetDroppedControlRect(LPRECT lprect) const {
    _AfxSend(this, CB_GETDROPPEDCONTROLRECT, 0, lprect);
  }
  int GetDroppedWidth() const { return _AfxSend(this, CB_GETDROPPEDWIDTH); }
  int SetDroppedWidth(UINT nWidth) { return _AfxSend(this, CB_SETDROPPEDWIDTH, nWidth); }
  BOOL GetExtendedUI() const { return _AfxSend(this, CB_GETEXTENDEDUI); }
  int SetExtendedUI(BOOL bExtended = TRUE) { return _AfxSend(this, CB_SETEXTENDEDUI, bExtended); }
  int GetTopIndex() const { return _AfxSend(this, CB_GETTOPINDEX); }
  int SetTopIndex(int nIndex) { return _AfxSend(this, CB_SETTOPINDEX, nIndex); }
  // Of an item, or with -1 of the edit.
  int GetItemHeight(int nIndex) const { return _AfxSend(this, CB_GETITEMHEIGHT, nIndex); }
  int SetItemHeight(int nIndex, UINT cyItemHeight) {
    return _AfxSend(this, CB_SETITEMHEIGHT, nIndex, cyItemHeight);
  }
  UINT GetHorizontalExtent() const { return _AfxSend(this, CB_GETHORIZONTALEXTENT); }
  void SetHorizontalExtent(UINT nExtent) { _AfxSend(this, CB_SETHORIZONTALEXTENT, nExtent); }
  BOOL GetComboBoxInfo(PCOMBOBOXINFO pcbi) const { return ::GetComboBoxInfo(m_hWnd, pcbi); }

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
  virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// A scroll bar that is a window of its own.
class AFX_CORE_DATA CScrollBar : public CWnd {
  DECLARE_DYNAMIC(CScrollBar)
 public:
  CScrollBar() {}
  BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
  int SetScrollPos(int nPos, BOOL bRedraw = TRUE) {
    return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw);
  }
  void GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const {
    ::GetScrollRange(m_hWnd, SB_CTL, lpMinPos, lpMaxPos);
  }
  void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE) {
    ::SetScrollRange(m_hWnd, SB_CTL, nMinPos, nMaxPos, bRedraw);
  }
  void ShowScrollBar(BOOL bShow = TRUE) { ::ShowScrollBar(m_hWnd, SB_CTL, bShow); }
  BOOL EnableScrollBar(UINT nArrowFlags = ESB_ENABLE_BOTH) {
    return ::EnableScrollBar(m_hWnd, SB_CTL, nArrowFlags);
  }
  BOOL GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
  BOOL SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
  int GetScrollLimit();
};

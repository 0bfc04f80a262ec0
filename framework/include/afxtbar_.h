// The tool bar control.
#pragma once

#include "afxctl_.h"
#include "afximl_.h"

class CToolTipCtrl;

// Buttons are named by their command ids, or where it says nIndex by their numbers from the left.
class AFX_CORE_DATA CToolBarCtrl : public CWnd {
  DECLARE_DYNAMIC(CToolBarCtrl)
 public:
  CToolBarCtrl() {}
  // Tells the control which version of TBBUTTON the program has.
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // State.
  BOOL EnableButton(int nID, BOOL bEnable = TRUE) {
    return _AfxSend(this, TB_ENABLEBUTTON, nID, MAKELPARAM(bEnable, 0));
  }
  BOOL CheckButton(int nID, BOOL bCheck = TRUE) {
    return _AfxSend(this, TB_CHECKBUTTON, nID, MAKELPARAM(bCheck, 0));
  }
  BOOL PressButton(int nID, BOOL bPress = TRUE) {
    return _AfxSend(this, TB_PRESSBUTTON, nID, MAKELPARAM(bPress, 0));
  }
  BOOL HideButton(int nID, BOOL bHide = TRUE) {
    return _AfxSend(this, TB_HIDEBUTTON, nID, MAKELPARAM(bHide, 0));
  }
  BOOL Indeterminate(int nID, BOOL bIndeterminate = TRUE) {
    return _AfxSend(this, TB_INDETERMINATE, nID, MAKELPARAM(bIndeterminate, 0));
  }
  BOOL IsButtonEnabled(int nID) const { return _AfxSend(this, TB_ISBUTTONENABLED, nID); }
  BOOL IsButtonChecked(int nID) const { return _AfxSend(this, TB_ISBUTTONCHECKED, nID); }
  BOOL IsButtonPressed(int nID) const { return _AfxSend(this, TB_ISBUTTONPRESSED, nID); }
  BOOL IsButtonHidden(int nID) const { return _AfxSend(this, TB_ISBUTTONHIDDEN, nID); }
  BOOL IsButtonIndeterminate(int nID) const {
    return _AfxSend(this, TB_ISBUTTONINDETERMINATE, nID);
  }
  // TBSTATE_ values; -1: there is no such button.
  int GetState(int nID) const { return _AfxSend(this, TB_GETSTATE, nID); }
  BOOL SetState(int nID, UINT nState) {
    return _AfxSend(this, TB_SETSTATE, nID, MAKELPARAM(nState, 0));
  }

  // Buttons. AddStrings takes texts that each end with a null and together with another one; both
  // return the number of the first text added.
  BOOL AddButtons(int nNumButtons, LPTBBUTTON lpButtons) {
    return _AfxSend(this, TB_ADDBUTTONS, nNumButtons, lpButtons);
  }
  BOOL InsertButton(int nIndex, LPTBBUTTON lpButton) {
    return _AfxSend(this, TB_INSERTBUTTON, nIndex, lpButton);
  }
  BOOL DeleteButton(int nIndex) { return _AfxSend(this, TB_DELETEBUTTON, nIndex); }
  BOOL GetButton(int nIndex, LPTBBUTTON lpButton) const {
    return _AfxSend(this, TB_GETBUTTON, nIndex, lpButton);
  }
  int GetButtonInfo(int nID, TBBUTTONINFO* ptbbi) const {
    return _AfxSend(this, TB_GETBUTTONINFO, nID, ptbbi);
  }
  BOOL SetButtonInfo(int nID, TBBUTTONINFO* ptbbi) {
    return _AfxSend(this, TB_SETBUTTONINFO, nID, ptbbi);
  }
  int GetButtonCount() const { return _AfxSend(this, TB_BUTTONCOUNT); }
  UINT CommandToIndex(UINT nID) const { return _AfxSend(this, TB_COMMANDTOINDEX, nID); }
  BOOL SetCmdID(int nIndex, UINT nID) { return _AfxSend(this, TB_SETCMDID, nIndex, nID); }
  int AddStrings(LPCTSTR lpszStrings) { return _AfxSend(this, TB_ADDSTRING, 0, lpszStrings); }
  int AddString(UINT nStringID);
  // The number of the first picture added, -1: failed. The bitmap stays the program's and must live
  // as long as the control.
  int AddBitmap(int nNumButtons, UINT nBitmapID);
  int AddBitmap(int nNumButtons, CBitmap* pBitmap);
  CImageList* GetImageList() const {
    return CImageList::FromHandle(_AfxAsk<HIMAGELIST>(this, TB_GETIMAGELIST));
  }
  CImageList* SetImageList(CImageList* pImageList) {
    return CImageList::FromHandle(
        _AfxAsk<HIMAGELIST>(this, TB_SETIMAGELIST, 0, _AfxHandle(pImageList)));
  }
  CImageList* SetDisabledImageList(CImageList* pImageList) {
    return CImageList::FromHandle(
        _AfxAsk<HIMAGELIST>(this, TB_SETDISABLEDIMAGELIST, 0, _AfxHandle(pImageList)));
  }

  // The whole bar. Sizes in pixels.
  void AutoSize() { _AfxSend(this, TB_AUTOSIZE); }
  void SetButtonStructSize(int nSize) { _AfxSend(this, TB_BUTTONSTRUCTSIZE, nSize); }
  DWORD GetButtonSize() const { return _AfxSend(this, TB_GETBUTTONSIZE); }
  BOOL SetButtonSize(CSize size) {
    return _AfxSend(this, TB_SETBUTTONSIZE, 0, MAKELPARAM(size.cx, size.cy));
  }
  BOOL SetBitmapSize(CSize size) {
    return _AfxSend(this, TB_SETBITMAPSIZE, 0, MAKELPARAM(size.cx, size.cy));
  }
  BOOL GetMaxSize(LPSIZE pSize) const { return _AfxSend(this, TB_GETMAXSIZE, 0, pSize); }
  BOOL SetMaxTextRows(int iMaxRows) { return _AfxSend(this, TB_SETMAXTEXTROWS, iMaxRows); }
  int GetRows() const { return _AfxSend(this, TB_GETROWS); }
  BOOL GetItemRect(int nIndex, LPRECT lpRect) const {
    return _AfxSend(this, TB_GETITEMRECT, nIndex, lpRect);
  }
  BOOL GetRect(int nID, LPRECT lpRect) const { return _AfxSend(this, TB_GETRECT, nID, lpRect); }
  int HitTest(LPPOINT ppt) const { return _AfxSend(this, TB_HITTEST, 0, ppt); }
  DWORD GetExtendedStyle() const { return _AfxSend(this, TB_GETEXTENDEDSTYLE); }
  DWORD SetExtendedStyle(DWORD dwExStyle) {
    return _AfxSend(this, TB_SETEXTENDEDSTYLE, 0, dwExStyle);
  }
  CToolTipCtrl* GetToolTips() const;
  void SetToolTips(CToolTipCtrl* pTip);
};

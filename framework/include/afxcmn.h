// The common controls. Their functions send the system's messages of the same names; what the
// arguments and results mean is in the system's documentation.
#pragma once

#include "afxwin.h"
#include "afximl_.h"
#include "afxlctl_.h"
#include "afxtbar_.h"
#include "afxtctl_.h"

class AFX_CORE_DATA CToolTipCtrl : public CWnd {
  DECLARE_DYNAMIC(CToolTipCtrl)
 public:
  CToolTipCtrl() {}
  virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);

  void Activate(BOOL bActivate) { _AfxSend(this, TTM_ACTIVATE, bActivate); }
  // Shows the mouse messages of the tools to the control; from PreTranslateMessage.
  void RelayEvent(LPMSG lpMsg) { _AfxSend(this, TTM_RELAYEVENT, 0, lpMsg); }
  void Update() { _AfxSend(this, TTM_UPDATE); }
  void Pop() { _AfxSend(this, TTM_POP); }

  // Tools: a part of a window by its rectangle and an id that is not 0, or a whole window. The text
  // is copied; nIDText is a string resource; LPSTR_TEXTCALLBACK asks the window for the text with
  // TTN_NEEDTEXT.
  BOOL AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool = nullptr, UINT_PTR nIDTool = 0);
  BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText = LPSTR_TEXTCALLBACK, LPCRECT lpRectTool = nullptr,
               UINT_PTR nIDTool = 0);
  void DelTool(CWnd* pWnd, UINT_PTR nIDTool = 0);
  int GetToolCount() const { return _AfxSend(this, TTM_GETTOOLCOUNT); }
  // Of a text longer than 1023 characters the beginning.
  void GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool = 0) const;
  void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool = 0);
  void UpdateTipText(UINT nIDText, CWnd* pWnd, UINT_PTR nIDTool = 0);
  // ToolInfo's text is the caller's buffer, of at least 80 characters, or null.
  BOOL GetToolInfo(TOOLINFO& ToolInfo, CWnd* pWnd, UINT_PTR nIDTool = 0) const;
  void SetToolInfo(LPTOOLINFO lpToolInfo) { _AfxSend(this, TTM_SETTOOLINFO, 0, lpToolInfo); }
  void SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect);
  BOOL HitTest(CWnd* pWnd, CPoint pt, LPTOOLINFO lpToolInfo) const;

  // dwDuration: TTDT_ values; times in milliseconds, -1: the system's.
  int GetDelayTime(DWORD dwDuration) const { return _AfxSend(this, TTM_GETDELAYTIME, dwDuration); }
  void SetDelayTime(UINT nDelay) { _AfxSend(this, TTM_SETDELAYTIME, TTDT_AUTOMATIC, nDelay); }
  void SetDelayTime(DWORD dwDuration, int iTime) {
    _AfxSend(this, TTM_SETDELAYTIME, dwDuration, MAKELPARAM(iTime, 0));
  }
  // In pixels; -1: any width, and the text is in one line.
  int GetMaxTipWidth() const { return _AfxSend(this, TTM_GETMAXTIPWIDTH); }
  int SetMaxTipWidth(int iWidth) { return _AfxSend(this, TTM_SETMAXTIPWIDTH, 0, iWidth); }
  void GetMargin(LPRECT lprc) const { _AfxSend(this, TTM_GETMARGIN, 0, lprc); }
  void SetMargin(LPRECT lprc) { _AfxSend(this, TTM_SETMARGIN, 0, lprc); }
  COLORREF GetTipBkColor() const { return _AfxSend(this, TTM_GETTIPBKCOLOR); }
  void SetTipBkColor(COLORREF clr) { _AfxSend(this, TTM_SETTIPBKCOLOR, clr); }
  COLORREF GetTipTextColor() const { return _AfxSend(this, TTM_GETTIPTEXTCOLOR); }
  void SetTipTextColor(COLORREF clr) { _AfxSend(this, TTM_SETTIPTEXTCOLOR, clr); }
  BOOL SetTitle(UINT uIcon, LPCTSTR lpstrTitle) {
    return _AfxSend(this, TTM_SETTITLE, uIcon, lpstrTitle);
  }
  BOOL AdjustRect(LPRECT lprc, BOOL bLarger = TRUE) {
    return _AfxSend(this, TTM_ADJUSTRECT, bLarger, lprc);
  }
  CSize GetBubbleSize(LPTOOLINFO lpToolInfo) const;
  // A tip that the program shows and moves itself, in screen coordinates.
  void TrackActivate(LPTOOLINFO lpToolInfo, BOOL bActivate) {
    _AfxSend(this, TTM_TRACKACTIVATE, bActivate, lpToolInfo);
  }
  void TrackPosition(LPPOINT lppt) {
    _AfxSend(this, TTM_TRACKPOSITION, 0, MAKELPARAM(lppt->x, lppt->y));
  }
};

class AFX_CORE_DATA CTabCtrl : public CWnd {
  DECLARE_DYNCREATE(CTabCtrl)
 public:
  CTabCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetItemCount() const { return _AfxSend(this, TCM_GETITEMCOUNT); }
  BOOL GetItem(int nItem, TCITEM* pTabCtrlItem) const {
    return _AfxSend(this, TCM_GETITEM, nItem, pTabCtrlItem);
  }
  BOOL SetItem(int nItem, TCITEM* pTabCtrlItem) {
    return _AfxSend(this, TCM_SETITEM, nItem, pTabCtrlItem);
  }
  BOOL SetItemExtra(int nBytes) { return _AfxSend(this, TCM_SETITEMEXTRA, nBytes); }
  // The tab's number, -1: failed.
  LONG InsertItem(int nItem, TCITEM* pTabCtrlItem) {
    return _AfxSend(this, TCM_INSERTITEM, nItem, pTabCtrlItem);
  }
  LONG InsertItem(int nItem, LPCTSTR lpszItem) {
    return InsertItem(TCIF_TEXT, nItem, lpszItem, -1, 0);
  }
  LONG InsertItem(int nItem, LPCTSTR lpszItem, int nImage) {
    return InsertItem(TCIF_TEXT | TCIF_IMAGE, nItem, lpszItem, nImage, 0);
  }
  LONG InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, int nImage, LPARAM lParam);
  BOOL DeleteItem(int nItem) { return _AfxSend(this, TCM_DELETEITEM, nItem); }
  BOOL DeleteAllItems() { return _AfxSend(this, TCM_DELETEALLITEMS); }
  void RemoveImage(int nImage) { _AfxSend(this, TCM_REMOVEIMAGE, nImage); }
  // SetCurSel sends no notification and returns the tab before.
  int GetCurSel() const { return _AfxSend(this, TCM_GETCURSEL); }
  int SetCurSel(int nItem) { return _AfxSend(this, TCM_SETCURSEL, nItem); }
  int GetCurFocus() const { return _AfxSend(this, TCM_GETCURFOCUS); }
  void SetCurFocus(int nItem) { _AfxSend(this, TCM_SETCURFOCUS, nItem); }
  BOOL HighlightItem(int idItem, BOOL fHighlight = TRUE) {
    return _AfxSend(this, TCM_HIGHLIGHTITEM, idItem, fHighlight);
  }
  DWORD GetItemState(int nItem, DWORD dwMask) const;
  BOOL SetItemState(int nItem, DWORD dwMask, DWORD dwState);
  void DeselectAll(BOOL fExcludeFocus) { _AfxSend(this, TCM_DESELECTALL, fExcludeFocus); }
  DWORD GetExtendedStyle() const { return _AfxSend(this, TCM_GETEXTENDEDSTYLE); }
  DWORD SetExtendedStyle(DWORD dwNewStyle, DWORD dwExMask = 0) {
    return _AfxSend(this, TCM_SETEXTENDEDSTYLE, dwExMask, dwNewStyle);
  }
  CImageList* GetImageList() const {
    return CImageList::FromHandle(_AfxAsk<HIMAGELIST>(this, TCM_GETIMAGELIST));
  }
  CImageList* SetImageList(CImageList* pImageList) {
    return CImageList::FromHandle(
        _AfxAsk<HIMAGELIST>(this, TCM_SETIMAGELIST, 0, _AfxHandle(pImageList)));
  }
  CToolTipCtrl* GetToolTips() const;
  void SetToolTips(CToolTipCtrl* pWndTip) { _AfxSend(this, TCM_SETTOOLTIPS, pWndTip->m_hWnd); }

  // In pixels. bLarger: from the display area to the whole control, else the other way.
  void AdjustRect(BOOL bLarger, LPRECT lpRect) { _AfxSend(this, TCM_ADJUSTRECT, bLarger, lpRect); }
  BOOL GetItemRect(int nItem, LPRECT lpRect) const {
    return _AfxSend(this, TCM_GETITEMRECT, nItem, lpRect);
  }
  int HitTest(TCHITTESTINFO* pHitTestInfo) const {
    return _AfxSend(this, TCM_HITTEST, 0, pHitTestInfo);
  }
  int GetRowCount() const { return _AfxSend(this, TCM_GETROWCOUNT); }
  CSize SetItemSize(CSize size);
  void SetPadding(CSize size) { _AfxSend(this, TCM_SETPADDING, 0, MAKELPARAM(size.cx, size.cy)); }
  int SetMinTabWidth(int cx) { return _AfxSend(this, TCM_SETMINTABWIDTH, 0, cx); }

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_CORE_DATA CProgressCtrl : public CWnd {
  DECLARE_DYNCREATE(CProgressCtrl)
 public:
  CProgressCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  void SetRange(short nLower, short nUpper) {
    _AfxSend(this, PBM_SETRANGE, 0, MAKELPARAM(nLower, nUpper));
  }
  void SetRange32(int nLower, int nUpper) { _AfxSend(this, PBM_SETRANGE32, nLower, nUpper); }
  void GetRange(int& nLower, int& nUpper) const;
  int GetPos() const { return _AfxSend(this, PBM_GETPOS); }
  // All return the position before; SetStep the step.
  int SetPos(int nPos) { return _AfxSend(this, PBM_SETPOS, nPos); }
  int OffsetPos(int nPos) { return _AfxSend(this, PBM_DELTAPOS, nPos); }
  int SetStep(int nStep) { return _AfxSend(this, PBM_SETSTEP, nStep); }
  int StepIt() { return _AfxSend(this, PBM_STEPIT); }
  COLORREF SetBarColor(COLORREF clrBar) { return _AfxSend(this, PBM_SETBARCOLOR, 0, clrBar); }
  COLORREF SetBkColor(COLORREF clrNew) { return _AfxSend(this, PBM_SETBKCOLOR, 0, clrNew); }
  BOOL SetMarquee(BOOL fMarqueeMode, int nInterval) {
    return _AfxSend(this, PBM_SETMARQUEE, fMarqueeMode, nInterval);
  }
};

class AFX_CORE_DATA CSliderCtrl : public CWnd {
  DECLARE_DYNCREATE(CSliderCtrl)
 public:
  CSliderCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetPos() const { return _AfxSend(this, TBM_GETPOS); }
  void SetPos(int nPos) { _AfxSend(this, TBM_SETPOS, TRUE, nPos); }
  int GetRangeMin() const { return _AfxSend(this, TBM_GETRANGEMIN); }
  int GetRangeMax() const { return _AfxSend(this, TBM_GETRANGEMAX); }
  void GetRange(int& nMin, int& nMax) const {
    nMin = GetRangeMin();
    nMax = GetRangeMax();
  }
  void SetRangeMin(int nMin, BOOL bRedraw = FALSE) {
    _AfxSend(this, TBM_SETRANGEMIN, bRedraw, nMin);
  }
  void SetRangeMax(int nMax, BOOL bRedraw = FALSE) {
    _AfxSend(this, TBM_SETRANGEMAX, bRedraw, nMax);
  }
  void SetRange(int nMin, int nMax, BOOL bRedraw = FALSE) {
    SetRangeMin(nMin, FALSE);
    SetRangeMax(nMax, bRedraw);
  }
  void GetSelection(int& nMin, int& nMax) const {
    nMin = _AfxSend(this, TBM_GETSELSTART);
    nMax = _AfxSend(this, TBM_GETSELEND);
  }
  void SetSelection(int nMin, int nMax) {
    _AfxSend(this, TBM_SETSELSTART, FALSE, nMin);
    _AfxSend(this, TBM_SETSELEND, FALSE, nMax);
  }
  void ClearSel(BOOL bRedraw = FALSE) { _AfxSend(this, TBM_CLEARSEL, bRedraw); }
  int GetLineSize() const { return _AfxSend(this, TBM_GETLINESIZE); }
  int SetLineSize(int nSize) { return _AfxSend(this, TBM_SETLINESIZE, 0, nSize); }
  int GetPageSize() const { return _AfxSend(this, TBM_GETPAGESIZE); }
  int SetPageSize(int nSize) { return _AfxSend(this, TBM_SETPAGESIZE, 0, nSize); }
  // Ticks. GetNumTics counts the ones at both ends, GetTic and GetTicPos do not.
  UINT GetNumTics() const { return _AfxSend(this, TBM_GETNUMTICS); }
  int GetTic(int nTic) const { return _AfxSend(this, TBM_GETTIC, nTic); }
  int GetTicPos(int nTic) const { return _AfxSend(this, TBM_GETTICPOS, nTic); }
  BOOL SetTic(int nTic) { return _AfxSend(this, TBM_SETTIC, 0, nTic); }
  void SetTicFreq(int nFreq) { _AfxSend(this, TBM_SETTICFREQ, nFreq); }
  void ClearTics(BOOL bRedraw = FALSE) { _AfxSend(this, TBM_CLEARTICS, bRedraw); }
  void VerifyPos() { SetPos(GetPos()); }
  void GetChannelRect(LPRECT lprc) const { _AfxSend(this, TBM_GETCHANNELRECT, 0, lprc); }
  void GetThumbRect(LPRECT lprc) const { _AfxSend(this, TBM_GETTHUMBRECT, 0, lprc); }
  // fLocation: the buddy is left of the slider or above it.
  CWnd* GetBuddy(BOOL fLocation = TRUE) const {
    return CWnd::FromHandle(_AfxAsk<HWND>(this, TBM_GETBUDDY, fLocation));
  }
  CWnd* SetBuddy(CWnd* pWndBuddy, BOOL fLocation = TRUE) {
    return CWnd::FromHandle(_AfxAsk<HWND>(this, TBM_SETBUDDY, fLocation, pWndBuddy->m_hWnd));
  }
};

class AFX_CORE_DATA CSpinButtonCtrl : public CWnd {
  DECLARE_DYNCREATE(CSpinButtonCtrl)
 public:
  CSpinButtonCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  UINT GetAccel(int nAccel, UDACCEL* pAccel) const {
    return _AfxSend(this, UDM_GETACCEL, nAccel, pAccel);
  }
  BOOL SetAccel(int nAccel, UDACCEL* pAccel) {
    return _AfxSend(this, UDM_SETACCEL, nAccel, pAccel);
  }
  UINT GetBase() const { return _AfxSend(this, UDM_GETBASE); }
  int SetBase(int nBase) { return _AfxSend(this, UDM_SETBASE, nBase); }
  CWnd* GetBuddy() const { return CWnd::FromHandle(_AfxAsk<HWND>(this, UDM_GETBUDDY)); }
  CWnd* SetBuddy(CWnd* pWndBuddy) {
    return CWnd::FromHandle(_AfxAsk<HWND>(this, UDM_SETBUDDY, pWndBuddy->m_hWnd));
  }
  // 16 bits; GetPos has an error flag in the high word.
  int GetPos() const { return _AfxSend(this, UDM_GETPOS); }
  int SetPos(int nPos) { return _AfxSend(this, UDM_SETPOS, 0, MAKELPARAM(nPos, 0)); }
  DWORD GetRange() const { return _AfxSend(this, UDM_GETRANGE); }
  void GetRange(int& lower, int& upper) const {
    const DWORD range = GetRange();
    upper = static_cast<short>(LOWORD(range));
    lower = static_cast<short>(HIWORD(range));
  }
  void SetRange(short nLower, short nUpper) {
    _AfxSend(this, UDM_SETRANGE, 0, MAKELPARAM(nUpper, nLower));
  }
  // 32 bits.
  int GetPos32(LPBOOL lpbError = nullptr) const {
    return _AfxSend(this, UDM_GETPOS32, 0, lpbError);
  }
  int SetPos32(int nPos) { return _AfxSend(this, UDM_SETPOS32, 0, nPos); }
  void GetRange32(int& lower, int& upper) const { _AfxSend(this, UDM_GETRANGE32, &lower, &upper); }
  void SetRange32(int nLower, int nUpper) { _AfxSend(this, UDM_SETRANGE32, nLower, nUpper); }
};

class AFX_CORE_DATA CStatusBarCtrl : public CWnd {
  DECLARE_DYNCREATE(CStatusBarCtrl)
 public:
  CStatusBarCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // Panes are numbered from 0; their right edges in pixels, -1: the right edge of the bar.
  int GetParts(int nParts, int* pParts) const {
    return _AfxSend(this, SB_GETPARTS, nParts, pParts);
  }
  BOOL SetParts(int nParts, int* pWidths) { return _AfxSend(this, SB_SETPARTS, nParts, pWidths); }
  // A pane's text and how it is drawn (SBT_ values).
  CString GetText(int nPane, int* pType = nullptr) const;
  int GetText(LPTSTR lpszText, int nPane, int* pType = nullptr) const;
  int GetTextLength(int nPane, int* pType = nullptr) const;
  BOOL SetText(LPCTSTR lpszText, int nPane, int nType) {
    return _AfxSend(this, SB_SETTEXT, nPane | nType, lpszText);
  }
  CString GetTipText(int nPane) const;
  void SetTipText(int nPane, LPCTSTR pszTipText) {
    _AfxSend(this, SB_SETTIPTEXT, nPane, pszTipText);
  }
  HICON GetIcon(int iPart) const { return _AfxAsk<HICON>(this, SB_GETICON, iPart); }
  BOOL SetIcon(int nPane, HICON hIcon) { return _AfxSend(this, SB_SETICON, nPane, hIcon); }
  BOOL GetRect(int nPane, LPRECT lpRect) const { return _AfxSend(this, SB_GETRECT, nPane, lpRect); }
  BOOL GetBorders(int* pBorders) const { return _AfxSend(this, SB_GETBORDERS, 0, pBorders); }
  BOOL GetBorders(int& nHorz, int& nVert, int& nSpacing) const;
  void SetMinHeight(int nMin) { _AfxSend(this, SB_SETMINHEIGHT, nMin); }
  COLORREF SetBkColor(COLORREF cr) { return _AfxSend(this, SB_SETBKCOLOR, 0, cr); }
  BOOL IsSimple() const { return _AfxSend(this, SB_ISSIMPLE); }
  BOOL SetSimple(BOOL bSimple = TRUE) { return _AfxSend(this, SB_SIMPLE, bSimple); }

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// The date picker and the month calendar. Both show dates of the Gregorian calendar in local time.
#pragma once

#include "afxwin.h"

#include "afxtime_.h"

class AFX_CORE_DATA CMonthCalCtrl : public CWnd {
  DECLARE_DYNAMIC(CMonthCalCtrl)
 public:
  CMonthCalCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
  // With room for one month.
  virtual BOOL Create(DWORD dwStyle, const POINT& pt, CWnd* pParentWnd, UINT nID);

  // In pixels; SizeMinReq takes the smallest size for one month.
  BOOL GetMinReqRect(RECT* pRect) const { return _AfxSend(this, MCM_GETMINREQRECT, 0, pRect); }
  BOOL SizeMinReq(BOOL bRepaint = TRUE);
  DWORD HitTest(PMCHITTESTINFO pMCHitTest) { return _AfxSend(this, MCM_HITTEST, 0, pMCHitTest); }
  // nRegion: MCSC_ values.
  COLORREF GetColor(int nRegion) const { return _AfxSend(this, MCM_GETCOLOR, nRegion); }
  COLORREF SetColor(int nRegion, COLORREF ref) {
    return _AfxSend(this, MCM_SETCOLOR, nRegion, ref);
  }
  // 0: Monday. pbLocal: receives whether that is the locale's.
  int GetFirstDayOfWeek(BOOL* pbLocal = nullptr) const;
  BOOL SetFirstDayOfWeek(int iDay, int* lpnOld = nullptr);
  int GetMonthDelta() const { return _AfxSend(this, MCM_GETMONTHDELTA); }
  int SetMonthDelta(int iDelta) { return _AfxSend(this, MCM_SETMONTHDELTA, iDelta); }
  int GetMaxSelCount() const { return _AfxSend(this, MCM_GETMAXSELCOUNT); }
  BOOL SetMaxSelCount(int nMax) { return _AfxSend(this, MCM_SETMAXSELCOUNT, nMax); }
  BOOL SetDayState(int nMonths, LPMONTHDAYSTATE pStates) {
    return _AfxSend(this, MCM_SETDAYSTATE, nMonths, pStates);
  }

  // FALSE: failed, and what is received is not changed. The selected day has the time of day 0:00
  // in the CTime forms.
  BOOL GetCurSel(LPSYSTEMTIME pDateTime) const {
    return _AfxSend(this, MCM_GETCURSEL, 0, pDateTime);
  }
  BOOL GetCurSel(CTime& refDateTime) const;
  BOOL SetCurSel(const LPSYSTEMTIME pDateTime) {
    return _AfxSend(this, MCM_SETCURSEL, 0, pDateTime);
  }
  BOOL SetCurSel(const CTime& refDateTime);
  BOOL GetToday(LPSYSTEMTIME pDateTime) const { return _AfxSend(this, MCM_GETTODAY, 0, pDateTime); }
  BOOL GetToday(CTime& refDateTime) const;
  void SetToday(const LPSYSTEMTIME pDateTime) { _AfxSend(this, MCM_SETTODAY, 0, pDateTime); }
  void SetToday(const CTime* pDateTime);
  BOOL GetSelRange(LPSYSTEMTIME pMinRange, LPSYSTEMTIME pMaxRange) const;
  BOOL GetSelRange(CTime& refMinRange, CTime& refMaxRange) const;
  BOOL SetSelRange(const LPSYSTEMTIME pMinRange, const LPSYSTEMTIME pMaxRange);
  BOOL SetSelRange(const CTime& refMinRange, const CTime& refMaxRange);
  // The dates that may be chosen; null: no limit on that side. GetRange answers GDTR_ flags and
  // sets a limit that is none to 0.
  DWORD GetRange(LPSYSTEMTIME pMinRange, LPSYSTEMTIME pMaxRange) const;
  DWORD GetRange(CTime* pMinRange, CTime* pMaxRange) const;
  BOOL SetRange(const LPSYSTEMTIME pMinRange, const LPSYSTEMTIME pMaxRange);
  BOOL SetRange(const CTime* pMinRange, const CTime* pMaxRange);
  // The first and last day shown, and the count of months; dwFlags: GMR_ values.
  int GetMonthRange(LPSYSTEMTIME pMinRange, LPSYSTEMTIME pMaxRange, DWORD dwFlags) const;
  int GetMonthRange(CTime& refMinRange, CTime& refMaxRange, DWORD dwFlags) const;
};

class AFX_CORE_DATA CDateTimeCtrl : public CWnd {
  DECLARE_DYNAMIC(CDateTimeCtrl)
 public:
  CDateTimeCtrl() {}
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // The value. GetTime answers GDT_VALID, or GDT_NONE when the control (with DTS_SHOWNONE) shows
  // that there is none, and then changes nothing. Null for SetTime: none.
  DWORD GetTime(LPSYSTEMTIME pTimeDest) const {
    return _AfxSend(this, DTM_GETSYSTEMTIME, 0, pTimeDest);
  }
  DWORD GetTime(CTime& timeDest) const;
  BOOL SetTime(LPSYSTEMTIME pTimeNew = nullptr);
  BOOL SetTime(const CTime* pTimeNew);
  // The values that may be chosen; null: no limit on that side. GetRange answers GDTR_ flags and
  // sets a limit that is none to 0.
  DWORD GetRange(CTime* pMinRange, CTime* pMaxRange) const;
  BOOL SetRange(const CTime* pMinRange, const CTime* pMaxRange);
  // Null: the locale's.
  BOOL SetFormat(LPCTSTR pstrFormat) { return _AfxSend(this, DTM_SETFORMAT, 0, pstrFormat); }

  // The calendar exists while it is dropped down. iColor: MCSC_ values.
  CMonthCalCtrl* GetMonthCalCtrl() const;
  COLORREF GetMonthCalColor(int iColor) const { return _AfxSend(this, DTM_GETMCCOLOR, iColor); }
  COLORREF SetMonthCalColor(int iColor, COLORREF ref) {
    return _AfxSend(this, DTM_SETMCCOLOR, iColor, ref);
  }
  CFont* GetMonthCalFont() const { return CFont::FromHandle(_AfxAsk<HFONT>(this, DTM_GETMCFONT)); }
  void SetMonthCalFont(HFONT hFont, BOOL bRedraw = TRUE) {
    _AfxSend(this, DTM_SETMCFONT, hFont, bRedraw);
  }
};

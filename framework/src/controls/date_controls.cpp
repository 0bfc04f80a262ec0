#include <afxdtctl.h>

#include "controls/common_classes.h"

#include <commctrl.h>

IMPLEMENT_DYNAMIC(CMonthCalCtrl, CWnd)
IMPLEMENT_DYNAMIC(CDateTimeCtrl, CWnd)

namespace {

// Two limits, either of which may be missing, as the controls take and give them.
struct Limits {
  Limits() = default;
  Limits(const CTime* min, const CTime* max) {
    if (min != nullptr && min->GetAsSystemTime(times[0])) flags |= GDTR_MIN;
    if (max != nullptr && max->GetAsSystemTime(times[1])) flags |= GDTR_MAX;
  }
  Limits(const SYSTEMTIME* min, const SYSTEMTIME* max) {
    if (min != nullptr) times[0] = *min, flags |= GDTR_MIN;
    if (max != nullptr) times[1] = *max, flags |= GDTR_MAX;
  }

  void Give(CTime* min, CTime* max) const {
    if (min != nullptr) *min = (flags & GDTR_MIN) != 0 ? CTime(times[0]) : CTime();
    if (max != nullptr) *max = (flags & GDTR_MAX) != 0 ? CTime(times[1]) : CTime();
  }
  void Give(SYSTEMTIME* min, SYSTEMTIME* max) const {
    if (min != nullptr) *min = (flags & GDTR_MIN) != 0 ? times[0] : SYSTEMTIME();
    if (max != nullptr) *max = (flags & GDTR_MAX) != 0 ? times[1] : SYSTEMTIME();
  }

  SYSTEMTIME times[2] = {};
  DWORD flags = 0;
};

// The controls leave the time of day of a date as it happens to be.
CTime dateOf(SYSTEMTIME time) {
  time.wHour = time.wMinute = time.wSecond = time.wMilliseconds = 0;
  return CTime(time);
}

}  // namespace

BOOL CMonthCalCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(MONTHCAL_CLASS, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CMonthCalCtrl::Create(DWORD dwStyle, const POINT& pt, CWnd* pParentWnd, UINT nID) {
  const RECT empty = {pt.x, pt.y, pt.x, pt.y};
  return Create(dwStyle, empty, pParentWnd, nID) && SizeMinReq();
}

BOOL CMonthCalCtrl::SizeMinReq(BOOL bRepaint) {
  RECT rect;
  if (!GetMinReqRect(&rect)) return FALSE;
  return ::SetWindowPos(m_hWnd, nullptr, 0, 0, rect.right, rect.bottom,
                        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | (bRepaint ? 0 : SWP_NOREDRAW));
}

int CMonthCalCtrl::GetFirstDayOfWeek(BOOL* pbLocal) const {
  const DWORD day = _AfxSend(this, MCM_GETFIRSTDAYOFWEEK);
  if (pbLocal != nullptr) *pbLocal = HIWORD(day) == 0;
  return LOWORD(day);
}

BOOL CMonthCalCtrl::SetFirstDayOfWeek(int iDay, int* lpnOld) {
  const DWORD before = _AfxSend(this, MCM_SETFIRSTDAYOFWEEK, 0, iDay);
  if (lpnOld != nullptr) *lpnOld = LOWORD(before);
  return TRUE;
}

BOOL CMonthCalCtrl::GetCurSel(CTime& refDateTime) const {
  SYSTEMTIME time;
  if (!GetCurSel(&time)) return FALSE;
  refDateTime = dateOf(time);
  return TRUE;
}

BOOL CMonthCalCtrl::SetCurSel(const CTime& refDateTime) {
  SYSTEMTIME time;
  return refDateTime.GetAsSystemTime(time) && SetCurSel(&time);
}

BOOL CMonthCalCtrl::GetToday(CTime& refDateTime) const {
  SYSTEMTIME time;
  if (!GetToday(&time)) return FALSE;
  refDateTime = dateOf(time);
  return TRUE;
}

void CMonthCalCtrl::SetToday(const CTime* pDateTime) {
  SYSTEMTIME time;
  const bool given = pDateTime != nullptr && pDateTime->GetAsSystemTime(time);
  SetToday(given ? &time : static_cast<LPSYSTEMTIME>(nullptr));
}

BOOL CMonthCalCtrl::GetSelRange(LPSYSTEMTIME pMinRange, LPSYSTEMTIME pMaxRange) const {
  SYSTEMTIME times[2];
  if (!_AfxSend(this, MCM_GETSELRANGE, 0, times)) return FALSE;
  *pMinRange = times[0];
  *pMaxRange = times[1];
  return TRUE;
}

BOOL CMonthCalCtrl::GetSelRange(CTime& refMinRange, CTime& refMaxRange) const {
  SYSTEMTIME min, max;
  if (!GetSelRange(&min, &max)) return FALSE;
  refMinRange = dateOf(min);
  refMaxRange = dateOf(max);
  return TRUE;
}

BOOL CMonthCalCtrl::SetSelRange(const LPSYSTEMTIME pMinRange, const LPSYSTEMTIME pMaxRange) {
  SYSTEMTIME times[2] = {*pMinRange, *pMaxRange};
  return _AfxSend(this, MCM_SETSELRANGE, 0, times);
}

BOOL CMonthCalCtrl::SetSelRange(const CTime& refMinRange, const CTime& refMaxRange) {
  Limits range(&refMinRange, &refMaxRange);
  return range.flags == (GDTR_MIN | GDTR_MAX) && _AfxSend(this, MCM_SETSELRANGE, 0, range.times);
}

DWORD CMonthCalCtrl::GetRange(LPSYSTEMTIME pMinRange, LPSYSTEMTIME pMaxRange) const {
  Limits range;
  range.flags = _AfxSend(this, MCM_GETRANGE, 0, range.times);
  range.Give(pMinRange, pMaxRange);
  return range.flags;
}

DWORD CMonthCalCtrl::GetRange(CTime* pMinRange, CTime* pMaxRange) const {
  Limits range;
  range.flags = _AfxSend(this, MCM_GETRANGE, 0, range.times);
  range.Give(pMinRange, pMaxRange);
  return range.flags;
}

BOOL CMonthCalCtrl::SetRange(const LPSYSTEMTIME pMinRange, const LPSYSTEMTIME pMaxRange) {
  Limits range(pMinRange, pMaxRange);
  return _AfxSend(this, MCM_SETRANGE, range.flags, range.times);
}

BOOL CMonthCalCtrl::SetRange(const CTime* pMinRange, const CTime* pMaxRange) {
  Limits range(pMinRange, pMaxRange);
  return _AfxSend(this, MCM_SETRANGE, range.flags, range.times);
}

int CMonthCalCtrl::GetMonthRange(LPSYSTEMTIME pMinRange, LPSYSTEMTIME pMaxRange,
                                 DWORD dwFlags) const {
  SYSTEMTIME times[2] = {};
  const int months = _AfxSend(this, MCM_GETMONTHRANGE, dwFlags, times);
  *pMinRange = times[0];
  *pMaxRange = times[1];
  return months;
}

int CMonthCalCtrl::GetMonthRange(CTime& refMinRange, CTime& refMaxRange, DWORD dwFlags) const {
  SYSTEMTIME min, max;
  const int months = GetMonthRange(&min, &max, dwFlags);
  refMinRange = dateOf(min);
  refMaxRange = dateOf(max);
  return months;
}

BOOL CDateTimeCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  return CWnd::Create(DATETIMEPICK_CLASS, nullptr, dwStyle, rect, pParentWnd, nID);
}

DWORD CDateTimeCtrl::GetTime(CTime& timeDest) const {
  SYSTEMTIME time;
  const DWORD result = GetTime(&time);
  if (result == GDT_VALID) timeDest = CTime(time);
  return result;
}

// Some versions of the control want a time even for none.
BOOL CDateTimeCtrl::SetTime(LPSYSTEMTIME pTimeNew) {
  if (pTimeNew != nullptr) return _AfxSend(this, DTM_SETSYSTEMTIME, GDT_VALID, pTimeNew);
  const SYSTEMTIME ignored = {};
  return _AfxSend(this, DTM_SETSYSTEMTIME, GDT_NONE, &ignored);
}

BOOL CDateTimeCtrl::SetTime(const CTime* pTimeNew) {
  if (pTimeNew == nullptr) return SetTime(static_cast<LPSYSTEMTIME>(nullptr));
  SYSTEMTIME time;
  return pTimeNew->GetAsSystemTime(time) && SetTime(&time);
}

DWORD CDateTimeCtrl::GetRange(CTime* pMinRange, CTime* pMaxRange) const {
  Limits range;
  range.flags = _AfxSend(this, DTM_GETRANGE, 0, range.times);
  range.Give(pMinRange, pMaxRange);
  return range.flags;
}

BOOL CDateTimeCtrl::SetRange(const CTime* pMinRange, const CTime* pMaxRange) {
  Limits range(pMinRange, pMaxRange);
  return _AfxSend(this, DTM_SETRANGE, range.flags, range.times);
}

CMonthCalCtrl* CDateTimeCtrl::GetMonthCalCtrl() const {
  return static_cast<CMonthCalCtrl*>(CWnd::FromHandle(_AfxAsk<HWND>(this, DTM_GETMONTHCAL)));
}

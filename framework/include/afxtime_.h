// Calendar times and the spans between them, in whole seconds.
#pragma once

#include "afxstr_.h"

#include <time.h>

// The difference of two times: up to 68 years either way.
class AFX_CORE_DATA CTimeSpan {
 public:
  CTimeSpan() : m_timeSpan(0) {}
  CTimeSpan(time_t time) : m_timeSpan(time) {}
  CTimeSpan(LONG lDays, int nHours, int nMins, int nSecs);

  // Whole days, and what is left over in hours, minutes and seconds; all below 0 for a span below
  // 0.
  LONG GetDays() const { return m_timeSpan / kDay; }
  int GetHours() const { return static_cast<int>(m_timeSpan % kDay / kHour); }
  int GetMinutes() const { return static_cast<int>(m_timeSpan % kHour / kMinute); }
  int GetSeconds() const { return static_cast<int>(m_timeSpan % kMinute); }
  // The whole span in whole hours, minutes or seconds.
  LONG GetTotalHours() const { return m_timeSpan / kHour; }
  LONG GetTotalMinutes() const { return m_timeSpan / kMinute; }
  LONG GetTotalSeconds() const { return m_timeSpan; }

  CTimeSpan operator-(CTimeSpan timeSpan) const;
  CTimeSpan operator+(CTimeSpan timeSpan) const;
  const CTimeSpan& operator+=(CTimeSpan timeSpan) { return *this = *this + timeSpan; }
  const CTimeSpan& operator-=(CTimeSpan timeSpan) { return *this = *this - timeSpan; }

  BOOL operator==(CTimeSpan timeSpan) const { return m_timeSpan == timeSpan.m_timeSpan; }
  BOOL operator!=(CTimeSpan timeSpan) const { return m_timeSpan != timeSpan.m_timeSpan; }
  BOOL operator<(CTimeSpan timeSpan) const { return m_timeSpan < timeSpan.m_timeSpan; }
  BOOL operator>(CTimeSpan timeSpan) const { return m_timeSpan > timeSpan.m_timeSpan; }
  BOOL operator<=(CTimeSpan timeSpan) const { return m_timeSpan <= timeSpan.m_timeSpan; }
  BOOL operator>=(CTimeSpan timeSpan) const { return m_timeSpan >= timeSpan.m_timeSpan; }

  // %D: days; %H, %M, %S: hours, minutes and seconds with two digits; %%: a percent sign. The
  // second form takes the format from the string table and throws CResourceException when it is not
  // there.
  CString Format(LPCTSTR pFormat) const;
  CString Format(UINT nID) const;

 private:
  static constexpr LONG kMinute = 60, kHour = 60 * kMinute, kDay = 24 * kHour;

  time_t m_timeSpan;
  friend class CTime;
};

// Seconds since 1 January 1970, 0:00 UTC, up to January 2038; shown and given in local time. A time
// outside of that range, or an impossible date, is -1, whose fields are those of the earliest time.
class AFX_CORE_DATA CTime {
 public:
  static CTime PASCAL GetCurrentTime();

  // 0, which stands for no time.
  CTime() : m_time(0) {}
  CTime(time_t time) : m_time(time) {}
  // Local time. nDST: 0 standard time, above 0 daylight saving time, below 0 as the zone's rule is.
  CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST = -1);
  CTime(WORD wDosDate, WORD wDosTime, int nDST = -1);
  CTime(const SYSTEMTIME& sysTime, int nDST = -1);
  // A file's time is in UTC: nDST is not needed.
  CTime(const FILETIME& fileTime, int nDST = -1);

  // The fields in UTC and in local time, in *ptm when it is given, else in the runtime's own
  // record, which the next call overwrites.
  struct tm* GetGmtTm(struct tm* ptm = nullptr) const;
  struct tm* GetLocalTm(struct tm* ptm = nullptr) const;
  // Local time. FALSE when there is none for this time.
  BOOL GetAsSystemTime(SYSTEMTIME& timeDest) const;

  time_t GetTime() const { return m_time; }
  int GetYear() const;
  int GetMonth() const;      // 1 to 12
  int GetDay() const;        // 1 to 31
  int GetHour() const;       // 0 to 23
  int GetMinute() const;     // 0 to 59
  int GetSecond() const;     // 0 to 59
  int GetDayOfWeek() const;  // 1: Sunday, to 7

  CTimeSpan operator-(CTime time) const;
  CTime operator-(CTimeSpan timeSpan) const;
  CTime operator+(CTimeSpan timeSpan) const;
  const CTime& operator+=(CTimeSpan timeSpan) { return *this = *this + timeSpan; }
  const CTime& operator-=(CTimeSpan timeSpan) { return *this = *this - timeSpan; }

  BOOL operator==(CTime time) const { return m_time == time.m_time; }
  BOOL operator!=(CTime time) const { return m_time != time.m_time; }
  BOOL operator<(CTime time) const { return m_time < time.m_time; }
  BOOL operator>(CTime time) const { return m_time > time.m_time; }
  BOOL operator<=(CTime time) const { return m_time <= time.m_time; }
  BOOL operator>=(CTime time) const { return m_time >= time.m_time; }

  // As the runtime's strftime formats local time, and UTC. Empty when it refuses the format. The
  // forms with an id throw CResourceException when the string table does not have it.
  CString Format(LPCTSTR pFormat) const;
  CString Format(UINT nFormatID) const;
  CString FormatGmt(LPCTSTR pFormat) const;
  CString FormatGmt(UINT nFormatID) const;

 private:
  time_t m_time;
};

static_assert(sizeof(CTime) == 4, "a CTime can stand where a 32-bit number of seconds stands");

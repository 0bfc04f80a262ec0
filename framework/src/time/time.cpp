#include <afx.h>

#include <limits.h>
#include <string.h>

#include <vector>

#include "strings/string_resource.h"
#include "time/file_time.h"

namespace {

constexpr ULONGLONG kTicksPerSecond = 10'000'000;  // of 100 ns
constexpr LONGLONG kSecondsFrom1601To1970 = 11'644'473'600;

// The runtime's time functions give nothing for times they cannot express.
struct tm* orEarliest(struct tm* fields, struct tm* destination) {
  static struct tm earliest;  // whoever writes it writes the same
  if (fields == nullptr) {
    earliest = {};
    earliest.tm_year = 70;
    earliest.tm_mday = 1;
    earliest.tm_wday = 4;
    fields = &earliest;
  }
  if (destination == nullptr) return fields;
  *destination = *fields;
  return destination;
}

time_t fromFields(int year, int month, int day, int hour, int minute, int second, int dst) {
  // The runtime takes a 14th month for next February; no caller means that.
  if (year < 1900 || month < 1 || month > 12 || day < 1 || day > 31) return -1;
  struct tm fields = {};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = day;
  fields.tm_hour = hour;
  fields.tm_min = minute;
  fields.tm_sec = second;
  fields.tm_isdst = dst;
  return mktime(&fields);
}

// Times wrap round at the ends of their range.
time_t sum(time_t a, time_t b) {
  return static_cast<time_t>(static_cast<ULONG>(a) + static_cast<ULONG>(b));
}

time_t difference(time_t a, time_t b) {
  return static_cast<time_t>(static_cast<ULONG>(a) - static_cast<ULONG>(b));
}

CString formatFields(const struct tm& fields, LPCTSTR format) {
  // The result 0 may mean that there is no room: no item of a format gives more than this.
  const size_t limit = 128 + 64 * strlen(format);
  std::vector<char> text(128);
  for (;;) {
    const size_t length = strftime(text.data(), text.size(), format, &fields);
    if (length > 0 || text.size() >= limit) return CString(text.data(), static_cast<int>(length));
    text.resize(text.size() * 2);
  }
}

}  // namespace

CTime PASCAL CTime::GetCurrentTime() { return CTime(::time(nullptr)); }

CTime::CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST)
    : m_time(fromFields(nYear, nMonth, nDay, nHour, nMin, nSec, nDST)) {}

// Date: day in bits 0 to 4, month in 5 to 8, years since 1980 above. Time: seconds halved in bits 0
// to 4, minutes in 5 to 10, hours above.
CTime::CTime(WORD wDosDate, WORD wDosTime, int nDST)
    : m_time(fromFields((wDosDate >> 9) + 1980, wDosDate >> 5 & 0x0F, wDosDate & 0x1F,
                        wDosTime >> 11, wDosTime >> 5 & 0x3F, (wDosTime & 0x1F) * 2, nDST)) {}

CTime::CTime(const SYSTEMTIME& sysTime, int nDST)
    : m_time(fromFields(sysTime.wYear, sysTime.wMonth, sysTime.wDay, sysTime.wHour, sysTime.wMinute,
                        sysTime.wSecond, nDST)) {}

// Not by way of local time: the system's conversion applies today's daylight saving to all dates.
CTime::CTime(const FILETIME& fileTime, int) : m_time(0) {
  ULARGE_INTEGER ticks;
  ticks.LowPart = fileTime.dwLowDateTime;
  ticks.HighPart = fileTime.dwHighDateTime;
  if (ticks.QuadPart == 0) return;  // a file system that does not keep this time
  const LONGLONG seconds =
      static_cast<LONGLONG>(ticks.QuadPart / kTicksPerSecond) - kSecondsFrom1601To1970;
  m_time = seconds < 0 || seconds > LONG_MAX ? -1 : static_cast<time_t>(seconds);
}

FILETIME FileTimeOf(CTime time) {
  ULARGE_INTEGER ticks;
  ticks.QuadPart = (time.GetTime() + kSecondsFrom1601To1970) * kTicksPerSecond;
  return {ticks.LowPart, ticks.HighPart};
}

struct tm* CTime::GetGmtTm(struct tm* ptm) const {
  return orEarliest(gmtime(&m_time), ptm);
}

struct tm* CTime::GetLocalTm(struct tm* ptm) const {
  return orEarliest(localtime(&m_time), ptm);
}

BOOL CTime::GetAsSystemTime(SYSTEMTIME& timeDest) const {
  const struct tm* fields = localtime(&m_time);
  if (fields == nullptr) return FALSE;
  timeDest.wYear = static_cast<WORD>(fields->tm_year + 1900);
  timeDest.wMonth = static_cast<WORD>(fields->tm_mon + 1);
  timeDest.wDayOfWeek = static_cast<WORD>(fields->tm_wday);
  timeDest.wDay = static_cast<WORD>(fields->tm_mday);
  timeDest.wHour = static_cast<WORD>(fields->tm_hour);
  timeDest.wMinute = static_cast<WORD>(fields->tm_min);
  timeDest.wSecond = static_cast<WORD>(fields->tm_sec);
  timeDest.wMilliseconds = 0;
  return TRUE;
}

int CTime::GetYear() const { return GetLocalTm()->tm_year + 1900; }
int CTime::GetMonth() const { return GetLocalTm()->tm_mon + 1; }
int CTime::GetDay() const { return GetLocalTm()->tm_mday; }
int CTime::GetHour() const { return GetLocalTm()->tm_hour; }
int CTime::GetMinute() const { return GetLocalTm()->tm_min; }
int CTime::GetSecond() const { return GetLocalTm()->tm_sec; }
int CTime::GetDayOfWeek() const { return GetLocalTm()->tm_wday + 1; }

CTimeSpan CTime::operator-(CTime time) const { return difference(m_time, time.m_time); }
CTime CTime::operator-(CTimeSpan timeSpan) const { return difference(m_time, timeSpan.m_timeSpan); }
CTime CTime::operator+(CTimeSpan timeSpan) const { return sum(m_time, timeSpan.m_timeSpan); }

CString CTime::Format(LPCTSTR pFormat) const { return formatFields(*GetLocalTm(), pFormat); }
CString CTime::Format(UINT nFormatID) const { return Format(StringResource(nFormatID)); }
CString CTime::FormatGmt(LPCTSTR pFormat) const { return formatFields(*GetGmtTm(), pFormat); }
CString CTime::FormatGmt(UINT nFormatID) const { return FormatGmt(StringResource(nFormatID)); }

CTimeSpan::CTimeSpan(LONG lDays, int nHours, int nMins, int nSecs)
    : m_timeSpan(static_cast<time_t>(((lDays * 24LL + nHours) * 60 + nMins) * 60 + nSecs)) {}

CTimeSpan CTimeSpan::operator-(CTimeSpan timeSpan) const {
  return difference(m_timeSpan, timeSpan.m_timeSpan);
}

CTimeSpan CTimeSpan::operator+(CTimeSpan timeSpan) const {
  return sum(m_timeSpan, timeSpan.m_timeSpan);
}

CString CTimeSpan::Format(LPCTSTR pFormat) const {
  CString result, item;
  for (LPCSTR p = pFormat; *p != '\0'; ++p) {
    if (*p != '%') {
      result += *p;
      continue;
    }
    switch (*++p) {
      case 'D':
        item.Format("%ld", GetDays());
        break;
      case 'H':
        item.Format("%02d", GetHours());
        break;
      case 'M':
        item.Format("%02d", GetMinutes());
        break;
      case 'S':
        item.Format("%02d", GetSeconds());
        break;
      case '\0':  // a percent sign at the very end
        return result + '%';
      default:  // %% among them
        item = *p;
    }
    result += item;
  }
  return result;
}

CString CTimeSpan::Format(UINT nID) const { return Format(StringResource(nID)); }

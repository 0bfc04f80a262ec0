#include "util/TimeUtil.h"

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iterator>

#include "diag/trace.h"

namespace {

constexpr int kUnknown = -1;
constexpr int kSecondsPerMinute = 60;

int keptBias = kUnknown;

CString LocaleText(LCTYPE type) {
  char text[256] = "";
  VERIFY(GetLocaleInfoA(LOCALE_USER_DEFAULT, type, text, sizeof text));
  return text;
}

// "Date|time" to the pictures of both; null where the locale's own is meant.
class Pictures {
 public:
  explicit Pictures(const char* format) {
    const CString both(format);
    const int bar = both.Find('|');
    m_date = bar < 0 ? both : both.Left(bar);
    if (bar >= 0) m_time = both.Mid(bar + 1);
  }
  const char* Date() const { return OrNull(m_date); }
  const char* Time() const { return OrNull(m_time); }

 private:
  static const char* OrNull(const CString& picture) {
    return picture.IsEmpty() ? nullptr : static_cast<const char*>(picture);
  }

  CString m_date;
  CString m_time;
};

// Fields of two decimal digits, one separator between them.
class FixedWidthFields {
 public:
  explicit FixedWidthFields(const char* text) : m_text(text), m_length(strlen(text)) {}

  // The field at a position; a character that is no digit counts as what it is in the arithmetic, a
  // missing one as 0.
  int At(size_t position) const { return 10 * Digit(position) + Digit(position + 1); }

  bool HasDigit(size_t position) const {
    return position < m_length && m_text[position] >= '0' && m_text[position] <= '9';
  }

 private:
  int Digit(size_t position) const {
    ASSERT(HasDigit(position));
    return position < m_length ? m_text[position] - '0' : 0;
  }

  const char* m_text;
  size_t m_length;
};

// The year, since 1900, and where the field of its last two digits begins.
int YearSince1900(const FixedWidthFields& fields, const char* text, int fourDigitYear,
                  size_t& start) {
  const bool isLong = fields.HasDigit(2);
  start = isLong ? 2 : 0;
  const bool isOfThisCentury = fourDigitYear || *text == '2';
  const int century = isLong ? fields.At(0) - 19 : isOfThisCentury;
  return 100 * century + fields.At(start);
}

}  // namespace

int GetTimeZone() {
  if (getenv("TZ") != nullptr) {
    VERIFY(_putenv("TZ=") == 0);
    _tzset();
  }
  TIME_ZONE_INFORMATION zone;
  switch (GetTimeZoneInformation(&zone)) {
    case TIME_ZONE_ID_UNKNOWN:
    case TIME_ZONE_ID_STANDARD:
      return (zone.Bias + zone.StandardBias) * kSecondsPerMinute;
    case TIME_ZONE_ID_DAYLIGHT:
      return (zone.Bias + zone.DaylightBias) * kSecondsPerMinute;
    default:
      return 0;
  }
}

int GetZoneBias(int refresh) {
  if (keptBias == kUnknown || refresh) keptBias = GetTimeZone();
  return keptBias;
}

int ChangeTimeZone() {
  const int kept = GetZoneBias(0);
  return kept - GetTimeZone();
}

CString GetWsDateFormat() {
  return LocaleText(LOCALE_SSHORTDATE) + "|" + LocaleText(LOCALE_STIMEFORMAT);
}

CString DisplayDate(CTime time, const char* format, int zoneBias) {
  if (time.GetTime() == 0) return "";
  if (zoneBias != kUnknown) time -= CTimeSpan(zoneBias - GetZoneBias(0));
  SYSTEMTIME fields;
  if (!time.GetAsSystemTime(fields)) return "";
  const Pictures pictures(format);
  // Picture by picture; one whose text is too long leaves nothing.
  char date[30] = "", timeOfDay[20] = "";
  if (!GetDateFormatA(LOCALE_USER_DEFAULT, 0, &fields, pictures.Date(), date, sizeof date))
    date[0] = 0;
  if (!GetTimeFormatA(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &fields, pictures.Time(), timeOfDay,
                      sizeof timeOfDay))
    timeOfDay[0] = 0;
  return CString(date) + " " + timeOfDay;
}

int GetMonthNum(const char* name) {
  static constexpr const char* kMonths[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                            "jul", "aug", "sep", "oct", "nov", "dec"};
  for (size_t i = 0; name != nullptr && i < std::size(kMonths); ++i) {
    if (_strnicmp(name, kMonths[i], 3) == 0) return static_cast<int>(i) + 1;
  }
  ASSERT(false);
  return 0;
}

void DateStrToCtime(const char* text, CTime& time, int fourDigitYear) {
  ASSERT(text != nullptr);
  if (text == nullptr) return;
  const FixedWidthFields fields(text);
  size_t start;
  tm date = {};
  date.tm_year = YearSince1900(fields, text, fourDigitYear, start);
  date.tm_mon = fields.At(start + 3) - 1;
  date.tm_mday = fields.At(start + 6);
  date.tm_hour = fields.At(start + 9);
  date.tm_min = fields.At(start + 12);
  date.tm_sec = fields.At(start + 15);
  // Not as local time less the zone's bias: that would be an hour off for dates of the other
  // season.
  time = CTime(_mkgmtime(&date));
}

unsigned long ConvertFileTime(const FILETIME& fileTime, int toLocal) {
  if (fileTime.dwHighDateTime == 0) return 0;
  FILETIME shown = fileTime;
  SYSTEMTIME fields;
  if (toLocal && !FileTimeToLocalFileTime(&fileTime, &shown)) return 0;
  if (!FileTimeToSystemTime(&shown, &fields)) return 0;
  ASSERT(fields.wDay >= 1 && fields.wDay <= 31);
  ASSERT(fields.wMonth >= 1 && fields.wMonth <= 12);
  const time_t seconds = CTime(fields).GetTime();
  return seconds == -1 ? 0 : static_cast<unsigned long>(seconds);
}

int GetFileTimes(const char* path, long& accessed, long& modified, int shiftByBias) {
  struct _stat64 status;
  if (path == nullptr || _stat64(path, &status) != 0) return 0;
  const int shift = shiftByBias ? GetZoneBias(0) : 0;
  accessed = static_cast<long>(status.st_atime) - shift;
  modified = static_cast<long>(status.st_mtime) - shift;
  return 1;
}

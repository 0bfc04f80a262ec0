// The two kinds of time that a zip archive holds, from and to file times (100 ns units since 1601,
// UTC).
#pragma once

#include <afxwin.h>

#include <cstdint>

// A DOS date and time: local time of an unnamed zone, in steps of two seconds, 1980 to 2107.
struct ZipDosTime {
  uint16_t time = 0;
  uint16_t date = 0;
};

// The time zone of the system, asked for once an archive: asking is slow beside the rest of an
// entry.
class ZipTimeZone {
 public:
  ZipTimeZone();

  // With the daylight saving of the date itself; times outside the range become its first or last.
  ZipDosTime ToDosTime(const FILETIME& fileTime) const;

  // A zero file time for what is no date.
  FILETIME FromDosTime(ZipDosTime dosTime) const;

 private:
  TIME_ZONE_INFORMATION m_zone;
};

// Seconds since 1970; times outside the range become its first or last.
int32_t ToUnixTime(const FILETIME& fileTime);
FILETIME FromUnixTime(int32_t seconds);

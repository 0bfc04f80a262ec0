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

// In the system's time zone, with the daylight saving of the date itself; times outside the range
// become its first or last.
ZipDosTime toDosTime(const FILETIME& fileTime);

// A zero file time for what is no date.
FILETIME fromDosTime(ZipDosTime dosTime);

// Seconds since 1970; times outside the range become its first or last.
int32_t toUnixTime(const FILETIME& fileTime);
FILETIME fromUnixTime(int32_t seconds);

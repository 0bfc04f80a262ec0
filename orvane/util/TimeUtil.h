// Dates and times: the local zone's bias, texts for the user, texts of revision files, file times.
// A time is seconds since 1 January 1970, 0:00 UTC; 0 stands for no time.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// --- The local time zone ---

// A zone's bias is what must be added to local time to get UTC, in seconds: positive west of
// Greenwich, with daylight saving counted in while it is in force.

// The bias of this moment; 0 when the system does not know it. Takes "TZ" out of the process's
// environment, so that the runtime's local time follows the system's zone too.
ORVANE_API int GetTimeZone();

// The bias that was kept by the first call, or by the last one with refresh.
ORVANE_API int GetZoneBias(int refresh);

// The kept bias minus that of this moment: 0 while the zone is the same. What is kept stays.
ORVANE_API int ChangeTimeZone();

// --- Texts ---

// The user's pictures for short dates and for times, joined by "|", as GetDateFormat and
// GetTimeFormat of the system take them.
ORVANE_API CString GetWsDateFormat();

// Date, blank, time of day without seconds; empty for no time. format: pictures as above; null, or
// one without "|" or with nothing on a side of it: the user's own for what is missing. zoneBias: -1
// for local time; otherwise the time is shown as in a zone with that bias at present and the local
// zone's rule for daylight saving.
ORVANE_API CString DisplayDate(CTime time, const char* format, int zoneBias);

// 1 to 12 for a text that begins with the first three letters of a month's English name, in either
// case; else 0, with an ASSERT.
ORVANE_API int GetMonthNum(const char* name);

// Reads a text of the shape YY.MM.DD.hh.mm.ss, with any character between the fields, as UTC. The
// year may have four digits; one of two digits is in the 20th century, unless it begins with 2 or
// fourDigitYear says that the file has years of this century. Fields out of their range carry over
// into the next; a date outside of 1970 to 2038 gives -1. A null text leaves time as it is; that,
// and a character where a digit must stand or a text that ends too early, is an ASSERT.
ORVANE_API void DateStrToCtime(const char* text, CTime& time, int fourDigitYear);

// --- Files ---

// Seconds for a file time; 0 for none, and for what is not a date. toLocal: by way of local time,
// made with the bias of this moment by design, whatever the season of the file's date. Without
// toLocal the fields in UTC are read as local time, by design for callers that go on to show them.
ORVANE_API unsigned long ConvertFileTime(const FILETIME& fileTime, int toLocal);

// When a file was last read and written: 1, or 0 when there is none. shiftByBias: less the kept
// bias.
ORVANE_API int GetFileTimes(const char* path, long& accessed, long& modified, int shiftByBias);

// --- Dialogs ---

// Exchanges a time with two pickers: the date is that of the first, the time of day that of the
// second. A picker that shows no value (DTS_SHOWNONE) leaves its part of time as it was, and shows
// none when time is 0.
ORVANE_API void DDX_DateTimeCtrl(CDataExchange* dx, int dateControlId, int timeControlId,
                                 CTime& time);

// Keeps the functions that extract whole archives inside their target folder.
#pragma once

#include "entry/export.h"

// Whether an entry of this name, extracted below a folder, ends up below it. Names are seen as the
// file system sees them: both slashes divide, trailing dots and blanks and letter case don't count.
// Not below are: a leading slash, a drive or a stream (any colon), "..", the names of devices, a
// name that fills the entry record and so may have been cut, and the empty name.
ORVANE_API bool StaysBelowTarget(const char* entryName);

// Names an entry that was left out in the assertion log.
void ReportSkippedEntry(const char* entryName);

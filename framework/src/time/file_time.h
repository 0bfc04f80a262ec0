#pragma once

#include <afxtime_.h>

// The same time as file systems keep it: in units of 100 ns since the year 1601.
FILETIME FileTimeOf(CTime time);

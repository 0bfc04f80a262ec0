// The errors of WinInet that the library has texts for.
#pragma once

#include <afxwin.h>

struct InternetErrorRow {
  bool mayRetry;  // whether the same request may well succeed a moment later
  const char* text;
};

// Null: a code outside 12001 to 12044.
const InternetErrorRow* FindInternetError(DWORD code);

// Traces a failure of a function: its scope with "Err" behind its name, the URL and what it was.
void TraceInternetError(const char* function, const char* url, DWORD code);

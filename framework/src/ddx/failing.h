// Failing an exchange.
#pragma once

#include <afxwin.h>

// Shows a string of the framework and fails.
[[noreturn]] void FailWith(CDataExchange* pDX, UINT prompt);
// The same with texts in the place of %1 and %2.
[[noreturn]] void FailWith(CDataExchange* pDX, UINT prompt, LPCTSTR first, LPCTSTR second);

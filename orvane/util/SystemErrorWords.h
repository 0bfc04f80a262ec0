// The system's words for its errors.
#pragma once

#include <afxwin.h>

// In the user's language, without the end of their sentence, so that they can stand within another
// one. Empty: the system has none for this error.
CString SystemErrorWords(DWORD error);

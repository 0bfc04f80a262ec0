#pragma once

#include <afxver_.h>

// Copies a text into a caller's buffer of nMaxError characters; what does not fit is cut off.
void CopyText(LPCSTR text, LPTSTR lpszError, UINT nMaxError);

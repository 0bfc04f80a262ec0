// Texts of controls that need not have an object.
#pragma once

#include <afxstr_.h>

CString WindowText(HWND control);
// Sets the text when it is another one, so that nothing flickers.
void ShowWindowText(HWND control, LPCTSTR text);

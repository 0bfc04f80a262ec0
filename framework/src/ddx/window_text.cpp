#include "ddx/window_text.h"

CString WindowText(HWND control) {
  const int length = ::GetWindowTextLength(control);
  CString text;
  const LPTSTR buffer = text.GetBuffer(length);
  text.ReleaseBuffer(::GetWindowText(control, buffer, length + 1));
  return text;
}

void ShowWindowText(HWND control, LPCTSTR text) {
  if (WindowText(control) != text) ::SetWindowText(control, text);
}

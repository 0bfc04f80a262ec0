// CWnd: messages before they are dispatched.

#include <afxwin.h>

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg) {
  for (HWND hWnd = pMsg->hwnd; hWnd != nullptr; hWnd = ::GetParent(hWnd)) {
    CWnd* const window = FromHandlePermanent(hWnd);
    if (window != nullptr && window->PreTranslateMessage(pMsg)) return TRUE;
    if (hWnd == hWndStop) break;
  }
  return FALSE;
}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

BOOL CWnd::PreTranslateInput(LPMSG lpMsg) {
  const UINT message = lpMsg->message;
  const bool key = message >= WM_KEYFIRST && message <= WM_KEYLAST;
  const bool mouse = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
  return (key || mouse) && IsDialogMessage(lpMsg);
}

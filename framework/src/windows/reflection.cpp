// CWnd: notifications that a parent gives back to the control that sent them.

#include <afxwin.h>

#include "windows/thread_state.h"

BOOL PASCAL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult) {
  CWnd* const child = FromHandlePermanent(hWndChild);
  return child != nullptr && child->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult) {
  const MSG message = State().message;
  return OnChildNotify(message.message, message.wParam, message.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  return ReflectChildNotify(message, wParam, lParam, pResult);
}

// The record of a notification may stand at any address, see CWnd::OnWndMsg.
[[gnu::no_sanitize("alignment")]] BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam,
                                                                LPARAM lParam, LRESULT* pResult) {
  LRESULT unwanted = 0;
  LRESULT* const result = pResult != nullptr ? pResult : &unwanted;
  switch (message) {
    case WM_COMMAND:
      return OnCmdMsg(0, MAKELONG(HIWORD(wParam), WM_REFLECT_BASE + WM_COMMAND), nullptr, nullptr);
    case WM_NOTIFY: {
      NMHDR* const header = reinterpret_cast<NMHDR*>(lParam);
      AFX_NOTIFY notify = {result, header};
      return OnCmdMsg(0, MAKELONG(LOWORD(header->code), WM_REFLECT_BASE + WM_NOTIFY), &notify,
                      nullptr);
    }
    default:
      return OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, result);
  }
}

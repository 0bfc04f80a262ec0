#include "windows/wnd_access.h"

namespace {

WNDPROC procedureOf(HWND window) {
  return reinterpret_cast<WNDPROC>(GetWindowLongPtr(window, GWLP_WNDPROC));
}

}  // namespace

bool IsSubclassed(HWND window) { return procedureOf(window) == AfxGetAfxWndProc(); }

void ReplaceProcedure(CWnd& window) {
  if (IsSubclassed(window.m_hWnd)) return;
  const LONG_PTR former =
      SetWindowLongPtr(window.m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(AfxGetAfxWndProc()));
  _AfxWndAccess::SuperProcedure(window) = reinterpret_cast<WNDPROC>(former);
}

void RestoreProcedure(CWnd& window) {
  WNDPROC& former = _AfxWndAccess::SuperProcedure(window);
  if (former == nullptr || !IsSubclassed(window.m_hWnd)) return;
  SetWindowLongPtr(window.m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former));
  former = nullptr;
}

// CWnd: styles, centring and layout.

#include <afxwin.h>
#include <afxpriv.h>

namespace {

BOOL modify(HWND window, int index, DWORD remove, DWORD add, UINT flags) {
  const DWORD before = static_cast<DWORD>(GetWindowLong(window, index));
  const DWORD after = (before & ~remove) | add;
  if (before == after) return FALSE;
  SetWindowLong(window, index, static_cast<LONG>(after));
  if (flags != 0)
    SetWindowPos(window, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | flags);
  return TRUE;
}

// The part of the screen, without the taskbar, that a window is on.
CRect workArea(HWND window) {
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  GetMonitorInfo(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &info);
  return info.rcWork;
}

bool hasPlace(HWND window) {
  return window != nullptr && IsWindowVisible(window) && !IsIconic(window);
}

}  // namespace

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return modify(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return modify(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner) {
  const bool child = (GetStyle() & WS_CHILD) != 0;
  HWND middle = pAlternateOwner != nullptr ? pAlternateOwner->m_hWnd
                : child                    ? ::GetParent(m_hWnd)
                                           : ::GetWindow(m_hWnd, GW_OWNER);
  CRect around, limits;
  if (child) {
    ::GetClientRect(::GetParent(m_hWnd), limits);
    ::GetClientRect(middle, around);
    ::MapWindowPoints(middle, ::GetParent(m_hWnd), reinterpret_cast<LPPOINT>(&around), 2);
  } else {
    if (!hasPlace(middle)) middle = nullptr;
    limits = workArea(middle != nullptr ? middle : m_hWnd);
    if (middle != nullptr)
      ::GetWindowRect(middle, around);
    else
      around = limits;
  }
  CRect place;
  GetWindowRect(place);
  const CSize size = place.Size();
  CPoint corner = around.CenterPoint() - CSize(size.cx / 2, size.cy / 2);
  // Where it does not fit, its caption is what must be seen.
  if (corner.x + size.cx > limits.right) corner.x = limits.right - size.cx;
  if (corner.y + size.cy > limits.bottom) corner.y = limits.bottom - size.cy;
  if (corner.x < limits.left) corner.x = limits.left;
  if (corner.y < limits.top) corner.y = limits.top;
  SetWindowPos(nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CWnd::CheckAutoCenter() { return TRUE; }

void CWnd::CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType) {
  DWORD dwExStyle = GetExStyle();
  if (nAdjustType == adjustBorder) dwExStyle &= ~static_cast<DWORD>(WS_EX_CLIENTEDGE);
  ::AdjustWindowRectEx(lpClientRect, GetStyle(), FALSE, dwExStyle);
}

void CWnd::RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlag,
                          LPRECT lpRectParam, LPCRECT lpRectClient, BOOL bStretch) {
  AFX_SIZEPARENTPARAMS layout = {};
  layout.bStretch = bStretch;
  if (lpRectClient != nullptr)
    layout.rect = *lpRectClient;
  else
    GetClientRect(&layout.rect);
  if (nFlag != reposQuery) layout.hDWP = ::BeginDeferWindowPos(8);

  HWND leftOver = nullptr;
  for (HWND child = ::GetTopWindow(m_hWnd); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    const UINT id = static_cast<UINT>(::GetDlgCtrlID(child)) & 0xFFFF;
    if (id == nIDLeftOver)
      leftOver = child;
    else if (id >= nIDFirst && id <= nIDLast && FromHandlePermanent(child) != nullptr)
      ::SendMessage(child, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
  }

  CRect rest(layout.rect);
  if (nFlag == reposQuery) {
    if (bStretch)
      ::CopyRect(lpRectParam, &layout.rect);
    else
      ::SetRect(lpRectParam, 0, 0, layout.sizeTotal.cx, layout.sizeTotal.cy);
    return;
  }
  if (leftOver != nullptr) {
    if (nFlag == reposExtra) {
      rest.left += lpRectParam->left;
      rest.top += lpRectParam->top;
      rest.right -= lpRectParam->right;
      rest.bottom -= lpRectParam->bottom;
    }
    if (layout.hDWP != nullptr)
      layout.hDWP = ::DeferWindowPos(layout.hDWP, leftOver, nullptr, rest.left, rest.top,
                                     rest.Width(), rest.Height(), SWP_NOZORDER | SWP_NOACTIVATE);
  }
  if (layout.hDWP != nullptr) ::EndDeferWindowPos(layout.hDWP);
}

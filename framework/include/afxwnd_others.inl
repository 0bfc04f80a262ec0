// Part of afxwnd_.h: a window among others, and the input.
#pragma once

inline CWnd* CWnd::SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
inline CWnd* PASCAL CWnd::GetFocus() { return FromHandle(::GetFocus()); }
inline CWnd* CWnd::SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
inline CWnd* PASCAL CWnd::GetCapture() { return FromHandle(::GetCapture()); }
inline CWnd* CWnd::SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
inline CWnd* PASCAL CWnd::GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
inline BOOL CWnd::SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
inline CWnd* PASCAL CWnd::GetForegroundWindow() { return FromHandle(::GetForegroundWindow()); }
inline CWnd* PASCAL CWnd::GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }

inline CWnd* CWnd::ChildWindowFromPoint(POINT point) const {
  return FromHandle(::ChildWindowFromPoint(m_hWnd, point));
}
inline CWnd* CWnd::ChildWindowFromPoint(POINT point, UINT nFlags) const {
  return FromHandle(::ChildWindowFromPointEx(m_hWnd, point, nFlags));
}
inline CWnd* PASCAL CWnd::FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName) {
  return FromHandle(::FindWindow(lpszClassName, lpszWindowName));
}
inline CWnd* PASCAL CWnd::WindowFromPoint(POINT point) {
  return FromHandle(::WindowFromPoint(point));
}
inline CWnd* CWnd::GetTopWindow() const { return FromHandle(::GetTopWindow(m_hWnd)); }
inline CWnd* CWnd::GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }
inline CWnd* CWnd::GetNextWindow(UINT nFlag) const { return GetWindow(nFlag); }
inline CWnd* CWnd::GetLastActivePopup() const { return FromHandle(::GetLastActivePopup(m_hWnd)); }
inline BOOL CWnd::IsChild(const CWnd* pWnd) const { return ::IsChild(m_hWnd, pWnd->m_hWnd); }
inline CWnd* CWnd::GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
inline CWnd* CWnd::SetParent(CWnd* pWndNewParent) {
  return FromHandle(
      ::SetParent(m_hWnd, pWndNewParent != nullptr ? pWndNewParent->m_hWnd : nullptr));
}
inline CWnd* CWnd::GetOwner() const {
  return m_hWndOwner != nullptr ? FromHandle(m_hWndOwner) : GetParent();
}
inline void CWnd::SetOwner(CWnd* pOwnerWnd) {
  m_hWndOwner = pOwnerWnd != nullptr ? pOwnerWnd->m_hWnd : nullptr;
}

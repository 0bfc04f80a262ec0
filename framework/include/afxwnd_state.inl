// Part of afxwnd_.h: state, size, place, text and painting of a window.
#pragma once

inline DWORD CWnd::GetStyle() const { return ::GetWindowLong(m_hWnd, GWL_STYLE); }
inline DWORD CWnd::GetExStyle() const { return ::GetWindowLong(m_hWnd, GWL_EXSTYLE); }
inline BOOL CWnd::IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
inline BOOL CWnd::IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
inline BOOL CWnd::EnableWindow(BOOL bEnable) { return ::EnableWindow(m_hWnd, bEnable); }
inline BOOL CWnd::IsIconic() const { return ::IsIconic(m_hWnd); }
inline BOOL CWnd::IsZoomed() const { return ::IsZoomed(m_hWnd); }
inline BOOL CWnd::ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }

inline void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint) {
  ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
}
inline void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint) {
  const CRect rect(lpRect);
  MoveWindow(rect.left, rect.top, rect.Width(), rect.Height(), bRepaint);
}
inline BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy,
                               UINT nFlags) {
  return ::SetWindowPos(m_hWnd, pWndInsertAfter != nullptr ? pWndInsertAfter->m_hWnd : nullptr, x,
                        y, cx, cy, nFlags);
}
inline UINT CWnd::ArrangeIconicWindows() { return ::ArrangeIconicWindows(m_hWnd); }
inline void CWnd::BringWindowToTop() { ::BringWindowToTop(m_hWnd); }
inline void CWnd::CloseWindow() { ::CloseWindow(m_hWnd); }
inline BOOL CWnd::OpenIcon() { return ::OpenIcon(m_hWnd); }
inline BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const {
  lpwndpl->length = sizeof *lpwndpl;
  return ::GetWindowPlacement(m_hWnd, lpwndpl);
}
inline BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl) {
  WINDOWPLACEMENT placement = *lpwndpl;
  placement.length = sizeof placement;
  return ::SetWindowPlacement(m_hWnd, &placement);
}
inline void CWnd::GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
inline void CWnd::GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
inline int CWnd::SetWindowRgn(HRGN hRgn, BOOL bRedraw) {
  return ::SetWindowRgn(m_hWnd, hRgn, bRedraw);
}
inline int CWnd::GetWindowRgn(HRGN hRgn) const { return ::GetWindowRgn(m_hWnd, hRgn); }

inline void CWnd::MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const {
  ::MapWindowPoints(m_hWnd, pwndTo != nullptr ? pwndTo->m_hWnd : nullptr, lpPoint, nCount);
}
inline void CWnd::MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const {
  MapWindowPoints(pwndTo, reinterpret_cast<LPPOINT>(lpRect), 2);
}
inline void CWnd::ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }
inline void CWnd::ClientToScreen(LPRECT lpRect) const { MapWindowPoints(nullptr, lpRect); }
inline void CWnd::ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }
inline void CWnd::ScreenToClient(LPRECT lpRect) const {
  ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
}

inline void CWnd::SetWindowText(LPCTSTR lpszString) { ::SetWindowText(m_hWnd, lpszString); }
inline int CWnd::GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const {
  return ::GetWindowText(m_hWnd, lpszStringBuf, nMaxCount);
}
inline int CWnd::GetWindowTextLength() const { return ::GetWindowTextLength(m_hWnd); }
inline HICON CWnd::SetIcon(HICON hIcon, BOOL bBigIcon) {
  return reinterpret_cast<HICON>(
      ::SendMessage(m_hWnd, WM_SETICON, bBigIcon, reinterpret_cast<LPARAM>(hIcon)));
}
inline HICON CWnd::GetIcon(BOOL bBigIcon) const {
  return reinterpret_cast<HICON>(::SendMessage(m_hWnd, WM_GETICON, bBigIcon, 0));
}

inline void CWnd::UpdateWindow() { ::UpdateWindow(m_hWnd); }
inline void CWnd::SetRedraw(BOOL bRedraw) { ::SendMessage(m_hWnd, WM_SETREDRAW, bRedraw, 0); }
inline BOOL CWnd::GetUpdateRect(LPRECT lpRect, BOOL bErase) {
  return ::GetUpdateRect(m_hWnd, lpRect, bErase);
}
inline void CWnd::Invalidate(BOOL bErase) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
inline void CWnd::InvalidateRect(LPCRECT lpRect, BOOL bErase) {
  ::InvalidateRect(m_hWnd, lpRect, bErase);
}
inline void CWnd::ValidateRect(LPCRECT lpRect) { ::ValidateRect(m_hWnd, lpRect); }
inline BOOL CWnd::LockWindowUpdate() { return ::LockWindowUpdate(m_hWnd); }
inline void PASCAL CWnd::UnlockWindowUpdate() { ::LockWindowUpdate(nullptr); }
inline void CWnd::ShowOwnedPopups(BOOL bShow) { ::ShowOwnedPopups(m_hWnd, bShow); }
inline BOOL CWnd::EnableScrollBar(int nSBFlags, UINT nArrowFlags) {
  return ::EnableScrollBar(m_hWnd, nSBFlags, nArrowFlags);
}

inline UINT_PTR CWnd::SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer) {
  return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
}
inline BOOL CWnd::KillTimer(UINT_PTR nIDEvent) { return ::KillTimer(m_hWnd, nIDEvent); }

inline BOOL CWnd::FlashWindow(BOOL bInvert) { return ::FlashWindow(m_hWnd, bInvert); }
inline void CWnd::DragAcceptFiles(BOOL bAccept) { ::DragAcceptFiles(m_hWnd, bAccept); }
inline void CWnd::CreateSolidCaret(int nWidth, int nHeight) {
  ::CreateCaret(m_hWnd, nullptr, nWidth, nHeight);
}
inline void CWnd::CreateGrayCaret(int nWidth, int nHeight) {
  ::CreateCaret(m_hWnd, reinterpret_cast<HBITMAP>(1), nWidth, nHeight);
}
inline void CWnd::ShowCaret() { ::ShowCaret(m_hWnd); }
inline void CWnd::HideCaret() { ::HideCaret(m_hWnd); }
inline CPoint PASCAL CWnd::GetCaretPos() {
  CPoint point;
  ::GetCaretPos(&point);
  return point;
}
inline void PASCAL CWnd::SetCaretPos(POINT point) { ::SetCaretPos(point.x, point.y); }
inline void CWnd::DrawMenuBar() { ::DrawMenuBar(m_hWnd); }

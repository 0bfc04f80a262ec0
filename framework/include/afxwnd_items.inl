// Part of afxwnd_.h: items of dialogs, scrolling and messages.
#pragma once

inline int CWnd::GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
inline int CWnd::SetDlgCtrlID(int nID) { return ::SetWindowLong(m_hWnd, GWL_ID, nID); }
inline CWnd* CWnd::GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
inline void CWnd::GetDlgItem(int nID, HWND* phWnd) const { *phWnd = ::GetDlgItem(m_hWnd, nID); }
inline void CWnd::CheckDlgButton(int nIDButton, UINT nCheck) {
  ::CheckDlgButton(m_hWnd, nIDButton, nCheck);
}
inline void CWnd::CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton) {
  ::CheckRadioButton(m_hWnd, nIDFirstButton, nIDLastButton, nIDCheckButton);
}
inline UINT CWnd::IsDlgButtonChecked(int nIDButton) const {
  return ::IsDlgButtonChecked(m_hWnd, nIDButton);
}
inline UINT CWnd::GetDlgItemInt(int nID, BOOL* lpTrans, BOOL bSigned) const {
  return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
}
inline void CWnd::SetDlgItemInt(int nID, UINT nValue, BOOL bSigned) {
  ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned);
}
inline int CWnd::GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const {
  return ::GetDlgItemText(m_hWnd, nID, lpStr, nMaxCount);
}
inline void CWnd::SetDlgItemText(int nID, LPCTSTR lpszString) {
  ::SetDlgItemText(m_hWnd, nID, lpszString);
}
inline LRESULT CWnd::SendDlgItemMessage(int nID, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendDlgItemMessage(m_hWnd, nID, message, wParam, lParam);
}
inline CWnd* CWnd::GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious) const {
  return FromHandle(
      ::GetNextDlgGroupItem(m_hWnd, pWndCtl != nullptr ? pWndCtl->m_hWnd : nullptr, bPrevious));
}
inline CWnd* CWnd::GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious) const {
  return FromHandle(
      ::GetNextDlgTabItem(m_hWnd, pWndCtl != nullptr ? pWndCtl->m_hWnd : nullptr, bPrevious));
}
inline int CWnd::DlgDirList(LPTSTR lpPathSpec, int nIDListBox, int nIDStaticPath, UINT nFileType) {
  return ::DlgDirList(m_hWnd, lpPathSpec, nIDListBox, nIDStaticPath, nFileType);
}
inline BOOL CWnd::DlgDirSelect(LPTSTR lpString, int nSize, int nIDListBox) {
  return ::DlgDirSelectEx(m_hWnd, lpString, nSize, nIDListBox);
}

inline int CWnd::GetScrollPos(int nBar) const { return ::GetScrollPos(m_hWnd, nBar); }
inline void CWnd::GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const {
  ::GetScrollRange(m_hWnd, nBar, lpMinPos, lpMaxPos);
}
inline int CWnd::SetScrollPos(int nBar, int nPos, BOOL bRedraw) {
  return ::SetScrollPos(m_hWnd, nBar, nPos, bRedraw);
}
inline void CWnd::SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw) {
  ::SetScrollRange(m_hWnd, nBar, nMinPos, nMaxPos, bRedraw);
}
inline BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw) {
  lpScrollInfo->cbSize = sizeof *lpScrollInfo;
  ::SetScrollInfo(m_hWnd, nBar, lpScrollInfo, bRedraw);
  return TRUE;
}
inline BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask) {
  lpScrollInfo->cbSize = sizeof *lpScrollInfo;
  lpScrollInfo->fMask = nMask;
  return ::GetScrollInfo(m_hWnd, nBar, lpScrollInfo);
}
inline int CWnd::GetScrollLimit(int nBar) {
  SCROLLINFO info = {};
  GetScrollInfo(nBar, &info, SIF_PAGE | SIF_RANGE);
  return info.nMax - (info.nPage > 0 ? static_cast<int>(info.nPage) - 1 : 0);
}
inline void CWnd::ShowScrollBar(UINT nBar, BOOL bShow) { ::ShowScrollBar(m_hWnd, nBar, bShow); }
inline void CWnd::ScrollWindow(int xAmount, int yAmount, LPCRECT lpRect, LPCRECT lpClipRect) {
  ::ScrollWindow(m_hWnd, xAmount, yAmount, lpRect, lpClipRect);
}

inline LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendMessage(m_hWnd, message, wParam, lParam);
}
inline BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return ::PostMessage(m_hWnd, message, wParam, lParam);
}
inline BOOL CWnd::SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendNotifyMessage(m_hWnd, message, wParam, lParam);
}
inline BOOL CWnd::IsDialogMessage(LPMSG lpMsg) { return ::IsDialogMessage(m_hWnd, lpMsg); }

inline BOOL CWnd::OpenClipboard() { return ::OpenClipboard(m_hWnd); }
inline BOOL CWnd::ChangeClipboardChain(HWND hWndNext) {
  return ::ChangeClipboardChain(m_hWnd, hWndNext);
}
inline HWND CWnd::SetClipboardViewer() { return ::SetClipboardViewer(m_hWnd); }
inline CWnd* PASCAL CWnd::GetClipboardOwner() { return FromHandle(::GetClipboardOwner()); }
inline CWnd* PASCAL CWnd::GetClipboardViewer() { return FromHandle(::GetClipboardViewer()); }
inline CWnd* PASCAL CWnd::GetOpenClipboardWindow() {
  return FromHandle(::GetOpenClipboardWindow());
}

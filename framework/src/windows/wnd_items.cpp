// CWnd: texts, message boxes, and controls as a whole.

#include <afxwin.h>

void CWnd::GetWindowText(CString& rString) const {
  const int length = ::GetWindowTextLength(m_hWnd);
  const int copied = ::GetWindowText(m_hWnd, rString.GetBuffer(length), length + 1);
  rString.ReleaseBuffer(copied);
}

int CWnd::GetDlgItemText(int nID, CString& rString) const {
  rString.Empty();
  if (const HWND item = ::GetDlgItem(m_hWnd, nID)) {
    const int length = ::GetWindowTextLength(item);
    const int copied = ::GetWindowText(item, rString.GetBuffer(length), length + 1);
    rString.ReleaseBuffer(copied);
  }
  return rString.GetLength();
}

int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const {
  for (int id = nIDFirstButton; id <= nIDLastButton; ++id)
    if (::IsDlgButtonChecked(m_hWnd, id) != 0) return id;
  return 0;
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType) {
  return ::MessageBox(m_hWnd, lpszText, lpszCaption != nullptr ? lpszCaption : AfxGetAppName(),
                      nType);
}

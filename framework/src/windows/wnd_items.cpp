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

// Whether a command without a handler greys the control: only push buttons stand for commands.
static bool isPushButton(HWND control) {
  if ((::SendMessage(control, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) == 0) return false;
  switch (::GetWindowLong(control, GWL_STYLE) & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
    case BS_OWNERDRAW:
      return true;
    default:
      return false;
  }
}

void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler) {
  HWND next;
  for (HWND control = ::GetTopWindow(m_hWnd); control != nullptr; control = next) {
    next = ::GetWindow(control, GW_HWNDNEXT);
    CWnd* const window = FromHandle(control);
    CCmdUI state;
    state.m_nID = static_cast<UINT>(::GetDlgCtrlID(control)) & 0xFFFF;
    state.m_pOther = window;
    // The control itself first.
    if (window->OnCmdMsg(0, static_cast<int>(CN_UPDATE_COMMAND_UI), &state, nullptr)) continue;
    state.DoUpdate(pTarget, bDisableIfNoHndler && isPushButton(control));
  }
}

#include <afxwin.h>

#include "ddx/failing.h"

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate),
      m_pDlgWnd(pDlgWnd),
      m_hWndLastControl(nullptr),
      m_bEditLastControl(FALSE) {}

HWND CDataExchange::PrepareCtrl(int nIDC) {
  const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC);
  if (control == nullptr) AfxThrowNotSupportedException();
  m_hWndLastControl = control;
  m_bEditLastControl = FALSE;
  return control;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC) {
  const HWND control = PrepareCtrl(nIDC);
  m_bEditLastControl = TRUE;
  return control;
}

void CDataExchange::Fail() {
  if (m_bSaveAndValidate && m_hWndLastControl != nullptr) {
    ::SetFocus(m_hWndLastControl);
    if (m_bEditLastControl) ::SendMessage(m_hWndLastControl, EM_SETSEL, 0, -1);
  }
  AfxThrowUserException();
}

void FailWith(CDataExchange* pDX, UINT prompt) {
  AfxMessageBox(prompt, MB_ICONEXCLAMATION, prompt);
  pDX->Fail();
}

void FailWith(CDataExchange* pDX, UINT prompt, LPCTSTR first, LPCTSTR second) {
  CString text;
  AfxFormatString2(text, prompt, first, second);
  AfxMessageBox(text, MB_ICONEXCLAMATION, prompt);
  pDX->Fail();
}
